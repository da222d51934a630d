#pragma once

#include "card/InputNote.h"
#include "words/Book.h"
#include "words/Rows.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <functional>
#include <map>
#include <vector>

namespace store {
class DBEngine;
}

namespace words {

class OfferLine;

/// A part of a screen whose words are kept: the screen itself, or the record in one of its tabs.
struct Place {
    int part = wholeScreen;
    /// What the user calls it; empty for the screen itself.
    QString title = {};
    QStringList tables;
    /// What is typed and not written; nothing while no row is open. May throw store::EngineError.
    std::function<forms::Words()> typed;
    /// Of a record: the print of the row that is open, empty for a new one.
    std::function<QByteArray()> basis = {};
    /// Puts words into the fields as if they had been typed, into a record after it has opened it.
    /// May throw store::EngineError.
    std::function<void(const Kept&)> enter;
};

/// Keeps the words of one screen while they are typed, and offers those that were kept before in a
/// line above it. It never writes into the register.
class Keeper : public QObject {
    Q_OBJECT
  public:
    /// How long typing has to pause before words are kept, and the least time between two keepings;
    /// who types on and on has them kept at that interval, too.
    struct Pace {
        std::chrono::milliseconds pause{600};
        std::chrono::milliseconds interval{3000};
    };

    /// @param owner the table of those whose screen it is, empty for a screen of nobody
    /// @param engine, folder must outlive it
    Keeper(QWidget& window, store::DBEngine& engine, const store::ProgramFolder& folder,
           QString owner);
    ~Keeper() override;

    void setPace(const Pace& pace) { pace_ = pace; }
    /// A part, before the first begin(). What its functions use must outlive the screen's last key.
    void add(Place place) { places_.push_back(std::move(place)); }

    /// From now on the screen is that of somebody, empty for somebody new: what was kept so far of
    /// the one before is written() and what was kept of this one before is offered. The screen is
    /// laid out in a box of lines, the first of which the offer becomes.
    /// @param who the name to be shown
    void begin(const QString& key, const QString& who);
    /// Keeps what is typed now, without waiting for a pause of typing, nor for the disk.
    void keep();
    /// The words of a part are in the register, unless the running action had to pass anything
    /// over: then they stay kept. For the whole screen that ends the keeping.
    void written(int part = wholeScreen);
    /// The words of a part are given up; called while they still stand in the fields. They can be
    /// had back once.
    void dropped(int part = wholeScreen);
    /// A record is open, and nothing but it can be acted on.
    void setRecordOpen(bool open);

  private:
    struct Offer {
        Kept kept;
        Fit fit;
    };

    void watch();
    void noteInput();
    void keep(const Place& place, forms::Words words);
    Kept keptOf(const Place& place, forms::Words words);
    void nameFields(forms::Words& words, bool byFrames) const;
    const Place& placeOf(int part) const;
    void forgetLive(int part);
    void settleLive(int part);
    void findOffers();
    void showLine();
    void take();
    void refuse();
    void enter(const Kept& kept);
    void showText(const Kept& kept);

    QWidget& window_;
    store::DBEngine& engine_;
    const store::ProgramFolder& folder_;
    const QString owner_;
    std::vector<Place> places_;
    Book book_;
    card::InputNote input_;
    Pace pace_;
    QTimer timer_;
    QElapsedTimer sinceKept_;
    QElapsedTimer sinceFirst_;
    QString key_;
    QString who_;
    bool isRunning_ = false;
    bool recordIsOpen_ = false;
    /// A record is being opened for words that are kept still.
    bool isTaking_ = false;
    /// What is typed on this screen now, by part.
    std::map<int, Kept> live_;
    std::vector<Offer> offers_;
    QString news_;
    QPointer<OfferLine> line_;
};

/// What a start has to say of words that were found; empty when there are none.
/// @throws store::EngineError
QString foundWords(store::DBEngine& engine, const store::ProgramFolder& folder);
/// A run ends: what was given up by Storno can't be had back any more.
void forgetDropped(const store::ProgramFolder& folder);

} // namespace words
