#pragma once

#include <QObject>

class QTextBlock;
class QTextDocument;

namespace spelling {
class Speller;
}

namespace forms {

/// Searches a document for a word that the dictionary does not know, a stretch at a time, so that
/// keys are answered meanwhile however long it is. A change of the document ends the search.
class SpellSearch : public QObject {
    Q_OBJECT
  public:
    /// @param document, speller must outlive this
    SpellSearch(const QTextDocument& document, spelling::Speller& speller);

    /// Searches from a position to the end, and on from the beginning back to it.
    void begin(int from);
    void stop() { isUnderWay_ = false; }
    bool isUnderWay() const { return isUnderWay_; }

  Q_SIGNALS:
    void found(int from, int length);
    void foundNone();

  private:
    enum class Look : quint8 { Passed, Found, Pending };

    void goOn();
    Look lookAt(const QTextBlock& block, int from, int to);
    /// @return false when all has been searched
    bool moveOn(const QTextBlock& block, int to);

    const QTextDocument& document_;
    spelling::Speller& speller_;
    int start_ = 0;
    int at_ = 0;
    bool wrapped_ = false;
    bool isUnderWay_ = false;
};

} // namespace forms
