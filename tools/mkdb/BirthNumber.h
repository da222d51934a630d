#pragma once

#include "Random.h"

#include <QDate>
#include <QString>

#include <unordered_set>

namespace mkdb {

/// Gives out birth numbers of ten digits, each once: year, month (girls 50 more), day, three digits
/// of order and a digit that makes the whole divisible by eleven.
class BirthNumbers {
  public:
    /// @param born in 1954 or later, when numbers have ten digits
    /// @throws std::runtime_error when all numbers of that day and sex are given out
    QString make(const QDate& born, bool girl, Random& random);

  private:
    std::unordered_set<qint64> given_;
};

} // namespace mkdb
