#pragma once

#include <QString>

#include <functional>
#include <optional>

class QIODevice;
class QWidget;

namespace report {

/// A kind of file that a report is saved as.
struct FileKind {
    /// Name of the dialog's object.
    QString dialog;
    /// What the dialog is headed.
    QString caption;
    /// What the dialog lists: a name and a pattern.
    QString filter;
    QString suffix;
};

FileKind pdfFile();
FileKind csvFile();

/// Writes the contents. @return false when the device failed
using FileWriter = std::function<bool(QIODevice&)>;

/// What came of saving, in words for the user.
struct SaveOutcome {
    bool saved = false;
    QString text;
};

/// Writes a file, which is replaced as a whole or not at all.
SaveOutcome saveFile(const QString& path, const FileWriter& write);

/// Asks for the file's name, proposing the pages' name in the folder of documents, and writes
/// it. @return nothing when the user cancelled
std::optional<SaveOutcome> askAndSave(const FileKind& kind, const QString& name,
                                      const FileWriter& write, QWidget* parent);

} // namespace report
