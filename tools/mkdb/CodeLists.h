#pragma once

#include "Csv.h"
#include "Rows.h"
#include "store/Schema.h"

#include <QString>

#include <span>
#include <vector>

namespace mkdb {

/// A code-list as it is to lie in the register.
struct CodeList {
    const store::TableDef* table;
    RowShape shape;
    std::vector<std::vector<store::Value>> rows;

    /// Index of a column in `shape`. @throws CsvError
    int column(QStringView name) const;
    /// The texts of a column, row by row.
    QStringList texts(QStringView name) const;
    void write(RowSink& sink) const;
};

/// Names of the code-list tables.
std::span<const char16_t* const> codeListNames();

/// Checks a table read from CSV against the schema: its columns are those of the table, texts fit,
/// numbers are numbers, codes are there and differ. @throws CsvError
CodeList toCodeList(const CsvTable& csv, const QString& tableName);

/// Reads all code-lists of a folder, a file named as the table and ".csv". @throws CsvError also
/// when one is missing
std::vector<CodeList> readCodeLists(const QString& folder);

/// Reads those code-lists that the folder holds. @throws CsvError also when it holds none, or a CSV
/// file that is no code-list
std::vector<CodeList> readPresentCodeLists(const QString& folder);

/// The list of that table. @throws CsvError when it is not among them
const CodeList& codeList(const std::vector<CodeList>& lists, QStringView name);

} // namespace mkdb
