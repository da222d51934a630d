#pragma once

#include "Calendar.h"
#include "Model.h"
#include "TextMaker.h"

namespace mkdb {

/// Writes down what was done with a client: care, examinations, changes, visits and memo texts.
/// The days of one table differ from each other.
class RecordMaker {
  public:
    /// @param texts must outlive the maker
    /// @param staff those who keep records write them, one at least
    RecordMaker(const TextMaker& texts, const std::vector<Employee>& staff);

    /// Fills in the records of a client whose basic data are set.
    /// @param counted the client certainly has care in the school year of `today`
    void make(Client& client, bool counted, const QDate& today, Random& random) const;

  private:
    /// What is written within one school year. @param leastCare fewest records of care
    void addYear(Client& client, const Span& year, int leastCare, Random& random) const;
    void addCare(Client& client, const Span& span, int count, Random& random) const;
    void addVisits(Client& client, const Span& span, int count, Random& random) const;
    void addNotes(std::vector<Note>& notes, const Client& client, const QString& kind,
                  const Span& span, int count, Random& random) const;
    Memo makeMemo(const Client& client, const QDate& today, Random& random) const;
    const QString& worker(Random& random) const { return random.pick(workers_); }

    const TextMaker& texts_;
    /// Keys of employees.
    std::vector<QString> workers_;
};

} // namespace mkdb
