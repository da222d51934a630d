#pragma once

#include <QHash>
#include <QObject>
#include <QStringList>

#include <functional>
#include <memory>

namespace spelling {

enum class Verdict : quint8 { Pending, Right, Wrong };

/// Tells which words are spelled right, in a thread of its own that reads the dictionary as well:
/// nothing here waits for it. Lives in the thread of the screens.
class Speller : public QObject {
    Q_OBJECT
  public:
    /// @param folders where the dictionary may lie, the first one first
    /// @param ownWords the file of the user's own words
    Speller(QStringList folders, QString ownWords);
    /// Waits for the word that is just being looked at.
    ~Speller() override;

    /// Begins to read the dictionary, if that has not begun.
    void start();
    /// Whether the dictionary has been read, or can't be.
    bool isReady() const { return isReady_; }
    /// False when it can't be read, which trouble() says.
    bool hasDictionary() const { return !isMissing_; }
    /// What hinders it, as a line for the user; empty when nothing does.
    const QString& trouble() const { return trouble_; }

    /// What is known of a word by now. One that is pending has been asked for: learned() tells.
    /// Without a dictionary all words are right.
    Verdict verdict(const QString& word);
    /// Calls back with other words for one, the likeliest first, unless `context` has ended.
    void suggest(const QString& word, QObject* context,
                 std::function<void(const QStringList&)> then);
    /// Puts a word into the user's own words. One that can't be written holds until the program
    /// ends, and trouble() says so.
    void add(const QString& word);

  Q_SIGNALS:
    /// More words are known, or known anew.
    void learned();
    void troubleChanged();

  private:
    class Worker;
    using Verdicts = QHash<QString, Verdict>;

    void askForWanted();
    void learn(const Verdicts& verdicts);
    void setTrouble(const QString& trouble);
    void readDictionary();

    QStringList folders_;
    QString ownWords_;
    QString trouble_;
    bool isReady_ = false;
    bool isMissing_ = false;
    Verdicts known_;
    QStringList wanted_;
    std::unique_ptr<Worker> worker_;
};

} // namespace spelling
