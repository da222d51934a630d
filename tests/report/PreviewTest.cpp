#include "report/Csv.h"
#include "report/Document.h"
#include "report/PageView.h"
#include "report/PreviewDialog.h"
#include "report/TestReport.h"
#include "store/FileBytes.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPrinterInfo>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace report;
using namespace report::test;
using namespace Qt::StringLiterals;

namespace {

/// What a reader of the screen gets of the page.
QString readAloud(PageView& view) {
    auto* page = QAccessible::queryAccessibleInterface(&view)->textInterface();
    return page != nullptr ? page->text(0, page->characterCount()) : QString();
}

/// A row of it fills a page.
Layout pageARow() {
    Layout layout;
    layout.title = u"Zoznam: klienti/škola"_s;
    layout.detail.height = 12000;
    layout.detail.controls = {field(u"a"_s, 0, 0, 3000)};
    layout.savedColumns = {{u"Meno"_s, u"a"_s}};
    return layout;
}

Pages threePages() {
    ListRows rows(QList<QStringList>(3, {u"Žofia"_s}));
    Pages pages = makePages(pageARow(), rows, FontMeter(), today);
    pages.subject = u"Novák Ján"_s;
    return pages;
}

class PreviewTest : public testing::Test {
  protected:
    PreviewTest()
        : pages_(threePages()),
          dialog_(pages_, [this](QWidget*, const QString& text) { problems_ << text; }) {
        dialog_.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog_));
    }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(dialog_.windowHandle(), Qt::Key(key), modifiers);
    }

    int shownPage() const {
        const int page = view().currentPage();
        EXPECT_EQ(dialog_.findChild<QSpinBox*>(u"pageNumber"_s)->value(), page);
        return page;
    }

    PageView& view() const { return *dialog_.findChild<PageView*>(u"previewPages"_s); }

    bool isEnabled(const char* action) const {
        return dialog_.findChild<QAction*>(QLatin1StringView(action))->isEnabled();
    }

    /// Saves under that name, given to the file dialog by keys; empty for Esc.
    void saveAs(const QString& name, const QString& suffix = u".pdf"_s) {
        support::ScriptedBoxes boxes;
        boxes.expect(support::fileDialog(name, [suffix](QWidget& files) {
            EXPECT_EQ(files.findChild<QLineEdit*>(u"fileNameEdit"_s)->text(),
                      u"Novák Ján – Zoznam klienti-škola"_s + suffix);
        }));
        press(Qt::Key_S,
              suffix == u".pdf"_s ? Qt::ControlModifier : Qt::ControlModifier | Qt::ShiftModifier);
        boxes.allCame();
        // Without a window manager nobody brings the window back.
        dialog_.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog_));
    }

    Pages pages_;
    QStringList problems_;
    PreviewDialog dialog_;
};

TEST_F(PreviewTest, ShowsAllPagesOneAtATimeAndTurnsThemByKeys) {
    EXPECT_EQ(view().pageCount(), 3);
    EXPECT_EQ(shownPage(), 1);
    EXPECT_FALSE(isEnabled("previousPage"));
    const std::vector<std::pair<int, int>> turns{
        {Qt::Key_PageDown, 2}, {Qt::Key_PageDown, 3}, {Qt::Key_PageDown, 3}, {Qt::Key_PageUp, 2},
        {Qt::Key_Home, 1},     {Qt::Key_PageUp, 1},   {Qt::Key_End, 3}};
    for (const auto& [key, page] : turns) {
        press(key);
        EXPECT_EQ(shownPage(), page);
    }
    EXPECT_FALSE(isEnabled("nextPage"));
    EXPECT_TRUE(isEnabled("previousPage"));
}

TEST_F(PreviewTest, DrawsThePageAndTellsItsText) {
    const QImage seen = view().viewport()->grab().toImage();
    const QColor ground = view().viewport()->palette().color(QPalette::Mid);
    int paper = 0, ink = 0;
    for (int y = 0; y < seen.height(); ++y) {
        for (int x = 0; x < seen.width(); ++x) {
            paper += seen.pixelColor(x, y) == Qt::white ? 1 : 0;
            ink += seen.pixelColor(x, y).lightness() < ground.lightness() / 2 ? 1 : 0;
        }
    }
    EXPECT_GT(paper, seen.width() * seen.height() / 2);
    EXPECT_GT(ink, 20);
    EXPECT_EQ(readAloud(view()), u"Žofia"_s);
}

TEST_F(PreviewTest, ZoomsByKeys) {
    const double start = view().zoom();
    press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_GT(view().zoom(), start);
    press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_LT(view().zoom(), start) << "the whole page";
    press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(view().zoom(), start) << "its width";
}

TEST_F(PreviewTest, TheWheelGoesDownAPageBeforeItTurnsIt) {
    const auto turn = [this](int delta, Qt::KeyboardModifiers modifiers = {}) {
        QWidget& sheet = *view().viewport();
        QWheelEvent event({50, 50}, sheet.mapToGlobal(QPointF(50, 50)), {}, {0, delta}, {},
                          modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&sheet, &event);
    };
    const QScrollBar& bar = *view().verticalScrollBar();
    ASSERT_EQ(bar.value(), 0);
    turn(-120);
    EXPECT_EQ(shownPage(), 1);
    EXPECT_GT(bar.value(), 0);
    for (int i = 0; i < 100 && shownPage() == 1; ++i)
        turn(-120);
    EXPECT_EQ(shownPage(), 2);
    EXPECT_EQ(bar.value(), 0) << "from its upper edge on";
    turn(120);
    EXPECT_EQ(shownPage(), 1);
    EXPECT_EQ(bar.value(), bar.maximum()) << "back at its lower edge";
    const double zoom = view().zoom();
    turn(120, Qt::ControlModifier);
    EXPECT_GT(view().zoom(), zoom);
}

TEST_F(PreviewTest, TellsWhenThereIsNoPrinter) {
    if (!QPrinterInfo::availablePrinterNames().isEmpty())
        GTEST_SKIP() << "this machine has a printer";
    press(Qt::Key_P, Qt::ControlModifier);
    ASSERT_EQ(problems_.size(), 1);
    EXPECT_TRUE(problems_[0].startsWith(u"Nie je k dispozícii žiadna tlačiareň."_s));
}

TEST_F(PreviewTest, SavesUnderANameWithItsSuffix) {
    const QTemporaryDir folder;
    const auto& state = *dialog_.findChild<QLabel*>(u"previewState"_s);
    saveAs({});
    EXPECT_EQ(state.text(), QString()) << "cancelled";
    for (const auto& [typed, written] : {std::pair(u"žiaci"_s, u"žiaci.pdf"_s),
                                         {u"k 1.9"_s, u"k 1.9.pdf"_s},
                                         {u"a.PDF"_s, u"a.PDF"_s}}) {
        saveAs(folder.filePath(typed));
        EXPECT_TRUE(files::read(folder.filePath(written)).startsWith("%PDF"));
        EXPECT_TRUE(state.text().contains(written));
    }
    saveAs(folder.filePath(u"k"_s), u".csv"_s);
    EXPECT_EQ(files::read(folder.filePath(u"k.csv"_s)),
              "\xEF\xBB\xBFMeno\r\nŽofia\r\nŽofia\r\nŽofia\r\n");
    EXPECT_EQ(problems_, QStringList());
}

TEST_F(PreviewTest, TellsOfAFileThatCannotBeWrittenOrThatTheUserWasNotAskedAbout) {
    const QTemporaryDir folder;
    files::write(folder.filePath(u"k 1.9.pdf"_s), "mine");
    saveAs(folder.filePath(u"k 1.9"_s));
    EXPECT_EQ(problems_.size(), 1);
    EXPECT_EQ(files::read(folder.filePath(u"k 1.9.pdf"_s)), "mine");
    for (const auto& name : {u"nie je/taky.pdf"_s, QString()}) {
        problems_.clear();
        dialog_.savePdf(folder.filePath(name));
        ASSERT_EQ(problems_.size(), 1);
        EXPECT_TRUE(problems_[0].contains(u"sa nepodarilo uložiť"_s));
    }
}

/// A list of so many pages that nobody waits for all of them.
TEST(Preview, ShowsTheFirstPageAtOnceAndSavingCanBeGivenUp) {
    const int count = 4000;
    Pages pages = pagesOnDemand(pageARow(),
                                std::make_shared<ListRows>(QList<QStringList>(count, {u"Žofia"_s})),
                                std::make_shared<FontMeter>(), today);
    pages.note = u"poznámka"_s;
    addRunningLines(pages, std::make_shared<FontMeter>());
    EXPECT_EQ(pages.pages.known(), 1U);
    EXPECT_EQ(textsOf(pages.pages.make(0)).last(), u"Strana 1"_s);
    PreviewDialog dialog(pages, {});
    dialog.show();
    EXPECT_TRUE(dialog.findChild<QLabel*>(u"previewNote"_s)->isVisible());
    auto& view = *dialog.findChild<PageView*>(u"previewPages"_s);
    EXPECT_TRUE(readAloud(view).contains(u"Žofia"_s));
    EXPECT_TRUE(QTest::qWaitFor([&] { return pages.pages.isComplete(); }));
    EXPECT_TRUE(readAloud(view).contains(u"Strana 1 z 4000"_s));
    EXPECT_EQ(dialog.findChild<QSpinBox*>(u"pageNumber"_s)->maximum(), count);

    const QTemporaryDir folder;
    support::ScriptedBoxes boxes;
    boxes.expect(support::ExpectedWindow{u"QProgressDialog"_s, [](QWidget& progress) {
                                             auto* cancel = progress.findChild<QPushButton*>();
                                             EXPECT_EQ(cancel->text(), u"Zrušiť"_s);
                                             support::press(*cancel);
                                         }});
    dialog.showProgressAfter(std::chrono::milliseconds(0));
    dialog.savePdf(folder.filePath(u"a.pdf"_s));
    boxes.allCame();
    EXPECT_FALSE(QFile::exists(folder.filePath(u"a.pdf"_s)));
    EXPECT_TRUE(dialog.findChild<QLabel*>(u"previewState"_s)->text().startsWith(u"Zrušené"_s));
    QBuffer csv;
    csv.open(QIODevice::WriteOnly);
    EXPECT_TRUE(writeCsv(pages.table, csv));
    EXPECT_EQ(csv.data().count('\n'), count + 1);
}

TEST(Preview, IsModalAndReturnsWhenClosed) {
    support::ScriptedBoxes boxes;
    boxes.expect(support::ExpectedWindow{u"PreviewDialog"_s, [](QWidget& dialog) {
                                             EXPECT_EQ(dialog.windowTitle(),
                                                       u"Novák Ján – Zoznam: klienti/škola"_s);
                                             QTest::keyClick(&dialog, Qt::Key_Escape);
                                         }});
    showPreview(threePages(), nullptr);
}

} // namespace
