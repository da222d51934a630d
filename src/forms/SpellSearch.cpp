#include "forms/SpellSearch.h"

#include "spelling/Speller.h"
#include "spelling/Words.h"

#include <QTextBlock>
#include <QTextDocument>

#include <algorithm>

namespace forms {

namespace {

/// Characters that are searched before keys get their turn.
constexpr int stretch = 20'000;

} // namespace

SpellSearch::SpellSearch(const QTextDocument& document, spelling::Speller& speller)
    : document_(document), speller_(speller) {
    connect(&speller, &spelling::Speller::learned, this, &SpellSearch::goOn);
    connect(&document, &QTextDocument::contentsChange, this, &SpellSearch::stop);
}

void SpellSearch::begin(int from) {
    start_ = at_ = from;
    wrapped_ = false;
    isUnderWay_ = true;
    goOn();
}

void SpellSearch::goOn() {
    for (int left = stretch; isUnderWay_ && left > 0;) {
        const QTextBlock block = document_.findBlock(at_);
        const int from = at_ - block.position();
        const int to = std::min(block.length() - 1, from + left);
        if (lookAt(block, from, to) != Look::Passed)
            return;
        left -= to - from + 1;
        if (moveOn(block, to))
            continue;
        stop();
        Q_EMIT foundNone();
    }
    if (isUnderWay_)
        QMetaObject::invokeMethod(this, &SpellSearch::goOn, Qt::QueuedConnection);
}

/// What lies behind a word that is pending is asked for in passing.
SpellSearch::Look SpellSearch::lookAt(const QTextBlock& block, int from, int to) {
    int pending = -1;
    for (const spelling::Word& word : spelling::wordsIn(block.text(), from, to)) {
        const spelling::Verdict verdict =
            word.from < from ? spelling::Verdict::Right : speller_.verdict(word.text);
        if (verdict == spelling::Verdict::Pending && pending < 0)
            pending = block.position() + int(word.from);
        if (verdict != spelling::Verdict::Wrong || pending >= 0)
            continue;
        stop();
        Q_EMIT found(block.position() + int(word.from), int(word.length));
        return Look::Found;
    }
    if (pending < 0)
        return Look::Passed;
    at_ = pending;
    return Look::Pending;
}

bool SpellSearch::moveOn(const QTextBlock& block, int to) {
    at_ = block.position() + to;
    if (to >= block.length() - 1) {
        const bool atEnd = !block.next().isValid();
        if (atEnd && wrapped_)
            return false;
        wrapped_ = wrapped_ || atEnd;
        at_ = atEnd ? 0 : block.next().position();
    }
    return !wrapped_ || at_ < start_;
}

} // namespace forms
