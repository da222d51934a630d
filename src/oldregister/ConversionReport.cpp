#include "oldregister/ConversionReport.h"

#include <QDir>

namespace oldregister {

namespace {

constexpr int nameWidth = 44;
constexpr int countWidth = 12;

struct Caption {
    const char16_t* table;
    const char16_t* words;
};
constexpr Caption captions[] = {
    {u"k_zaklad", u"Klienti"},
    {u"k_memo", u"Texty o klientoch"},
    {u"k_surodenci", u"Súrodenci"},
    {u"k_zariad", u"Zaradenia klientov"},
    {u"k_vysetrenie", u"Vyšetrenia"},
    {u"k_zaznam_zmeny", u"Zaznamenané zmeny"},
    {u"k_zaznam_spc", u"Záznamy starostlivosti"},
    {u"k_navstevy", u"Návštevy"},
    {u"zamestnanci", u"Zamestnanci"},
    {u"c_zdrpoi", u"Číselník poisťovní"},
    {u"c_narodn", u"Číselník národností"},
    {u"c_jazyk", u"Číselník jazykov"},
    {u"c_iczeme", u"Číselník štátov"},
    {u"c_iczuj", u"Číselník obcí"},
    {u"c_zariad", u"Číselník zariadení"},
    {u"c_funkcie", u"Číselník funkcií"},
    {u"dop_ukaz", u"Dopĺňajúce ukazovatele"},
    {u"odbstar", u"Odborná starostlivosť"},
    {u"z_zam", u"Pracovná tabuľka III"},
    {u"z_vek", u"Pracovná tabuľka I"},
    {u"z_vzdelavanie", u"Pracovná tabuľka II"},
};

QString lineOf(const QString& name, const QString& read, const QString& written) {
    return name.leftJustified(nameWidth) + read.rightJustified(countWidth) +
           written.rightJustified(countWidth);
}

QStringList linesOf(const std::vector<TableCount>& tables) {
    QStringList lines{
        lineOf(QStringLiteral("Tabuľka"), QStringLiteral("prečítané"), QStringLiteral("zapísané"))};
    for (const TableCount& count : tables)
        lines += lineOf(captionOf(count.table), QString::number(count.read),
                        QString::number(count.written));
    return lines;
}

QStringList linesOf(const Finding& finding, int number) {
    QStringList lines{
        QStringLiteral("%1. %2: %3").arg(number).arg(captionOf(finding.table), finding.what)};
    if (!finding.client.isEmpty())
        lines += QStringLiteral("   Osoba: ") + finding.client;
    if (!finding.content.isEmpty())
        lines += QStringLiteral("   Obsah: ") + finding.content;
    return lines;
}

} // namespace

QString captionOf(const QString& table) {
    for (const Caption& caption : captions)
        if (table == QStringView(caption.table))
            return QStringLiteral("%1 (%2)").arg(QString::fromUtf16(caption.words), table);
    return table;
}

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

QStringList ConversionReport::about() const {
    QStringList lines{QStringLiteral("Pôvodný súbor: ") + QDir::toNativeSeparators(oldFile)};
    if (!keptFile.isEmpty())
        lines += QStringLiteral("Odložený ako:  ") + QDir::toNativeSeparators(keptFile);
    if (!protection.isEmpty())
        lines += protection;
    return lines;
}

QString ConversionReport::text() const {
    QStringList lines{QStringLiteral("Prevod registra z pôvodného formátu"), QString()};
    lines += about() + QStringList{QString()} + linesOf(tables) + QStringList{QString()};
    lines += summary();
    int number = 0;
    for (const Finding& finding : findings)
        lines += QStringList{QString()} + linesOf(finding, ++number);
    return lines.join(u'\n') + u'\n';
}

} // namespace oldregister
