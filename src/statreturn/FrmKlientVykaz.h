#pragma once

#include "printing/Printing.h"
#include "statreturn/LeftOut.h"
#include "statreturn/NumbersView.h"

#include <QDialog>

#include <functional>
#include <optional>

class QLabel;
class QSplitter;
class QTabWidget;

namespace statreturn {

class PeopleList;

/// Opens somebody's card over a window and waits until it is closed. @return the key that he has
/// then
using OpenCard = std::function<QString(const Person& person, QWidget* parent)>;

/// "Klienti vo výkaze": the numbers of Tables I and II with the clients behind each of them, and
/// who is left out of Tables I to III. It only reads; what cards write is read afresh.
class FrmKlientVykaz : public QDialog {
    Q_OBJECT
  public:
    /// @param tools their references must outlive the window
    /// @param schoolYear as the main window shows it, "RRRR/RRRR"
    /// @throws store::EngineError when the register can't be read
    FrmKlientVykaz(const printing::PrintTools& tools, const QString& schoolYear, const QDate& today,
                   OpenCard openCard, QWidget* parent);

  private:
    /// All that was read and counted; the numbers refer to the people.
    struct Contents {
        explicit Contents(ReturnPeople read);
        ReturnPeople people;
        NumberGrid one;
        NumberGrid two;
        LeftOut leftOut;
    };

    NumbersView* addNumbers(const char16_t* name, const char16_t* caption);
    QWidget* makeHalves();
    QWidget* makeList();
    void shareHeight();
    QLayout* makeLastLine();
    void makeKeys();
    void followUser();

    /// Reads the register and shows it. @throws store::EngineError; nothing is on show then
    void readAnew();
    void showPeople();
    void showLine();
    void showOutcome(bool good, const QString& text);
    void turn(int by);

    NumbersView& onShow() const;
    bool showsLeftOut() const { return &onShow() == leftOut_; }
    const Behind& behind() const;
    QString chosenNumber() const;
    const Person* chosenPerson() const;
    /// The line on which somebody stands now; nothing when he is not behind the number.
    std::optional<int> lineOf(const QString& key) const;

    void goToList();
    void openCard();
    void save();
    void print();

    printing::PrintTools tools_;
    QString schoolYear_;
    QDate today_;
    OpenCard openCard_;
    std::optional<Contents> contents_;
    bool sharedByHand_ = false;
    QSplitter* halves_;
    QTabWidget* tables_;
    NumbersView* one_;
    NumbersView* two_;
    NumbersView* leftOut_;
    PeopleList* list_;
    QLabel* chosen_;
    QLabel* state_;
};

} // namespace statreturn
