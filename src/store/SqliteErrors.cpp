#include "store/SqliteErrors.h"

#include <QStringList>

#include <sqlite3.h>

#include <optional>

namespace store {

namespace {

struct Mapping {
    int code;
    ErrorNumber number;
    const char16_t* text;
};

constexpr const char16_t* duplicate =
    u"Zmena sa nedá zapísať, v kľúči by vznikli dve rovnaké hodnoty.";
constexpr const char16_t* busy = u"Súbor práve používa iný program.";
constexpr const char16_t* unreadable = u"Súbor sa nedá otvoriť alebo čítať.";
constexpr const char16_t* damaged = u"Súbor databázy je poškodený.";

/// Extended codes stand before the primary ones that they belong to.
constexpr Mapping mappings[] = {
    {SQLITE_CONSTRAINT_UNIQUE, ErrorNumber::DuplicateKey, duplicate},
    {SQLITE_CONSTRAINT_PRIMARYKEY, ErrorNumber::DuplicateKey, duplicate},
    {SQLITE_CONSTRAINT_ROWID, ErrorNumber::DuplicateKey, duplicate},
    {SQLITE_CONSTRAINT_DATATYPE, ErrorNumber::TypeConversion,
     u"Hodnota sa nedá previesť na typ stĺpca."},
    {SQLITE_READONLY_DBMOVED, ErrorNumber::ReadOnly,
     u"Súbor databázy bol medzitým presunutý alebo nahradený iným."},
    {SQLITE_READONLY_DIRECTORY, ErrorNumber::ReadOnly,
     u"Priečinok databázy je určený len na čítanie."},
    {SQLITE_FULL, ErrorNumber::DiskFull, u"Disk je plný."},
    {SQLITE_READONLY, ErrorNumber::ReadOnly, u"Súbor databázy je určený len na čítanie."},
    {SQLITE_IOERR, ErrorNumber::DiskError, u"Chyba pri čítaní disku alebo zápise naň."},
    {SQLITE_BUSY, ErrorNumber::Busy, busy},
    {SQLITE_LOCKED, ErrorNumber::Busy, busy},
    {SQLITE_CANTOPEN, ErrorNumber::CannotOpen, unreadable},
    {SQLITE_PERM, ErrorNumber::CannotOpen, unreadable},
    {SQLITE_AUTH, ErrorNumber::CannotOpen, unreadable},
    {SQLITE_NOTADB, ErrorNumber::UnrecognizedFile, u"Súbor nie je databáza."},
    {SQLITE_CORRUPT, ErrorNumber::UnrecognizedFile, damaged},
    {SQLITE_NOMEM, ErrorNumber::Internal, u"Nedostatok pamäte."},
    {SQLITE_TOOBIG, ErrorNumber::DataTypeOverflow, u"Text je priveľmi dlhý."},
};

QString ownText(ErrorNumber number, const QString& subject) {
    switch (number) {
    case ErrorNumber::DataTypeOverflow:
        return QStringLiteral("Text je pre stĺpec %1 priveľmi dlhý.").arg(subject);
    case ErrorNumber::TypeConversion:
        return QStringLiteral("Hodnota sa nedá previesť na typ údaja (%1).").arg(subject);
    case ErrorNumber::TypeMismatch:
        return QStringLiteral("Typy údajov vo výraze si nezodpovedajú (%1).").arg(subject);
    default:
        return QStringLiteral("Výraz sa nedá vypočítať (%1).").arg(subject);
    }
}

/// An error that a function of ours raised inside a statement, as "TVK:<number>:<subject>".
std::optional<EngineError> ownError(const QString& message, const QString& place) {
    if (!message.startsWith(QStringLiteral("TVK:")))
        return std::nullopt;
    const auto number = static_cast<ErrorNumber>(message.section(QLatin1Char(':'), 1, 1).toInt());
    return EngineError(number, ownText(number, message.section(QLatin1Char(':'), 2)), place);
}

} // namespace

EngineError sqliteError(int code, sqlite3* connection, const QString& place) {
    const QString message = QString::fromUtf8(connection != nullptr ? sqlite3_errmsg(connection)
                                                                    : sqlite3_errstr(code));
    if (const auto own = ownError(message, place))
        return *own;
    for (const Mapping& mapping : mappings)
        if (mapping.code == code || mapping.code == (code & 0xff))
            return EngineError(mapping.number, QString::fromUtf16(mapping.text), place);
    return EngineError(ErrorNumber::Internal,
                       QStringLiteral("Chyba databázového stroja: %1.").arg(message), place);
}

} // namespace store
