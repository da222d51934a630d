#include "store/EngineError.h"

namespace store {

EngineError::EngineError(ErrorNumber number, QString description, QString place)
    : number_(number), description_(std::move(description)), place_(std::move(place)) {
    const QString where = place_.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(place_);
    what_ =
        QStringLiteral("%1: %2%3").arg(static_cast<int>(number_)).arg(description_, where).toUtf8();
}

bool isOfMedium(ErrorNumber number) {
    switch (number) {
    case ErrorNumber::FileNotFound:
    case ErrorNumber::DiskFull:
    case ErrorNumber::ReadOnly:
    case ErrorNumber::DiskError:
    case ErrorNumber::CannotOpen:
    case ErrorNumber::Busy:
    case ErrorNumber::UnrecognizedFile:
        return true;
    default:
        return false;
    }
}

} // namespace store
