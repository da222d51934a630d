#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace store {

/// Numbers of the engine's errors that callers act on or that users may read in a report.
enum class ErrorNumber : int {
    Overflow = 6,
    SubscriptOutOfRange = 9,
    Internal = 3000,
    ObjectExists = 3012,
    NoOpenEdit = 3020,
    NoCurrentRecord = 3021,
    DuplicateKey = 3022,
    FileNotFound = 3024,
    ReportSourceUnreadable = 3025,
    DiskFull = 3026,
    ReadOnly = 3027,
    DiskError = 3043,
    CannotOpen = 3051,
    TooFewParameters = 3061,
    SyntaxError = 3075,
    UnknownTable = 3078,
    AmbiguousName = 3079,
    UnknownFunction = 3085,
    CircularQuery = 3102,
    NotGrouped = 3122,
    UnknownInsertColumn = 3127,
    DataTypeOverflow = 3163,
    NotUpdatable = 3164,
    RecordDeleted = 3167,
    TargetExists = 3204,
    Busy = 3218,
    UnknownColumn = 3265,
    UnrecognizedFile = 3343,
    TooComplex = 3360,
    TypeConversion = 3421,
    TypeMismatch = 3464,
};

/// The one exception of the engine: a number, a Slovak text for the user, and the place that caused
/// it (the statement, the column or the file; may be empty).
class EngineError : public std::exception {
  public:
    EngineError(ErrorNumber number, QString description, QString place = {});

    ErrorNumber number() const { return number_; }
    const QString& description() const { return description_; }
    const QString& place() const { return place_; }
    /// UTF-8 of "number: description (place)", for logs of tests; valid as long as the exception.
    const char* what() const noexcept override { return what_.constData(); }

  private:
    ErrorNumber number_;
    QString description_;
    QString place_;
    QByteArray what_;
};

/// What holds the file refuses: it is full, locked, read-only, damaged or gone. Unlike the refusal
/// of a row it strikes all that a user's action writes, or none of it.
bool isOfMedium(ErrorNumber number);

} // namespace store
