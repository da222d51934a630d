#pragma once

#include "report/Pages.h"
#include "support/ScriptedBoxes.h"

#include <QDate>
#include <QStringList>

#include <map>
#include <stdexcept>
#include <utility>

namespace report::test {

/// Every letter is 100 twips wide, 200 in bold; a line is 240 high, its baseline 200 below its top.
class GridMeter : public TextMeter {
  public:
    double width(const QString& text, const TextStyle& style) const override {
        return double(text.size()) * (style.bold ? 200.0 : 100.0);
    }
    double ascent(const TextStyle&) const override { return 200; }
    double lineHeight(const TextStyle&) const override { return 240; }
};

/// Rows of the columns "a", "b", "c", to be read once or looked at.
class ListRows : public RowTable {
  public:
    explicit ListRows(QList<QStringList> rows) : rows_(std::move(rows)) {}

    qint64 count() const override { return rows_.size(); }
    void goTo(qint64 row) override { at_ = row; }
    QString text(const QString& column) const override {
        const auto index = QStringLiteral("abc").indexOf(column);
        if (column.size() != 1 || index < 0)
            throw std::out_of_range("no such column");
        return rows_[at_].value(index);
    }

  private:
    QList<QStringList> rows_;
    qint64 at_ = 0;
};

inline Control label(const QString& name, int left, int top, int width, const QString& caption) {
    return {.kind = ControlKind::Label,
            .name = name,
            .left = left,
            .top = top,
            .width = width,
            .height = 240,
            .caption = caption};
}

inline Control field(const QString& column, int left, int top, int width) {
    return {.kind = ControlKind::Field,
            .name = QStringLiteral("txt_") + column,
            .left = left,
            .top = top,
            .width = width,
            .height = 240,
            .dataField = column};
}

inline Control growing(const QString& column, int left, int top, int width) {
    Control control = field(column, left, top, width);
    control.canGrow = true;
    return control;
}

inline Control drawn(ControlKind kind, int left, int top, int width, int height) {
    return {.kind = kind, .left = left, .top = top, .width = width, .height = height};
}

/// The texts of a page in the order they were placed.
inline QStringList textsOf(const Page& page) {
    QStringList texts;
    for (const auto& text : page.texts)
        texts << text.text;
    return texts;
}

/// The first text of that wording. @throws std::out_of_range
inline const PlacedText& find(const Page& page, const QString& wording) {
    for (const auto& text : page.texts) {
        if (text.text == wording)
            return text;
    }
    throw std::out_of_range("no text " + wording.toStdString());
}

inline const QDate today{2006, 9, 5};

} // namespace report::test

inline void PrintTo(const QStringList& texts, std::ostream* out) {
    *out << texts.join(QStringLiteral(" | ")).toStdString();
}
