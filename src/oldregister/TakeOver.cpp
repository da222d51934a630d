#include "oldregister/TakeOver.h"

#include "store/EngineError.h"
#include "store/Files.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

#include <unistd.h>

#include <cerrno>

namespace oldregister {

namespace {

using store::EngineError;
using store::ErrorNumber;

/// "tvk_povodny.mdb", then "tvk_povodny_2.mdb" and so on, beside the file.
QString besideName(const QString& path, const QString& what, const QString& suffix, int number) {
    const QFileInfo info(path);
    const QString numbered = number == 1 ? QString() : QStringLiteral("_%1").arg(number);
    return info.absolutePath() + u'/' + info.completeBaseName() + u'_' + what + numbered + u'.' +
           suffix;
}

/// What changes when another program writes into a file.
struct FileState {
    explicit FileState(const QString& path)
        : identity(store::fileIdentity(path)), size(QFileInfo(path).size()),
          changed(QFileInfo(path).lastModified()) {}
    bool operator==(const FileState&) const = default;

    std::optional<store::FileIdentity> identity;
    qint64 size;
    QDateTime changed;
};

void copyWhole(const QString& from, const QString& to) {
    const QString begun = to + QStringLiteral(".kopia");
    QFile::remove(begun);
    if (!QFile::copy(from, begun)) {
        QFile::remove(begun);
        throw EngineError(ErrorNumber::DiskError, QStringLiteral("Pôvodný súbor sa nedá odložiť."),
                          to);
    }
    store::moveToFreeName(begun, to);
}

/// Gives the old file its second name. @return false when another file has that name
bool keepAs(const QString& path, const QString& kept) {
    // A run that was killed had come so far.
    if (store::fileIdentity(kept) == store::fileIdentity(path))
        return true;
    if (::link(QFile::encodeName(path).constData(), QFile::encodeName(kept).constData()) == 0)
        return true;
    if (errno == EEXIST)
        return false;
    if (QFileInfo::exists(kept))
        return false;
    // Some file systems know one name for a file only.
    copyWhole(path, kept);
    return true;
}

QString keep(const QString& path) {
    for (int number = 1;; ++number) {
        QString kept = besideName(path, QStringLiteral("povodny"), QStringLiteral("mdb"), number);
        if (!keepAs(path, kept))
            continue;
        store::syncFile(kept);
        store::syncFile(QFileInfo(kept).absolutePath());
        return kept;
    }
}

/// Makes a file that did not exist. @return false when it exists
bool writeNew(const QString& path, const QByteArray& bytes) {
    try {
        store::createPrivateFile(path);
    } catch (const EngineError& error) {
        if (error.number() == ErrorNumber::TargetExists)
            return false;
        throw;
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        throw EngineError(ErrorNumber::DiskFull,
                          QStringLiteral("Správa o prevode sa nedá zapísať."), path);
    store::syncFile(path);
    return true;
}

/// A journal beside the old file is none of its own; the new one would take it for its.
void moveJournals(const QString& path, const QString& kept) {
    for (const char16_t* suffix : {u"-journal", u"-wal", u"-shm"}) {
        const QString journal = path + QString::fromUtf16(suffix);
        if (QFileInfo::exists(journal))
            store::replaceFile(journal, kept + QString::fromUtf16(suffix));
    }
}

} // namespace

QString keptNameOf(const QString& path) {
    for (int number = 1;; ++number) {
        QString kept = besideName(path, QStringLiteral("povodny"), QStringLiteral("mdb"), number);
        if (!QFileInfo::exists(kept) || store::fileIdentity(kept) == store::fileIdentity(path))
            return kept;
    }
}

QString writeReport(const QString& path, const ConversionReport& report) {
    const QByteArray text = report.text().toUtf8();
    for (int number = 1;; ++number) {
        QString file = besideName(path, QStringLiteral("prevod"), QStringLiteral("txt"), number);
        if (writeNew(file, text))
            return file;
    }
}

ConversionReport takeOver(const QString& path, const TellProgress& progress) {
    const QString made = path + QStringLiteral(".novy");
    QFile::remove(made);
    const FileState before(path);
    ConversionReport report = convert(path, made, progress);
    try {
        if (FileState(path) != before)
            throw EngineError(ErrorNumber::Busy,
                              QStringLiteral("Pôvodný súbor sa počas prevodu zmenil. Ukončite "
                                             "program, ktorý s ním pracuje."),
                              path);
        report.keptFile = keep(path);
        report.reportFile = writeReport(path, report);
        moveJournals(path, report.keptFile);
        store::replaceFile(made, path);
    } catch (...) {
        QFile::remove(made);
        throw;
    }
    return report;
}

} // namespace oldregister
