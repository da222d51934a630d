#pragma once

#include "AgePlan.h"
#include "BirthNumber.h"
#include "CodeLists.h"
#include "FamilyMaker.h"
#include "KeyMaker.h"
#include "PlacementMaker.h"
#include "RecordMaker.h"

#include <QDate>

namespace mkdb {

/// Makes the clients of a register, one after another.
class ClientMaker {
  public:
    /// All references must outlive the maker.
    /// @param today the day at which ages hold and records end
    ClientMaker(const Vocabulary& words, const std::vector<CodeList>& lists,
                const std::vector<Employee>& staff, const QDate& today);

    /// @param number catalogue number
    /// @throws std::runtime_error when the names do not suffice for one more key
    Client make(const AgeSlot& slot, int number, Random& random);

  private:
    void name(Client& client, Surname& family, Random& random);
    void giveBirth(Client& client, const AgeSlot& slot, Random& random);
    void giveOrigin(Client& client, Random& random) const;
    void giveImpairments(Client& client, const AgeSlot& slot, Random& random) const;

    QDate today_;
    PeopleMaker people_;
    TextMaker texts_;
    FamilyMaker families_;
    PlacementMaker placements_;
    RecordMaker records_;
    KeyMaker keys_;
    BirthNumbers birthNumbers_;
};

} // namespace mkdb
