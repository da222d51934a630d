#pragma once

#include <QFileDialog>

#include <optional>

namespace backup {

/// What a file dialog asks for.
struct FileChoice {
    QString title = {};
    /// A caption and a pattern each.
    QList<std::pair<QString, QString>> filters = {};
    /// The filter that is chosen at first, from 0.
    int filter = 0;
    /// To save asks before a file is replaced; to open wants a file that exists.
    QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen;
    /// Where to look first; the user's documents when it is empty.
    QString folder = {};
    QString name = QStringLiteral("arch_tvk.zip");
};

/// Asks for a file. Nothing is added to a name.
/// @return the trimmed path; nothing when the user cancelled
std::optional<QString> chooseFile(QWidget* parent, const FileChoice& choice);

/// What is said of a cancelled dialog.
inline QString cancelWords() {
    return QStringLiteral("Výber súboru bol zrušený.");
}

} // namespace backup
