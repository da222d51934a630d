#pragma once

#include "Calendar.h"
#include "Model.h"
#include "TextMaker.h"

namespace mkdb {

/// Writes down what was done with a client: care, examinations, changes, visits and memo texts.
/// The days of one table differ from each other.
class RecordMaker {
  public:
    /// @param texts and staff must outlive the maker; staff not empty
    RecordMaker(const TextMaker& texts, const std::vector<Employee>& staff)
        : texts_(texts), staff_(staff) {}

    /// Fills in the records of a client whose basic data are set.
    /// @param counted the client certainly has care in the school year of `today`
    void make(Client& client, bool counted, const QDate& today, Random& random) const;

  private:
    void addCare(Client& client, const Span& span, int count, Random& random) const;
    void addAllCare(Client& client, bool goesOn, const QDate& today, Random& random) const;
    std::vector<Note> makeNotes(const Client& client, const QString& kind, const Span& span,
                                int count, Random& random) const;
    void addVisits(Client& client, const Span& span, int count, Random& random) const;
    Memo makeMemo(const Client& client, const QDate& today, Random& random) const;
    const QString& worker(Random& random) const { return random.pick(staff_).key; }

    const TextMaker& texts_;
    const std::vector<Employee>& staff_;
};

} // namespace mkdb
