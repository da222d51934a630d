#pragma once

#include "mainwindow/Lists.h"
#include "store/DataSource.h"
#include "store/RowTexts.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <optional>

class QKeyEvent;
class QLabel;
class QLineEdit;

namespace forms {
class RecordsetGrid;
}

namespace mainwindow {

/// The field above a list. It leaves on show only the rows in which all typed words begin a word,
/// in any order, letters' case and accents aside, and tells how many of how many these are. What is
/// typed in the list itself goes into the field.
class ListFilter : public QWidget {
    Q_OBJECT
  public:
    explicit ListFilter(QWidget* parent = nullptr);
    ~ListFilter() override;

    /// Works on this list from now on, with all of its rows on show.
    /// @param rows the source that the grid is bound to; must outlive the grid's binding to it
    void follow(const ListTraits& list, forms::RecordsetGrid& grid, store::DataSource& rows);
    /// Lets go of the list.
    void leave();
    bool isOn() const;
    QWidget& field() const;
    /// Applies now what was typed and waits for the texts: what acts on the current row needs the
    /// one that was meant. @throws store::EngineError
    void settle();
    /// All rows are on show again. The current one stays, in the middle.
    void showAll();
    /// As showAll(), when the filter hides the current row, and says so.
    void giveWay();
    /// Takes a key that was pressed beside the field, if it types. @return whether it does
    bool take(QKeyEvent& event);

    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    /// Other rows are on show.
    void changed();

  private:
    void takeRows();
    void letterTyped();
    void apply();
    void readOn();
    void tell();
    store::RowTexts& texts();
    bool keyInField(QKeyEvent& event);

    const ListTraits* list_ = nullptr;
    forms::RecordsetGrid* grid_ = nullptr;
    QPointer<store::DataSource> rows_;
    std::optional<store::RowTexts> texts_;
    /// Reads the texts in small steps, between which the program can wait for its user.
    QTimer reading_;
    /// What was typed is to be applied when the texts are there.
    bool isWaiting_ = false;
    QLineEdit* field_;
    QLabel* count_;
    /// What is told before the count, until something else is typed.
    QString note_;
};

} // namespace mainwindow
