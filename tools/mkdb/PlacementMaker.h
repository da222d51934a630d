#pragma once

#include "Calendar.h"
#include "Model.h"
#include "Vocabulary.h"

namespace mkdb {

/// Leads a client through kindergarten and schools, and to counselling facilities.
class PlacementMaker {
  public:
    /// @param words must outlive the maker
    /// @param counsellingCodes codes of the facilities of kind "TVK"
    PlacementMaker(const Vocabulary& words, QStringList counsellingCodes)
        : words_(words), counsellingCodes_(std::move(counsellingCodes)) {}

    /// Fills in the placements up to a day and the name of the school attended then.
    void make(Client& client, const QDate& today, Random& random) const;

  private:
    void addSchools(Client& client, const QDate& today, Random& random) const;
    /// @param span without an end while the placement lasts
    void addSchool(Client& client, const QString& code, const Span& span, Random& random) const;
    void addCounselling(Client& client, const QDate& today, Random& random) const;
    /// A facility of that kind; null when none is known.
    const Facility* drawFacility(const QString& code, Random& random) const;

    const Vocabulary& words_;
    QStringList counsellingCodes_;
};

} // namespace mkdb
