#include "store/ReportConnection.h"

#include "store/Connection.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/OpenCheck.h"
#include "store/Query.h"
#include "store/StoredValue.h"
#include "store/Watch.h"

#include <QFileInfo>

#include <algorithm>

namespace store {

namespace {

[[noreturn]] void refuseReport(const QString& path, const QString& why) {
    throw EngineError(ErrorNumber::ReportSourceUnreadable,
                      QStringLiteral("Zostava nemôže čítať databázu. %1").arg(why), path);
}

std::unique_ptr<Connection> openForReport(const QString& path) {
    try {
        auto connection = std::make_unique<Connection>(path, Connection::Access::ReadOnly);
        checkIdentity(*connection);
        return connection;
    } catch (const EngineError& error) {
        refuseReport(path, error.description());
    }
}

/// A statement is the caller's fault, all else is the file's.
bool isOfStatement(ErrorNumber number) {
    static constexpr ErrorNumber ofStatement[] = {
        ErrorNumber::SyntaxError,   ErrorNumber::UnknownTable,    ErrorNumber::TooFewParameters,
        ErrorNumber::AmbiguousName, ErrorNumber::UnknownFunction, ErrorNumber::NotGrouped,
        ErrorNumber::TooComplex,    ErrorNumber::CircularQuery,   ErrorNumber::TypeMismatch,
        ErrorNumber::TypeConversion};
    return std::ranges::find(ofStatement, number) != std::end(ofStatement);
}

} // namespace

ReportRows::ReportRows(std::vector<OutputColumn> columns, RowBlock rows)
    : columns_(std::move(columns)), rows_(std::move(rows)) {}

bool ReportRows::next() {
    if (current_ < count())
        ++current_;
    return current_ < count();
}

QString ReportRows::text(QStringView column) const {
    const auto found = std::ranges::find_if(columns_, [&](const OutputColumn& candidate) {
        return candidate.name.size() == column.size() &&
               candidate.name.compare(column, Qt::CaseInsensitive) == 0;
    });
    if (found == columns_.end())
        throw EngineError(ErrorNumber::UnknownColumn,
                          QStringLiteral("Stĺpec %1 vo výbere nie je.").arg(column),
                          column.toString());
    if (current_ < 0 || current_ >= count())
        throw EngineError(ErrorNumber::NoCurrentRecord,
                          QStringLiteral("Nie je žiadny aktuálny záznam."));
    return readValue(rows_.row(current_), static_cast<int>(found - columns_.begin()), found->type)
        .toText();
}

ReportConnection::ReportConnection(DBEngine& engine, const QString& path) {
    engine.commitPending();
    if (engine.holdsReplacedFile(path))
        refuseReport(path, QStringLiteral("Súbor bol medzitým nahradený."));
    connection_ = openForReport(QFileInfo(path).absoluteFilePath());
}

ReportConnection::~ReportConnection() = default;

ReportRows ReportConnection::open(const QString& source, const TellProgress& tell) {
    try {
        const SelectPlan plan = translateSelect(source, connection_->queryLookup());
        Query query(connection_->handle(), plan.rows);
        RowBlock rows;
        Watch(connection_->handle(), [&tell] { return !tell || tell(unknownPart); }).run([&] {
            while (query.step())
                rows.append(query);
        });
        rows.shrink();
        return {plan.columns, std::move(rows)};
    } catch (const EngineError& error) {
        if (isOfStatement(error.number()))
            throw;
        refuseReport(connection_->path(), error.description());
    }
}

} // namespace store
