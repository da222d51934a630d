#include "oldregister/ConversionReport.h"

#include <QDir>
#include <QStringList>

namespace oldregister {

namespace {

constexpr int nameWidth = 16;
constexpr int countWidth = 12;

QString lineOf(const QString& name, const QString& read, const QString& written) {
    return name.leftJustified(nameWidth) + read.rightJustified(countWidth) +
           written.rightJustified(countWidth);
}

QStringList linesOf(const std::vector<TableCount>& tables) {
    QStringList lines{
        lineOf(QStringLiteral("Tabuľka"), QStringLiteral("prečítané"), QStringLiteral("zapísané"))};
    for (const TableCount& count : tables)
        lines += lineOf(count.table, QString::number(count.read), QString::number(count.written));
    return lines;
}

QStringList linesOf(const Finding& finding, int number) {
    QStringList lines{QStringLiteral("%1. %2: %3").arg(number).arg(finding.table, finding.what)};
    if (!finding.client.isEmpty())
        lines += QStringLiteral("   Osoba: ") + finding.client;
    if (!finding.content.isEmpty())
        lines += QStringLiteral("   Obsah: ") + finding.content;
    return lines;
}

} // namespace

qint64 ConversionReport::rowsRead() const {
    qint64 sum = 0;
    for (const TableCount& count : tables)
        sum += count.read;
    return sum;
}

qint64 ConversionReport::rowsWritten() const {
    qint64 sum = 0;
    for (const TableCount& count : tables)
        sum += count.written;
    return sum;
}

QString ConversionReport::summary() const {
    if (findings.empty())
        return QStringLiteral("Všetko sa prenieslo bez výnimky.");
    return QStringLiteral("Čo sa nedalo preniesť tak, ako bolo, počet: %1").arg(findings.size());
}

QString ConversionReport::text() const {
    QStringList lines{QStringLiteral("Prevod registra z pôvodného formátu"), QString(),
                      QStringLiteral("Pôvodný súbor: ") + QDir::toNativeSeparators(oldFile)};
    if (!keptFile.isEmpty())
        lines += QStringLiteral("Odložený ako:  ") + QDir::toNativeSeparators(keptFile);
    lines += QStringList{QString()} + linesOf(tables) + QStringList{QString()};
    lines += summary();
    int number = 0;
    for (const Finding& finding : findings)
        lines += QStringList{QString()} + linesOf(finding, ++number);
    return lines.join(u'\n') + u'\n';
}

} // namespace oldregister
