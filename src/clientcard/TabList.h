#pragma once

#include <QListWidget>

namespace clientcard {

struct TabContents;

/// The captions of the card's tabs, one below the other, so that all can be read, and beside them
/// what the tabs hold. A press on a tab that is disabled says why it is, and leaves the focus where
/// it is; so does one beside the tabs.
class TabList : public QListWidget {
    Q_OBJECT
  public:
    explicit TabList(QWidget* parent);

    void addTab(const QString& caption, const QString& key);
    /// Makes the list as wide as its captions and what may stand beside them, with any font.
    void fitToCaptions();
    void setContents(int tab, const TabContents& contents);
    /// Why tabs that are disabled are so, and what opens them.
    void setWhyLocked(const QString& why);
    /// Says it where the tab lies.
    void sayWhyLocked(int tab) const;

    bool isReachable(int tab) const;
    void setReachable(int tab, bool reachable);
    /// The next tab in a direction that is reachable, going round.
    int reachableFrom(int tab, int step) const;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }

  private:
    void describe(int tab) const;

    QString whyLocked_;
};

} // namespace clientcard
