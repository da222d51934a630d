#pragma once

#include <QGroupBox>

#include <span>
#include <vector>

class QLabel;

namespace clientcard {

struct TabContents;

/// What the tabs of records hold of a client, and of when their latest record is: below the basic
/// data, so that it is seen when the card opens. It is hidden where there are none.
class LastRecords : public QGroupBox {
    Q_OBJECT
  public:
    explicit LastRecords(QWidget* parent);

    /// @param contents of all tabs, in their order; empty ones of a client who is not written
    void showContents(std::span<const TabContents> contents);

  private:
    struct Line {
        QLabel* caption;
        QLabel* count;
        QLabel* latest;
    };
    std::vector<Line> lines_;
};

} // namespace clientcard
