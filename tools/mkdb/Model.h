#pragma once

#include <QDate>
#include <QString>

#include <vector>

/// The people and events of an invented register, before they become rows. Empty texts, invalid
/// dates and years of 0 stand for fields that nobody filled in.
namespace mkdb {

struct Address {
    QString street;
    QString town;
    QString zip;
};

struct Contact {
    QString phone;
    QString mail;
};

struct Employee {
    QString key;
    QString firstName;
    QString surname;
    /// Code of c_funkcie, 1 to 8.
    int function = 0;
    bool woman = false;
    bool internal = false;
    bool qualified = false;
    /// Works with clients and so writes records of it.
    bool keepsRecords = false;
};

struct Parent {
    QString name;
    bool own = true;
    int bornYear = 0;
    int ageAtBirth = 0;
    QString education;
    Address address;
    Contact contact;
    QString occupation;
    QString employer;
    QString employerPhone;
    QString illness;
    QString impairments;
};

struct Representative {
    QString name;
    QString relation;
    Address address;
    Contact contact;
};

/// Siblings, placements and dated records name the client by `owner`.
struct Sibling {
    QString owner;
    QString name;
    int bornYear = 0;
    bool girl = false;
    QString illness;
    QString impairments;
};

struct Placement {
    QString owner;
    /// "VYCH" or "TVK".
    QString kind;
    QString code;
    QString address;
    QDate from;
    /// Invalid while the placement lasts.
    QDate to;
};

/// An examination or a note of change.
struct Note {
    QString owner;
    QDate date;
    QString worker;
    QString text;
};

struct CareRecord {
    QString owner;
    QDate date;
    int fromHour = 0;
    int toHour = 0;
    QString worker;
    QString text;
};

struct Visit {
    QString owner;
    QDate date;
    QDate next;
};

struct Memo {
    QString owner;
    QString important;
    QString notes;
    QString plan;
    QString child;
    QString pupil;
    QString summary;
};

struct Client {
    QString key;
    QString firstName;
    QString surname;
    bool girl = false;
    QDate born;
    /// Nobody wrote the date of birth down; `born` is kept for what follows from it.
    bool bornUnknown = false;
    QString birthNumber;
    QString birthPlace;
    QString catalogueNumber;
    QString insurer;
    QString nationality;
    QString citizenship;
    QString language;
    QString homeLanguage;
    Address address;
    QString school;
    QString referredBy;
    QDate since;
    QString impairments;
    Parent mother;
    Parent father;
    Representative representative;
    Memo memo;
    std::vector<Sibling> siblings;
    std::vector<Placement> placements;
    std::vector<Note> examinations;
    std::vector<Note> changes;
    std::vector<CareRecord> care;
    std::vector<Visit> visits;
};

} // namespace mkdb
