#pragma once

#include <QMessageBox>
#include <QString>

#include <optional>

class QWidget;

namespace store {
class EngineError;
}

namespace forms {

/// What a message box says and offers. An empty title becomes the program's name.
struct Message {
    QString text = {};
    QString title = {};
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
    /// Said below the text, in smaller letters.
    QString detail = {};
};

/// The one door of all message boxes. Waits for the user; Esc gives the button that costs nothing:
/// Zrušiť, Nie, or Opakovať where the others empty a field or let a fault pass.
QMessageBox::StandardButton showMessage(QWidget* parent, const Message& message);

/// Asks for a line of text. @return nothing when the user cancelled
std::optional<QString> askText(QWidget* parent, const QString& prompt, const QString& title,
                               const QString& initial = {});

/// The report of an error that nobody handles: a critical box with its number, description
/// and place.
void showEngineError(QWidget* parent, const store::EngineError& error);

} // namespace forms
