#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace store {

/// Numbers of the engine's errors that callers act on or that users may read in a report.
enum class ErrorNumber : int {
    Overflow = 6,
    ObjectExists = 3012,
    NoCurrentRecord = 3021,
    DuplicateKey = 3022,
    FileNotFound = 3024,
    ReportSourceUnreadable = 3025,
    DiskFull = 3026,
    ReadOnly = 3027,
    DataTypeOverflow = 3163,
    NotUpdatable = 3164,
    TypeConversion = 3421,
    CannotOpen = 3051,
    NoOpenEdit = 3020,
    DiskError = 3043,
    TooFewParameters = 3061,
    SyntaxError = 3075,
    UnknownTable = 3078,
    AmbiguousName = 3079,
    UnknownFunction = 3085,
    CircularQuery = 3102,
    NotGrouped = 3122,
    UnknownInsertColumn = 3127,
    TooComplex = 3360,
    RecordDeleted = 3167,
    Busy = 3218,
    TargetExists = 3204,
    UnknownColumn = 3265,
    UnrecognizedFile = 3343,
    TypeMismatch = 3464,
    Internal = 3000,
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

} // namespace store
