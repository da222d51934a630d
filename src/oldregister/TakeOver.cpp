#include "oldregister/TakeOver.h"

#include "store/EngineError.h"
#include "store/Files.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>

namespace oldregister {

namespace {

using store::EngineError;
using store::ErrorNumber;

/// A name beside another file's: "tvk_povodny.mdb", "tvk_povodny_2.mdb" and so on.
QString besideName(const QString& path, const QString& what, const QString& suffix, int number) {
    const QFileInfo info(path);
    const QString numbered = number == 1 ? QString() : QStringLiteral("_%1").arg(number);
    return info.absolutePath() + u'/' + info.completeBaseName() + u'_' + what + numbered + u'.' +
           suffix;
}

/// Makes a file beside another one, under the first name that is free: "tvk_povodny.mdb", then
/// "tvk_povodny_2.mdb" and so on.
/// @param make throws 3204 when a name is taken
template <class Make>
QString makeBeside(const QString& path, const QString& what, const QString& suffix,
                   const Make& make) {
    for (int number = 1;; ++number) {
        QString name = besideName(path, what, suffix, number);
        try {
            make(name);
            return name;
        } catch (const EngineError& error) {
            if (error.number() != ErrorNumber::TargetExists)
                throw;
        }
    }
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

void writeNew(const QString& path, const QByteArray& bytes) {
    store::createPrivateFile(path);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        throw EngineError(ErrorNumber::DiskFull,
                          QStringLiteral("Správa o prevode sa nedá zapísať."), path);
    store::syncFile(path);
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
    return makeBeside(path, QStringLiteral("prevod"), QStringLiteral("txt"),
                      [&](const QString& file) { writeNew(file, text); });
}

ConversionReport takeOver(const QString& path, const store::TellProgress& progress) {
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
        report.keptFile = makeBeside(path, QStringLiteral("povodny"), QStringLiteral("mdb"),
                                     [&](const QString& name) { store::keepAs(path, name); });
        report.reportFile = writeReport(path, report);
        store::moveJournals(path, report.keptFile);
        store::replaceFile(made, path);
    } catch (...) {
        QFile::remove(made);
        throw;
    }
    return report;
}

} // namespace oldregister
