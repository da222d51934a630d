#include "oldregister/CsvExport.h"

#include "report/Csv.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Files.h"
#include "store/Recordset.h"
#include "store/Schema.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTextStream>

#include <cerrno>
#include <cstdio>

namespace oldregister {

namespace {

using store::EngineError;
using store::ErrorNumber;

/// An empty text is told from a null one.
QString textCell(const QString& text) {
    return text.isEmpty() ? QStringLiteral("\"\"") : report::csvCell(text, u',');
}

QString dateCell(const store::DateTime& date) {
    const QString day = date.date.toString(u"yyyy-MM-dd");
    return date.time == QTime(0, 0) ? day : day + date.time.toString(u" hh:mm:ss");
}

QString cell(const store::Value& value) {
    if (value.isNull())
        return {};
    if (const auto* date = std::get_if<store::DateTime>(&value.variant()))
        return dateCell(*date);
    if (const auto* number = std::get_if<double>(&value.variant()))
        return QString::number(*number, 'g', QLocale::FloatingPointShortest);
    return textCell(value.toText());
}

QStringList namesOf(const store::TableDef& table) {
    QStringList names;
    for (const store::ColumnDef& column : table.columns)
        names += QString::fromUtf16(column.name);
    return names;
}

qint64 writeTable(store::Database& database, const store::TableDef& table, const QString& path) {
    store::createPrivateFile(path);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        throw EngineError(ErrorNumber::ReadOnly, file.errorString(), path);
    QTextStream out(&file);
    const QStringList names = namesOf(table);
    out << names.join(u',') << u'\n';
    qint64 count = 0;
    const auto rows = database.OpenRecordset(QString::fromUtf16(table.name));
    for (; !rows->Eof(); rows->MoveNext(), ++count) {
        QStringList cells;
        for (const QString& name : names)
            cells += cell(rows->Fields(name).Value());
        out << cells.join(u',') << u'\n';
    }
    out.flush();
    if (out.status() != QTextStream::Ok || !file.flush())
        throw EngineError(ErrorNumber::DiskFull, QStringLiteral("Súbor sa nedá zapísať."), path);
    store::syncFile(path);
    return count;
}

/// A folder that is being filled; goes away again unless it was finished.
class BegunFolder {
  public:
    explicit BegunFolder(const QString& name)
        : name_(QDir(name).absolutePath()), path_(name_ + QStringLiteral(".tvorba")) {
        if (QDir(name_).exists() &&
            !QDir(name_).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
            throw EngineError(ErrorNumber::TargetExists,
                              QStringLiteral("Priečinok už existuje a nie je prázdny."), name_);
        QDir(path_).removeRecursively();
        if (!QDir().mkpath(path_))
            throw EngineError(ErrorNumber::ReadOnly, QStringLiteral("Priečinok sa nedá vytvoriť."),
                              path_);
        QFile::setPermissions(path_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    ~BegunFolder() { QDir(path_).removeRecursively(); }
    Q_DISABLE_COPY_MOVE(BegunFolder)

    QString file(QStringView name) const {
        return path_ + u'/' + name.toString() + QStringLiteral(".csv");
    }
    void finish() const {
        if (std::rename(QFile::encodeName(path_).constData(),
                        QFile::encodeName(name_).constData()) != 0)
            throw store::systemError(errno, name_);
        store::syncFile(QFileInfo(name_).absolutePath());
    }

  private:
    QString name_;
    QString path_;
};

} // namespace

qint64 exportCsv(store::Database& database, const QString& folder) {
    const BegunFolder begun(folder);
    qint64 rows = 0;
    for (const store::TableDef& table : store::schema())
        rows += writeTable(database, table, begun.file(table.name));
    begun.finish();
    return rows;
}

} // namespace oldregister
