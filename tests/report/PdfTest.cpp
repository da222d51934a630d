#include "report/Document.h"
#include "report/PageCheck.h"
#include "report/Print.h"
#include "report/TestReport.h"

#include <QBuffer>
#include <QFile>
#include <QPageRanges>
#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace report;
using namespace report::test;
using namespace Qt::StringLiterals;

namespace {

const QString slovak = u"Kŕdeľ šťastných ďatľov učí pri ústí Váhu mĺkveho koňa ÁÄČ"_s;

Pages samplePages() {
    Layout layout;
    layout.title = u"Zoznam žiačok"_s;
    layout.orientation = Orientation::Landscape;
    layout.reportHeader.height = 400;
    layout.reportHeader.controls = {label(u"T"_s, 1000, 0, 8000, slovak),
                                    label(u"R"_s, 9500, 0, 3000, u"riadok"_s)};
    layout.reportHeader.controls[0].style.italic = true;
    layout.detail.height = 6000;
    layout.detail.controls = {field(u"a"_s, 2000, 5000, 3000),
                              drawn(ControlKind::Box, 0, 0, 3000, 6000)};
    Control& number = layout.detail.controls[0];
    number.style = {.points = 14, .bold = true};
    number.align = Align::Right;
    number.height = 400;
    ListRows rows({{u"jeden"_s}, {u"dva"_s}});
    return makePages(layout, rows, FontMeter(), today);
}

/// What a tool of poppler says about the PDF at that path, which stands for FILE.
QString toolOutput(const QString& tool, QStringList arguments, const QString& path) {
    QProcess process;
    process.start(tool, arguments.replaceInStrings(u"FILE"_s, path));
    EXPECT_TRUE(process.waitForFinished()) << tool.toStdString() << " is missing";
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// The same about pages written to a file.
QString toolOutput(const QString& tool, const QStringList& arguments,
                   const Pages& pages = samplePages()) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"report.pdf"_s));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && writePdf(pages, file));
    file.close();
    return toolOutput(tool, arguments, file.fileName());
}

TEST(Pdf, TextsCanBeCopiedAndStandWhereThePagesSay) {
    const QString words = toolOutput(u"pdftotext"_s, {u"-bbox"_s, u"FILE"_s, u"-"_s});
    EXPECT_EQ(words.count(u"</page>"_s), 2);
    EXPECT_TRUE(words.contains(u"width=\"842"_s)) << "landscape";
    for (const QString& word : slovak.split(u' '))
        EXPECT_TRUE(words.contains(u'>' + word + u'<')) << word.toStdString();
    const QRegularExpression jeden(
        uR"-(xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)"[^>]*>jeden<)-"_s);
    const auto match = jeden.match(words);
    ASSERT_TRUE(match.hasMatch()) << words.toStdString();
    const Pages pages = samplePages();
    const QRectF extent = find(pages.pages[0], u"jeden"_s).extent();
    EXPECT_NEAR(match.captured(1).toDouble() * 20, extent.left(), 4);
    EXPECT_NEAR(match.captured(2).toDouble() * 20, extent.top(), 20);
    EXPECT_NEAR(match.captured(3).toDouble() * 20, extent.right(), 4);
    EXPECT_TRUE(words.contains(u"<title>Zoznam žiačok</title>"_s)) << words.toStdString();
    // name, type, encoding, embedded, subset, unicode
    const QString fonts = toolOutput(u"pdffonts"_s, {u"FILE"_s});
    for (const auto& font :
         {u"LiberationSans"_s, u"LiberationSans-Bold"_s, u"LiberationSans-Italic"_s})
        EXPECT_TRUE(fonts.contains(
            QRegularExpression(font + u" +CID TrueType +Identity-H +yes +\\w+ +yes"_s)))
            << fonts.toStdString();
    EXPECT_FALSE(isInstalled(u"No Such Family"_s));
}

TEST(Pdf, ADocumentHasBookmarksLanguageAndTheNumberOfEachPageInItsPlace) {
    Layout upright;
    upright.title = u"Žiadosť (1)"_s;
    upright.detail.height = 300;
    upright.detail.controls = {field(u"a"_s, 0, 0, 3000)};
    ListRows rows({{u"tri"_s}});
    Pages document =
        joined(u"Výkaz"_s, {samplePages(), makePages(upright, rows, FontMeter(), today)});
    document.subject = u"Ján "_s + QString(300, u'Ď');
    addRunningLines(document, std::make_shared<FontMeter>());
    EXPECT_EQ(layoutFaults(document), QStringList());
    const QString text = toolOutput(u"pdftotext"_s, {u"-layout"_s, u"FILE"_s, u"-"_s}, document);
    const QStringList texts = text.split(u'\f');
    ASSERT_EQ(texts.size(), 4) << "the last one is what follows the last page";
    for (int page = 0; page < 3; ++page) {
        const QStringList lines = texts[page].trimmed().split(u'\n');
        EXPECT_TRUE(lines.first().startsWith(u"Ján ĎĎĎ"_s) && lines.first().endsWith(u"Ď…"_s));
        EXPECT_EQ(lines.last().trimmed(), u"Strana %1 z 3"_s.arg(page + 1));
    }
    const QString about = toolOutput(u"pdfinfo"_s, {u"-l"_s, u"9"_s, u"FILE"_s}, document);
    for (const auto& line : {u"Page    1 size:  842 x 595"_s, u"Page    3 size:  595 x 842"_s})
        EXPECT_TRUE(about.contains(line)) << about.toStdString();
    const QString outline =
        toolOutput(u"pdftohtml"_s, {u"-xml"_s, u"-stdout"_s, u"-i"_s, u"FILE"_s}, document);
    for (const auto& item :
         {u"<item page=\"1\">Zoznam žiačok</item>"_s, u"<item page=\"3\">Žiadosť (1)</item>"_s})
        EXPECT_EQ(outline.count(item), 1) << outline.toStdString();
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    ASSERT_TRUE(writePdf(document, pdf));
    EXPECT_TRUE(pdf.data().contains("/Lang (sk)"));
}

TEST(Pdf, PageRangesOfTheDeviceAreHeeded) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"range.pdf"_s);
    QPdfWriter writer(path);
    writer.setPageRanges(QPageRanges::fromString(u"2-5"_s));
    ASSERT_TRUE(printPages(samplePages(), writer));
    const QString text = toolOutput(u"pdftotext"_s, {u"FILE"_s, u"-"_s}, path);
    EXPECT_EQ(text.simplified(), u"dva"_s);
}

/// Takes a few bytes and no more, as a full disk does.
class FullDevice : public QIODevice {
  public:
    FullDevice() { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }

  protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char*, qint64 size) override {
        room_ -= size;
        return room_ >= 0 ? size : -1;
    }

  private:
    qint64 room_ = 100;
};

TEST(Pdf, TellsOfADeviceThatFails) {
    FullDevice full;
    EXPECT_FALSE(writePdf(samplePages(), full));
}

} // namespace
