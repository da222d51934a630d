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

namespace {

const QString slovak = QStringLiteral("Kŕdeľ šťastných ďatľov učí pri ústí Váhu mĺkveho koňa ÁÄČ");

Pages samplePages() {
    Layout layout;
    layout.title = QStringLiteral("Zoznam škôl");
    layout.orientation = Orientation::Landscape;
    layout.reportHeader.height = 400;
    layout.reportHeader.controls = {label(QStringLiteral("T"), 1000, 0, 8000, slovak)};
    layout.detail.height = 6000;
    layout.detail.controls = {field(QStringLiteral("a"), 2000, 5000, 3000),
                              drawn(ControlKind::Box, 0, 0, 3000, 6000)};
    ListSource rows({{QStringLiteral("jeden")}, {QStringLiteral("dva")}});
    return makePages(layout, rows, FontMeter(), today);
}

/// What a tool of poppler says about the PDF at that path, which stands for FILE.
QString toolOutput(const QString& tool, QStringList arguments, const QString& path) {
    QProcess process;
    process.start(tool, arguments.replaceInStrings(QStringLiteral("FILE"), path));
    EXPECT_TRUE(process.waitForFinished()) << tool.toStdString() << " is missing";
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

/// The same about the written sample.
QString toolOutput(const QString& tool, const QStringList& arguments) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("report.pdf")));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && writePdf(samplePages(), file));
    file.close();
    return toolOutput(tool, arguments, file.fileName());
}

TEST(Pdf, TextsCanBeCopiedWithAllLetters) {
    const QString text =
        toolOutput(QStringLiteral("pdftotext"), {QStringLiteral("FILE"), QStringLiteral("-")});
    const QStringList pages = text.split(u'\f', Qt::SkipEmptyParts);
    ASSERT_EQ(pages.size(), 2);
    EXPECT_TRUE(pages[0].contains(slovak)) << text.toStdString();
    EXPECT_TRUE(pages[0].contains(QStringLiteral("jeden")));
    EXPECT_TRUE(pages[1].contains(QStringLiteral("dva")));
}

TEST(Pdf, TextsStandWhereThePagesSay) {
    const QString words =
        toolOutput(QStringLiteral("pdftotext"),
                   {QStringLiteral("-bbox"), QStringLiteral("FILE"), QStringLiteral("-")});
    const QRegularExpression word(
        QStringLiteral(R"-(xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)"[^>]*>jeden<)-"));
    const auto match = word.match(words);
    ASSERT_TRUE(match.hasMatch()) << words.toStdString();
    const Pages pages = samplePages();
    const QRectF extent = find(pages.pages[0], QStringLiteral("jeden")).extent();
    EXPECT_NEAR(match.captured(1).toDouble() * 20, extent.left(), 4);
    EXPECT_NEAR(match.captured(2).toDouble() * 20, extent.top(), 20);
    EXPECT_NEAR(match.captured(3).toDouble() * 20, extent.right(), 4);
}

TEST(Pdf, IsA4WithItsTitleAndEmbeddedFonts) {
    const QString info = toolOutput(QStringLiteral("pdfinfo"), {QStringLiteral("FILE")});
    EXPECT_TRUE(info.contains(QRegularExpression(QStringLiteral("Title: +Zoznam škôl\n"))));
    EXPECT_TRUE(info.contains(QRegularExpression(QStringLiteral("Page size: +842 x 595 pts"))))
        << info.toStdString();
    const QString fonts = toolOutput(QStringLiteral("pdffonts"), {QStringLiteral("FILE")});
    // name, type, encoding, embedded, subset, unicode
    EXPECT_TRUE(fonts.contains(QRegularExpression(
        QStringLiteral("LiberationSans +CID TrueType +Identity-H +yes +\\w+ +yes"))))
        << fonts.toStdString();
}

TEST(Pdf, PageRangesOfTheDeviceAreHeeded) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("range.pdf"));
    QPdfWriter writer(path);
    writer.setPageRanges(QPageRanges::fromString(QStringLiteral("2-5")));
    ASSERT_TRUE(printPages(samplePages(), writer));
    const QString text = toolOutput(QStringLiteral("pdftotext"),
                                    {QStringLiteral("FILE"), QStringLiteral("-")}, path);
    EXPECT_EQ(text.simplified(), QStringLiteral("dva"));
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
