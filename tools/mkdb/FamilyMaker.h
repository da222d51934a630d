#pragma once

#include "PeopleMaker.h"

namespace mkdb {

/// Gives a client parents, a legal representative and siblings.
class FamilyMaker {
  public:
    /// @param people must outlive the maker
    explicit FamilyMaker(const PeopleMaker& people) : people_(people) {}

    /// Fills in the family of a client whose own name, birth and address are set.
    /// @param family the surname of the father, in both forms
    void make(Client& client, const Surname& family, const QDate& today, Random& random) const;

  private:
    Parent makeParent(const Client& client, bool mother, const QString& surname,
                      Random& random) const;
    Representative makeRepresentative(const Client& client, const Surname& family,
                                      Random& random) const;
    Representative ofParent(const Parent& parent, bool mother) const;
    std::vector<Sibling> makeSiblings(const Client& client, const Surname& family,
                                      const QDate& today, Random& random) const;

    const PeopleMaker& people_;
};

} // namespace mkdb
