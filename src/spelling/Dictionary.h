#pragma once

#include <QString>
#include <QStringDecoder>
#include <QStringEncoder>
#include <QStringList>

#include <memory>

class Hunspell;

namespace spelling {

/// The dictionary of the Slovak language, in whatever encoding its files are. Slow: it takes up to
/// seconds to be read, and to find other words for one. Belongs to one thread at a time.
class Dictionary {
  public:
    /// How the reading went.
    enum class State : quint8 { Read, Missing, Damaged };

    /// Reads sk_SK.aff and sk_SK.dic of the first of these folders that has both.
    explicit Dictionary(const QStringList& folders);
    ~Dictionary();
    Dictionary(const Dictionary&) = delete;
    Dictionary& operator=(const Dictionary&) = delete;

    State state() const { return state_; }
    /// The file of words; empty when it is missing.
    const QString& path() const { return path_; }

    /// False for all words when the dictionary was not read. A word made of several with hyphens is
    /// known when all of them are, in the form that such words have: "logopedicko-" of
    /// "logopedický".
    bool knows(const QString& word);
    /// Other words for one, the likeliest first: those that lack nothing but accents, which is
    /// what is left out most often.
    QStringList suggestions(const QString& word);
    /// Knows from now on this word as well.
    void add(const QString& word);

  private:
    struct Found {
        QStringList words;
        int triesLeft = 0;
    };

    void findAccented(QString word, qsizetype from, int accents, Found& found);
    bool read(const QString& aff);
    bool knowsWhole(const QString& word);
    bool knowsFirstPart(const QString& part);
    std::string encoded(const QString& word);

    std::unique_ptr<Hunspell> hunspell_;
    QStringEncoder encode_;
    QStringDecoder decode_;
    QString path_;
    State state_ = State::Missing;
};

} // namespace spelling
