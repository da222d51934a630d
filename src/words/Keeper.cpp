#include "words/Keeper.h"

#include "forms/ErrorRoute.h"
#include "forms/Guard.h"
#include "forms/RichText.h"
#include "store/Database.h"
#include "words/FrmSlova.h"
#include "words/OfferLine.h"

#include <QAccessible>
#include <QBoxLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QTextEdit>
#include <QUuid>

#include <algorithm>

namespace words {

namespace {

using namespace Qt::StringLiterals;

/// Of somebody new the names that were typed so far.
QString nameOfNew(const QString& who, const forms::Words& words) {
    QStringList name{who};
    for (const QStringView column : {u"meno", u"priezv"}) {
        const auto typed = std::ranges::find(words, column, &forms::Word::column);
        if (typed != words.end())
            name << typed->text.trimmed();
    }
    return name.join(u' ');
}

QString bareCaption(const QString& shown) {
    const QString caption = shown.simplified();
    return caption.endsWith(u':') ? caption.chopped(1).trimmed() : caption;
}

QString captionOf(QWidget& field, bool byFrames) {
    QWidget* named = field.focusProxy() != nullptr ? field.focusProxy() : &field;
    const QString caption =
        bareCaption(QAccessible::queryAccessibleInterface(named)->text(QAccessible::Name));
    const auto labels = field.window()->findChildren<QLabel*>();
    const auto alike = std::ranges::count_if(
        labels, [&](const QLabel* label) { return bareCaption(label->text()) == caption; });
    const auto* frame = qobject_cast<QGroupBox*>(field.parentWidget());
    return alike < 2 || frame == nullptr || !byFrames ? caption
                                                      : frame->title() + u", "_s + caption;
}

QString questionOf(const Kept& kept, Fit fit) {
    const QString when = kept.when.toString(QStringLiteral("dd.MM.yyyy HH:mm"));
    const QString where =
        kept.title.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(kept.title);
    const QString text =
        fit != Fit::Fits ? QStringLiteral("Rozpísané slová z %1%2 sa do polí vrátiť nedajú, údaje "
                                          "sú už iné: %3")
        : kept.isDropped ? QStringLiteral("Naposledy zahodené slová z %1%2: %3")
                         : QStringLiteral("Našli sa rozpísané slová z %1%2: %3");
    return text.arg(when, where, fieldsOf(kept));
}

} // namespace

Keeper::Keeper(QWidget& window, store::DBEngine& engine, const store::ProgramFolder& folder,
               QString owner)
    : QObject(&window), window_(window), engine_(engine), folder_(folder), owner_(std::move(owner)),
      book_(folder) {
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, [this] { keep(); });
    connect(&input_, &card::InputNote::noted, this, &Keeper::noteInput);
    connect(&book_, &Book::faultChanged, this, &Keeper::showLine);
}

Keeper::~Keeper() = default;

void Keeper::watch() {
    if (line_ != nullptr)
        return;
    line_ = new OfferLine(&window_);
    connect(line_, &OfferLine::taken, this,
            [this] { forms::guarded(&window_, [this] { take(); }); });
    connect(line_, &OfferLine::refused, this, &Keeper::refuse);
    if (auto* lines = qobject_cast<QBoxLayout*>(window_.layout()))
        lines->insertWidget(0, line_);
    input_.watch(window_);
    // An option that a key chooses is not clicked.
    for (auto* option : window_.findChildren<QRadioButton*>())
        connect(option, &QRadioButton::toggled, this, &Keeper::noteInput);
}

void Keeper::begin(const QString& key, const QString& who) {
    watch();
    timer_.stop();
    while (!live_.empty())
        settleLive(live_.begin()->first);
    key_ = key;
    who_ = who;
    isRunning_ = true;
    news_.clear();
    findOffers();
    showLine();
}

/// What was dropped can be had back on the next screen alone.
void Keeper::findOffers() {
    offers_.clear();
    forms::showGuarded(&window_, [this] {
        const KeptWords all = book_.all();
        for (const Kept& kept : all) {
            if (kept.isDropped)
                book_.remove(kept.id);
            if (kept.screen != window_.objectName() || kept.owner != owner_ || kept.key != key_)
                continue;
            auto data = engine_.OpenDatabase(folder_.database());
            const Fit fit = fitOf(data, kept);
            if (fit == Fit::Stored)
                book_.remove(kept.id);
            else
                offers_.push_back({kept, fit});
        }
    });
}

/// Not before typing pauses, but not later than after an interval of typing; and not sooner than an
/// interval after the last time.
void Keeper::noteInput() {
    if (!isRunning_)
        return;
    const auto left = [this](const QElapsedTimer& since) {
        return pace_.interval -
               (since.isValid() ? std::chrono::milliseconds(since.elapsed()) : pace_.interval);
    };
    if (!sinceFirst_.isValid())
        sinceFirst_.start();
    timer_.start(std::max({std::min(pace_.pause, left(sinceFirst_)), left(sinceKept_),
                           std::chrono::milliseconds(0)}));
}

void Keeper::keep() {
    if (!isRunning_)
        return;
    timer_.stop();
    sinceFirst_.invalidate();
    for (const Place& place : places_) {
        try {
            keep(place, place.typed());
        } catch (const store::EngineError&) {
            // A row that can't be read now: what was kept of it so far stays.
        }
    }
}

void Keeper::keep(const Place& place, forms::Words words) {
    if (words.empty())
        return forgetLive(place.part);
    nameFields(words, place.title.isEmpty());
    const auto before = live_.find(place.part);
    if (before != live_.end() && before->second.words == words)
        return;
    const Kept kept = keptOf(place, std::move(words));
    live_[place.part] = kept;
    book_.put(kept);
    sinceKept_.start();
}

Kept Keeper::keptOf(const Place& place, forms::Words words) {
    const auto before = live_.find(place.part);
    Kept kept = before != live_.end() ? before->second : Kept{};
    kept.when = QDateTime::currentDateTime();
    kept.words = std::move(words);
    auto data = engine_.OpenDatabase(folder_.database());
    kept.rest = printOfRest(data, kept);
    if (before != live_.end())
        return kept;
    kept.id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    kept.screen = window_.objectName();
    kept.part = place.part;
    kept.title = place.title;
    kept.owner = owner_;
    kept.key = key_;
    kept.tables = place.tables;
    kept.who = kept.isNew() ? nameOfNew(who_, kept.words) : who_;
    kept.basis = place.basis ? place.basis() : printOfRows(data, kept);
    kept.rest = printOfRest(data, kept);
    return kept;
}

/// In a tab the fields differ; elsewhere those that are called alike are told apart by their
/// frames.
void Keeper::nameFields(forms::Words& words, bool byFrames) const {
    for (forms::Word& word : words) {
        if (auto* field = window_.findChild<QWidget*>(word.field);
            field != nullptr && word.caption.isEmpty())
            word.caption = captionOf(*field, byFrames);
    }
}

const Place& Keeper::placeOf(int part) const {
    return *std::ranges::find(places_, part, &Place::part);
}

void Keeper::forgetLive(int part) {
    if (const auto found = live_.find(part); found != live_.end()) {
        book_.remove(found->second.id);
        live_.erase(found);
    }
}

void Keeper::settleLive(int part) {
    if (forms::ErrorRoute::of(window_).hasPassedOver())
        live_.erase(part);
    else
        forgetLive(part);
}

void Keeper::written(int part) {
    settleLive(part);
    timer_.stop();
    if (part == wholeScreen)
        isRunning_ = false;
}

void Keeper::dropped(int part) {
    keep();
    if (const auto found = live_.find(part); found != live_.end()) {
        Kept kept = found->second;
        kept.isDropped = true;
        live_.erase(found);
        book_.put(kept);
        if (part != wholeScreen)
            offers_.insert(offers_.begin(), {kept, Fit::Fits});
    }
    if (part == wholeScreen)
        isRunning_ = false;
}

/// What was dropped before another record was opened is gone for good.
void Keeper::setRecordOpen(bool open) {
    if (open && !recordIsOpen_ && !isTaking_) {
        std::erase_if(offers_, [](const Offer& offer) { return offer.kept.isDropped; });
        book_.forgetDropped();
        news_.clear();
    }
    recordIsOpen_ = open;
    showLine();
}

void Keeper::showLine() {
    if (line_ == nullptr)
        return;
    if (!offers_.empty() && !recordIsOpen_) {
        const auto& [kept, fit] = offers_.front();
        line_->offer(questionOf(kept, fit),
                     fit == Fit::Fits ? OfferLine::Way::IntoFields : OfferLine::Way::AsText);
    } else if (!news_.isEmpty() || !book_.fault().isEmpty()) {
        line_->tell(!book_.fault().isEmpty() ? book_.fault() : news_);
    } else {
        line_->hide();
    }
}

void Keeper::take() {
    const Offer offer = offers_.front();
    if (offer.fit == Fit::Fits)
        enter(offer.kept);
    else
        showText(offer.kept);
    showLine();
}

/// A field that was typed into since keeps what it has. What did not come into the fields stays on
/// offer as text.
void Keeper::enter(const Kept& kept) {
    const Place& place = placeOf(kept.part);
    Kept entered = kept;
    const forms::Words before = place.typed();
    std::erase_if(entered.words, [&](const forms::Word& word) {
        return std::ranges::find(before, word.field, &forms::Word::field) != before.end();
    });
    offers_.erase(offers_.begin());
    {
        const QScopedValueRollback taking(isTaking_, true);
        place.enter(entered);
    }
    const forms::Words now = place.typed();
    Kept left = kept;
    std::erase_if(left.words, [&](const forms::Word& word) {
        return std::ranges::any_of(now, [&](const forms::Word& typed) {
            return typed.field == word.field && typed.text == word.text;
        });
    });
    keep();
    if (left.words.empty()) {
        book_.remove(kept.id);
    } else {
        book_.put(left);
        offers_.insert(offers_.begin(), {left, Fit::Changed});
    }
    if (!entered.words.empty())
        news_ = QStringLiteral("Rozpísané slová sú v poliach, ešte nie sú zapísané: %1")
                    .arg(fieldsOf(entered));
}

void Keeper::refuse() {
    book_.remove(offers_.front().kept.id);
    offers_.erase(offers_.begin());
    showLine();
}

void Keeper::showText(const Kept& kept) {
    FrmSlova form(book_, &window_);
    form.showAlone(kept);
    form.exec();
    if (form.hasThrownAway())
        offers_.erase(offers_.begin());
}

void forgetDropped(const store::ProgramFolder& folder) {
    Book(folder).forgetDropped();
}

QString foundWords(store::DBEngine& engine, const store::ProgramFolder& folder) {
    Book book(folder);
    QStringList found;
    const KeptWords all = book.all();
    for (const Kept& kept : all) {
        if (kept.isDropped)
            continue;
        auto data = engine.OpenDatabase(folder.database());
        const Fit fit = fitOf(data, kept);
        if (fit == Fit::Stored)
            book.remove(kept.id);
        else
            found << titleOf(kept) +
                         (fit == Fit::Gone ? QStringLiteral(" – v registri už nie je") : QString());
    }
    if (found.isEmpty())
        return book.fault();
    return QStringLiteral("Našli sa rozpísané slová, ktoré nie sú zapísané: %1. Ponúkne ich karta "
                          "alebo formulár, všetky ukáže Servis, Rozpísané slová…")
        .arg(found.join(u"; "));
}

} // namespace words
