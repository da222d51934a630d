#pragma once

#include "Model.h"
#include "Random.h"
#include "Vocabulary.h"

namespace mkdb {

/// Fills a template in: "{meno}" is the first name, "{a|b}" is `a` of a boy and `b` of a girl.
/// Anything else in braces is left as it stands.
QString fillTemplate(const QString& text, const QString& firstName, bool girl);

/// Makes texts about a client out of the paragraphs of the vocabulary.
class TextMaker {
  public:
    /// @param vocabulary must outlive the maker
    explicit TextMaker(const Vocabulary& vocabulary) : words_(vocabulary) {}

    /// One to `most` different paragraphs of a kind that suit the client at a day; those on the
    /// client's own impairment come first, mostly. Empty when nothing suits.
    QString make(const QString& kind, int most, const Client& client, const QDate& day,
                 Random& random) const;

  private:
    const Vocabulary& words_;
};

} // namespace mkdb
