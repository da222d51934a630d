#pragma once

#include "Model.h"
#include "Random.h"
#include "Vocabulary.h"

namespace mkdb {

/// Draws what is common to all people: names, homes, ways to reach them.
class PeopleMaker {
  public:
    /// @param vocabulary must outlive the maker
    explicit PeopleMaker(const Vocabulary& vocabulary) : words_(vocabulary) {}

    const QString& firstName(bool woman, Random& random) const;
    const Surname& surname(Random& random) const;
    /// The nearer a town, the more often.
    const Town& town(Random& random) const;
    /// One of the larger ones, where the maternity wards are.
    const Town& birthPlace(Random& random) const;
    Address address(Random& random) const;
    Address addressIn(const Town& town, Random& random) const;
    Contact contact(const QString& firstName, const QString& surname, Random& random) const;
    QString phone(Random& random) const;

    const Vocabulary& words() const { return words_; }

  private:
    const Vocabulary& words_;
};

/// A name without accents, blanks and capitals, for addresses of mail.
QString plainLetters(const QString& name);

} // namespace mkdb
