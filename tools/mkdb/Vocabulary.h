#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace mkdb {

struct Surname {
    QString man;
    QString woman;
};

struct Town {
    QString name;
    QString zip;
};

/// A school or other facility of a kind of placement.
struct Facility {
    /// Code of the kind in c_zariad.
    QString code;
    QString name;
    /// Empty where there is no building to go to, such as care at home.
    QString address;
};

/// How a legal representative is related to a client.
struct Relation {
    QString name;
    bool woman = false;
};

/// A paragraph of notes.
struct Paragraph {
    QString text;
    /// Code of the dominant impairment that it speaks of; empty for any.
    QString impairment;
    /// Ages that it suits, both included.
    int fromAge = 0;
    int toAge = 0;
};

/// The words that an invented register is made of.
struct Vocabulary {
    QStringList boys;
    QStringList girls;
    std::vector<Surname> surnames;
    /// The centre's surroundings, the more often lived in the sooner.
    std::vector<Town> towns;
    QStringList streets;
    std::vector<Facility> facilities;
    std::vector<Relation> relations;
    QStringList educations;
    QStringList mensOccupations;
    QStringList womensOccupations;
    QStringList employers;
    QStringList illnesses;
    QStringList referrers;
    /// Paragraphs by the column or kind of record that they belong to.
    QHash<QString, std::vector<Paragraph>> paragraphs;
};

/// Reads the words from a folder of CSV files. @throws CsvError also for a word that is missing or
/// does not fit the column it is meant for
Vocabulary readVocabulary(const QString& folder);

} // namespace mkdb
