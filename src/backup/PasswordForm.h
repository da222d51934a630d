#pragma once

#include <QByteArray>

#include <optional>

class QWidget;

namespace backup {

/// Asks for the password of an archive. @param wasWrong says that the last one was
/// @return the password in UTF-8; nothing when the user gave up
std::optional<QByteArray> askPassword(QWidget* parent, bool wasWrong);

/// Asks for a password that an archive is to get, twice; it may be empty, then there is none.
/// @return nothing when the user gave up
std::optional<QByteArray> askNewPassword(QWidget* parent);

} // namespace backup
