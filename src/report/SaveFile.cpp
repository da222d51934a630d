#include "report/SaveFile.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>

namespace report {

namespace {

/// A file name of that wording, without what file systems refuse or people can't type, and short
/// enough for all of them.
QString fileName(const QString& wording) {
    static const QRegularExpression unfit(QStringLiteral("[^\\w –-]|_"),
                                          QRegularExpression::UseUnicodePropertiesOption);
    constexpr qsizetype mostBytes = 200;
    QString name = QString(wording).replace(u'/', u'-').remove(unfit).simplified();
    while (name.toUtf8().size() > mostBytes)
        name.chop(1);
    return name.isEmpty() ? QStringLiteral("zostava") : name.trimmed();
}

/// Where pages of that name are saved if the user agrees: among their documents.
QString suggestedPath(const QString& name, const QString& suffix) {
    const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    return (documents.exists() ? documents : QDir::home()).filePath(fileName(name) + suffix);
}

/// Empty when the user has cancelled.
QString askPath(const FileKind& kind, const QString& name, QWidget* parent) {
    QFileDialog dialog(parent, kind.caption, suggestedPath(name, kind.suffix));
    dialog.setObjectName(kind.dialog);
    // The system's own dialog speaks the system's language.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(kind.filter);
    dialog.setDefaultSuffix(kind.suffix);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

} // namespace

FileKind pdfFile() {
    return {QStringLiteral("pdfDialog"), QStringLiteral("Uložiť ako PDF"),
            QStringLiteral("Dokumenty PDF (*.pdf)"), QStringLiteral(".pdf")};
}

FileKind csvFile() {
    return {QStringLiteral("csvDialog"), QStringLiteral("Uložiť ako CSV"),
            QStringLiteral("Tabuľky CSV (*.csv)"), QStringLiteral(".csv")};
}

SaveOutcome saveFile(const QString& path, const FileWriter& write) {
    QSaveFile file(path);
    const bool saved = file.open(QIODevice::WriteOnly) && write(file) && file.commit();
    return {saved,
            (saved ? QStringLiteral("Uložené do súboru %1")
                   : QStringLiteral("Súbor %1 sa nepodarilo uložiť. Skontrolujte, či priečinok "
                                    "existuje, či sa doň smie zapisovať a či je na disku miesto."))
                .arg(QDir::toNativeSeparators(path))};
}

std::optional<SaveOutcome> askAndSave(const FileKind& kind, const QString& name,
                                      const FileWriter& write, QWidget* parent) {
    const QString chosen = askPath(kind, name, parent);
    if (chosen.isEmpty())
        return std::nullopt;
    if (chosen.endsWith(kind.suffix, Qt::CaseInsensitive))
        return saveFile(chosen, write);
    // The dialog leaves names with another suffix alone and has asked about that name only.
    const QString path = chosen + kind.suffix;
    if (QFileInfo::exists(path))
        return SaveOutcome{false,
                           QStringLiteral("Súbor %1 už existuje. Zvoľte iný názov.").arg(path)};
    return saveFile(path, write);
}

} // namespace report
