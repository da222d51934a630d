#pragma once

#include "statreturn/Counts.h"
#include "statreturn/TableThree.h"
#include "statreturn/TableTwo.h"
#include "store/Value.h"

#include <QDate>
#include <QHash>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <optional>
#include <vector>

namespace store {
class DataSource;
}

namespace statreturn {

/// Whose card it is.
struct Person {
    QString key;
    QString firstName;
    QString surname;
    bool isEmployee = false;
};

/// A client as the return looks at him.
struct ReturnClient {
    Person person;
    /// A date, a text that is none, or Null.
    store::Value birth;
    CountedClient counted;
    /// Whether the tables take his impairment string for one.
    bool impaired = false;
    /// His first record of care in the school year; not valid without one.
    QDate firstCare;
    /// The codes of the types of school of his open placements.
    QStringList openTypes;
    /// Where Table I counts him.
    std::optional<std::size_t> ageRow;
    /// Where Table II counts him.
    std::vector<std::size_t> educationRows;
};

struct ReturnEmployee {
    Person person;
    std::optional<std::size_t> row;
    std::optional<Employment> employment;
    store::Value function;
    store::Value sex;
};

/// Everybody of the register, each with where the return counts him: by the rules of the tables,
/// without their writing.
struct ReturnPeople {
    QString schoolYear;
    QDate today;
    /// The types of school in the order of the rows of Table II.
    std::vector<EducationType> types;
    /// Both in the order of names.
    std::vector<ReturnClient> clients;
    std::vector<ReturnEmployee> employees;

    /// The places in `types` of the codes of open placements, as the engine compares codes; none
    /// for one that the code-list does not have.
    QHash<QString, std::vector<std::size_t>> places;
};

/// Reads the whole register.
/// @param source runs the selections; it is left on the last of them
/// @param schoolYear as the main window shows it, "RRRR/RRRR"
/// @throws store::EngineError 9 when the code-list has more types of school than the form has rows,
/// and what the engine raises
ReturnPeople readPeople(store::DataSource& source, const QString& schoolYear, const QDate& today);

} // namespace statreturn
