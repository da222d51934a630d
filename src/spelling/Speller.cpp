#include "spelling/Speller.h"

#include "spelling/Dictionary.h"
#include "spelling/OwnWords.h"

#include <QFileInfo>
#include <QPointer>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <thread>

namespace spelling {

namespace {

/// So many words are looked at before what is more urgent gets its turn.
constexpr qsizetype wordsAtOnce = 500;
/// What is known of more words than this is forgotten, as of texts that are no longer on show.
constexpr qsizetype mostKnown = 200'000;

QString troubleOf(const Dictionary& dictionary) {
    switch (dictionary.state()) {
    case Dictionary::State::Missing:
        return QStringLiteral("Pravopis sa nekontroluje  ·  chýba slovenský slovník "
                              "(balík hunspell-sk)");
    case Dictionary::State::Damaged:
        return QStringLiteral("Pravopis sa nekontroluje  ·  nedá sa čítať slovník %1")
            .arg(dictionary.path());
    default:
        return {};
    }
}

} // namespace

/// The thread with all that it alone touches.
class Speller::Worker {
  public:
    using Job = std::function<void(Worker&)>;

    Worker(QStringList folders, const QString& ownWords)
        : own_(ownWords), thread_([this, folders = std::move(folders)](std::stop_token stop) {
              dictionary_.emplace(folders);
              run(stop);
          }) {}

    void put(Job job, bool isUrgent = false) {
        {
            const std::scoped_lock lock(mutex_);
            isUrgent ? jobs_.push_front(std::move(job)) : jobs_.push_back(std::move(job));
        }
        changed_.notify_one();
    }

    Dictionary& dictionary() { return *dictionary_; }
    const OwnWords& own() const { return own_; }

  private:
    void run(const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            std::unique_lock lock(mutex_);
            if (!changed_.wait(lock, stop, [this] { return !jobs_.empty(); }))
                return;
            const Job job = std::move(jobs_.front());
            jobs_.pop_front();
            lock.unlock();
            job(*this);
        }
    }

    OwnWords own_;
    std::optional<Dictionary> dictionary_;
    std::mutex mutex_;
    std::condition_variable_any changed_;
    std::deque<Job> jobs_;
    /// Its end stops the work and waits for it, so it ends first.
    std::jthread thread_;
};

Speller::Speller(QStringList folders, QString ownWords)
    : folders_(std::move(folders)), ownWords_(std::move(ownWords)) {}

Speller::~Speller() = default;

void Speller::start() {
    if (worker_ != nullptr)
        return;
    worker_ = std::make_unique<Worker>(folders_, ownWords_);
    worker_->put([this](Worker& worker) {
        QString trouble = troubleOf(worker.dictionary());
        const bool isMissing = !trouble.isEmpty();
        try {
            for (const QString& word : worker.own().read())
                worker.dictionary().add(word);
        } catch (const store::EngineError& error) {
            if (!isMissing)
                trouble = QStringLiteral("Vlastný slovník sa nepoužíva  ·  %1 %2")
                              .arg(error.description(), worker.own().path());
        }
        QMetaObject::invokeMethod(this, [this, trouble, isMissing] {
            isMissing_ = isMissing;
            isReady_ = true;
            setTrouble(trouble);
            Q_EMIT learned();
        });
    });
}

Verdict Speller::verdict(const QString& word) {
    start();
    if (isMissing_)
        return Verdict::Right;
    const auto known = known_.constFind(word);
    if (known != known_.cend())
        return *known;
    if (wanted_.isEmpty())
        QMetaObject::invokeMethod(this, &Speller::askForWanted, Qt::QueuedConnection);
    known_.insert(word, Verdict::Pending);
    wanted_.append(word);
    return Verdict::Pending;
}

void Speller::askForWanted() {
    for (qsizetype from = 0; from < wanted_.size(); from += wordsAtOnce) {
        worker_->put([this, words = wanted_.mid(from, wordsAtOnce)](Worker& worker) {
            Verdicts verdicts;
            for (const QString& word : words)
                verdicts.insert(word,
                                worker.dictionary().knows(word) ? Verdict::Right : Verdict::Wrong);
            QMetaObject::invokeMethod(this, [this, verdicts] { learn(verdicts); });
        });
    }
    wanted_.clear();
}

void Speller::learn(const Verdicts& verdicts) {
    if (known_.size() > mostKnown)
        known_.clear();
    known_.insert(verdicts);
    Q_EMIT learned();
}

void Speller::suggest(const QString& word, QObject* context,
                      std::function<void(const QStringList&)> then) {
    start();
    const auto search = [this, word, context = QPointer(context),
                         then = std::move(then)](Worker& worker) {
        const QStringList found = worker.dictionary().suggestions(word);
        QMetaObject::invokeMethod(this, [context, then, found] {
            if (context != nullptr)
                then(found);
        });
    };
    worker_->put(search, true);
}

void Speller::add(const QString& word) {
    start();
    const auto keep = [this, word](Worker& worker) {
        worker.dictionary().add(word);
        QString trouble;
        try {
            worker.own().add(word);
        } catch (const store::EngineError& error) {
            trouble = QStringLiteral("Slovo „%1“ platí len do konca programu  ·  %2 %3")
                          .arg(word, error.description(), worker.own().path());
        }
        QMetaObject::invokeMethod(this, [this, trouble] {
            // Its other forms may be known by it.
            known_.clear();
            setTrouble(trouble);
            Q_EMIT learned();
        });
    };
    worker_->put(keep, true);
}

void Speller::setTrouble(const QString& trouble) {
    if (trouble_ == trouble)
        return;
    trouble_ = trouble;
    Q_EMIT troubleChanged();
}

} // namespace spelling
