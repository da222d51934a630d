#pragma once

#include "report/Pages.h"

namespace report {

/// A report that is loaded: its own copy of a layout, whose captions, columns and orientation are
/// set before a run and stay set for the next one.
class Report {
  public:
    explicit Report(Layout layout) : layout_(std::move(layout)) {}

    /// Both by name, whatever the case. @throws std::out_of_range
    Section& section(QStringView name) { return layout_.section(name); }
    Control& control(QStringView section, QStringView name) {
        return layout_.section(section).control(name);
    }

    void setOrientation(Orientation orientation) { layout_.orientation = orientation; }

    const Layout& layout() const { return layout_; }

    Pages make(RowSource& rows, const TextMeter& meter, const QDate& today) const {
        return makePages(layout_, rows, meter, today);
    }

  private:
    Layout layout_;
};

} // namespace report
