#include "backup/Retention.h"

#include <algorithm>
#include <functional>
#include <set>
#include <utility>

namespace backup {

namespace {

constexpr int lastKept = 10;

/// Takes copies from the newest to the oldest and tells which stay.
class Keeper {
  public:
    explicit Keeper(const QDateTime& now) : now_(now) {}

    bool keeps(const QDateTime& made) {
        if (made > now_)
            return ++fromFuture_ <= lastKept;
        const bool isFirst = isFirstOfItsTime(made.date());
        return ++count_ <= lastKept || isFirst;
    }

  private:
    bool isFirstOfItsTime(const QDate& day) {
        const bool isOfMonth = months_.emplace(day.year(), day.month()).second;
        const bool isOfYear = years_.insert(day.year()).second;
        return day > now_.date().addYears(-1) ? isOfMonth : isOfYear;
    }

    QDateTime now_;
    int fromFuture_ = 0;
    int count_ = 0;
    std::set<std::pair<int, int>> months_;
    std::set<int> years_;
};

} // namespace

std::vector<QDateTime> superfluous(std::vector<QDateTime> copies, const QDateTime& now) {
    std::ranges::sort(copies, std::greater());
    Keeper keeper(now);
    std::erase_if(copies, [&keeper](const QDateTime& made) { return keeper.keeps(made); });
    std::ranges::reverse(copies);
    return copies;
}

} // namespace backup
