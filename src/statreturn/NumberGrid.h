#pragma once

#include "statreturn/ReturnPeople.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace statreturn {

/// A row or a column of numbers.
struct NumberHead {
    /// What stands at its edge; '\n' begins a line.
    QString text;
    /// What a sentence calls it.
    QString name;
    /// The heading over it and its neighbours of the same group; empty without one.
    QString group = {};
    /// Whether the table has numbers there, and no "x".
    bool applies = true;
};

/// Somebody behind a number.
struct Counted {
    /// Place in the list of the people that are counted.
    std::uint32_t who = 0;
    /// The row that counts him; another one than the number's where that is a sum.
    std::uint32_t row = 0;
};

using Behind = std::vector<Counted>;

/// Numbers of people under heads, each with those whom it counts.
struct NumberGrid {
    NumberGrid(QString name, std::vector<NumberHead> rows, std::vector<NumberHead> columns);

    QString name;
    std::vector<NumberHead> rows;
    std::vector<NumberHead> columns;

    const Behind& behind(std::size_t row, std::size_t column) const {
        return cells_[row * columns.size() + column];
    }
    void add(std::size_t row, std::size_t column, const Counted& counted) {
        cells_[row * columns.size() + column].push_back(counted);
    }
    /// "Tabuľka I, riadok 0104 (3 - 4), stĺpec 5 mentálne spolu".
    QString nameOf(std::size_t row, std::size_t column) const;

  private:
    std::vector<Behind> cells_;
};

/// The numbers of Tables I and II, the printed columns 1 to 22, with the sums below them. They
/// count places in `people.clients`, in their order.
NumberGrid tableOneNumbers(const ReturnPeople& people);
NumberGrid tableTwoNumbers(const ReturnPeople& people);

} // namespace statreturn
