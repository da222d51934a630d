#pragma once

#include "mainwindow/ListRows.h"

#include <QWidget>

#include <functional>

class QLabel;
class QMenu;
class QPushButton;

namespace forms {
class RecordsetGrid;
}

namespace mainwindow {

class ListFilter;

/// The two lists, of which one is on show, and the buttons that act on its current row.
class ListPane : public QWidget {
    Q_OBJECT
  public:
    /// @param open opens a card and waits for its end
    ListPane(const Surroundings& around, std::function<void(Screen)> open,
             QWidget* parent = nullptr);

    /// The data sources from now on; null takes the rows off the screen and lets go of them.
    void setSources(MainSources* sources);
    /// No list on show and nothing to press.
    void clear();
    /// Puts a list on show in the order of names. @throws store::EngineError
    void ukaz(const ListTraits& list);
    /// Reads the list on show again, if there is one, and stays on its row. @throws
    /// store::EngineError
    void readAnew();

  Q_SIGNALS:
    /// A card that was opened to edit a row of that list has closed.
    void cardClosed(int list);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    /// What the buttons don't take is typed into the filter.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    struct ListButton {
        QPushButton* ListPane::*button = nullptr;
        QStringView name;
        QStringView caption;
        void (ListPane::*action)() = nullptr;
        QStringView key;
        /// The key that does the same while the list has the focus.
        QStringView keyInList;
        QStringView toolTip;
    };
    static const std::array<ListButton, 5>& buttons();
    QPushButton* addButton(const ListButton& traits);
    forms::RecordsetGrid* addGrid(const ListTraits& list);
    QWidget* makeHeading();
    QLayout* makeButtonColumn();

    void tlacidlaVsetky();
    void tlacidlaPrazdne();
    QString whyNoRow() const;
    void tlacidlaPodlaRiadkov(forms::RecordsetGrid& focus);
    void zoznam(const ListTraits& list);
    void setCaptions(const ListTraits& list);
    void showGrid(const ListTraits& list);
    void sortByHead(int column);
    void showOrder(int column, Qt::SortOrder way);
    void buildListKeys();
    bool keyInList(int key);
    void pressByKey(QPushButton& button);
    void openMenu(const QPoint& place);
    void addOrders(QMenu& menu);
    void readAnew(QStringView sql);

    void novy();
    void oprava();
    void vymaz();
    void commit();
    void hladajOsobu();
    void hladajOsobuDalej();
    void tried();

    forms::RecordsetGrid& grid(const ListTraits& list) const;
    /// The list whose grid is visible, or null.
    const ListTraits* onShow() const;
    ListPlace place() { return {window(), around_, *sources_}; }

    const Surroundings& around_;
    std::function<void(Screen)> open_;
    MainSources* sources_ = nullptr;
    int aktZoznam_ = 0;
    int zoznamPred_ = 0;
    /// How the list on show is sorted.
    struct {
        int column = nameColumn;
        Qt::SortOrder way = Qt::AscendingOrder;
    } order_;
    /// What was last looked for.
    QString hladane_;

    QLabel* heading_;
    ListFilter* filter_;
    QLabel* welcome_;
    forms::RecordsetGrid* dbgKlient_;
    forms::RecordsetGrid* dbgPsych_;
    QPushButton* cmdNovy_ = nullptr;
    QPushButton* cmdOprava_ = nullptr;
    QPushButton* cmdVymaz_ = nullptr;
    QPushButton* cmdHladaj_ = nullptr;
    QPushButton* cmdSort_ = nullptr;
};

} // namespace mainwindow
