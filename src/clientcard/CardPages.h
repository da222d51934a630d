#pragma once

#include <QObject>

#include <vector>

namespace forms {
class ScrollPage;
}

class QLayout;
class QStackedWidget;
class QString;
class QWidget;

namespace clientcard {

class TabFamily;
class TabList;

/// The tabs of the card: their captions `SSTab1`, and the page of the one on show.
class CardPages : public QObject {
    Q_OBJECT
  public:
    explicit CardPages(QWidget* window);

    /// Puts the next tab behind the others.
    void add(TabFamily& family);
    /// Captions and pages side by side, when all tabs are there.
    /// @param below stands under the page
    QLayout* layOut(QLayout* below);
    /// Takes no more height than the first page needs, so that what stands below is near its last
    /// field; or all of the height again.
    void hugFirstPage(bool hugs);

    TabList& list() const { return *SSTab1_; }
    int current() const;
    TabFamily& family(int tab) const { return *families_.at(std::size_t(tab)); }
    /// Turns to a tab as a click on it does.
    void turnTo(int tab);
    /// The next tab in a direction that is enabled, going round; if none is, the next one.
    int beside(int step) const;
    /// Turns to a tab, or to the one on show again, or says why it can't be turned to.
    void goTo(int tab);
    /// Reads anew what the tabs hold. @throws store::EngineError
    void showContents(bool any);
    /// Shows the page of a tab, and tells its family.
    void show(int tab);
    void enable(int from, bool enabled);
    void setReachable(int tab, bool reachable);

  Q_SIGNALS:
    /// The user or the program has turned to a tab; its page is to be shown.
    void turned(int tab);

  private:
    void fitHeight();
    forms::ScrollPage& firstPage() const;

    TabList* SSTab1_;
    bool hugsFirst_ = false;
    QStackedWidget* pages_;
    std::vector<TabFamily*> families_;
};

} // namespace clientcard
