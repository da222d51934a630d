#pragma once

#include <QString>

#include <array>
#include <optional>
#include <span>

namespace store {
class Recordset;
}

/// Table V of the return, clients who were given expert care: its rows, its cells as they are
/// typed, and the sums that have to agree. Rows and columns are counted from 0 here; the form
/// counts its columns from 1.
namespace statreturn {

inline constexpr int careRows = 28;
inline constexpr int careColumns = 10;

/// The form's name of a column: "3" for the third.
QString careColumnName(int column);
/// The file's name of it: "s_3".
QString careField(int column);

/// A row as the file keeps it.
struct CareRow {
    const char16_t* code;
    const char16_t* ofThat;
    const char16_t* text;
    /// The words on the screen where they differ from the file's.
    const char16_t* label = nullptr;
};

std::span<const CareRow, careRows> careTable();
/// The form's code of a row, "0501" for the first.
QString careRowCode(int row);

/// What is typed, by row and column; an empty cell counts as 0.
using CareCells = std::array<std::array<QString, careColumns>, careRows>;

/// Two numbers that have to agree: one typed, the other the sum of cells.
struct CareSum {
    double stated = 0;
    double summed = 0;
    bool agrees() const { return stated == summed; }
};

/// A sum down a column, compared when its last row is left: a group's head with its members, or the
/// control sum with all rows above it.
struct ColumnCheck {
    int lastRow;
    int statedRow;
    int firstSummed;
    int lastSummed;
    /// Where the correction begins.
    int returnsTo;

    CareSum sumOf(const CareCells& cells, int column) const;
    QString message(int column) const;
};

std::span<const ColumnCheck, 5> columnChecks();

/// A sum along a row: the first column of a block of five with the other four, compared when the
/// last of them is left.
struct BlockCheck {
    int total;
    int lastColumn;

    CareSum sumOf(const CareCells& cells, int row) const;
    QString message() const;
};

std::span<const BlockCheck, 2> blockChecks();
/// The block that a column belongs to.
const BlockCheck& blockOf(int column);

/// What is said of a cell that is left, and where the correction begins.
struct CareFault {
    QString message;
    int row;
    int column;
};

/// The check along the row, which comes first and, when it is answered, ends the checking.
std::optional<CareFault> faultAlongRow(const CareCells& cells, int row, int column);
/// The check down the column.
/// @throws store::EngineError 6 when the rows above the control sum add up to more than 32767
std::optional<CareFault> faultDownColumn(const CareCells& cells, int row, int column);

/// The cells of the rows in their order; "0" for what is 0 or missing. Further 28 rows take the
/// place of the first. @throws store::EngineError 3021 when the last 28 are not complete
CareCells readCare(store::Recordset& rows);
/// Writes the cells over the first 28 rows, or as new ones into an empty table; a 0 becomes one
/// blank. @throws store::EngineError
void writeCare(store::Recordset& rows, bool hasRows, const CareCells& cells);

} // namespace statreturn
