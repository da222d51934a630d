#pragma once

#include <QListWidget>

namespace clientcard {

/// The captions of the card's tabs, one below the other, so that all can be read. A press on a tab
/// that is disabled, or beside the tabs, leaves the focus where it is.
class TabList : public QListWidget {
    Q_OBJECT
  public:
    explicit TabList(QWidget* parent);

    /// Makes the list as wide as its captions, with any font.
    void fitToCaptions();
    bool isReachable(int tab) const;
    void setReachable(int tab, bool reachable);
    /// The next tab in a direction that is reachable, -1 when there is none.
    int reachableFrom(int tab, int step) const;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
};

} // namespace clientcard
