#pragma once

#include <QString>

#include <optional>
#include <variant>
#include <vector>

namespace store {
struct DateTime;
}

namespace oldregister {

/// A date as the old format keeps it: days since 30.12.1899, the time of day as their fraction,
/// which counts forwards in days before that one too.
struct RawDate {
    double days = 0;
    bool operator==(const RawDate&) const = default;
};

/// A value that the file tells of and does not give.
struct Unreadable {
    bool operator==(const Unreadable&) const = default;
};

/// A value to the letter: Null is apart from the empty text, texts keep their blanks.
using OldValue = std::variant<std::monostate, bool, qint64, double, QString, RawDate, Unreadable>;

enum class OldType : quint8 { Text, Memo, Date, Boolean, Whole, Number, Other };

struct OldColumn {
    QString name;
    OldType type = OldType::Other;
};

struct OldTable {
    QString name;
    /// What the file says; 0 when it doesn't know, as after a crash of its program.
    quint32 rows = 0;
    std::vector<OldColumn> columns;
};

/// To the second; nothing for what is no date of the years 100 to 9999.
std::optional<store::DateTime> toDateTime(RawDate date);

} // namespace oldregister
