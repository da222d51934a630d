// The program is started over a register of the old format.

#include "oldregister/Offer.h"

#include "Sample.h"
#include "mainwindow/FrmUvod.h"
#include "oldregister/ReportPages.h"
#include "oldregister/ReportWindow.h"
#include "store/FileBytes.h"
#include "support/ScriptedBoxes.h"

#include <QAbstractButton>
#include <QLabel>
#include <QTableView>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

using namespace oldregister;
using namespace Qt::StringLiterals;

namespace {

constexpr auto yesNo = QMessageBox::Yes | QMessageBox::No;

void press(QWidget& window, const char* text) {
    for (auto* button : window.findChildren<QAbstractButton*>())
        if (button->text().remove(u'&') == QString::fromUtf8(text))
            return support::press(*button);
    ADD_FAILURE() << "no button " << text;
}

QString cell(QWidget& window, const char* list, int row, int column) {
    return window.findChild<QTableWidget*>(QString::fromLatin1(list))->item(row, column)->text();
}

class Offer : public testing::Test {
  protected:
    Offer() { files::write(path("tvk.mdb"), sample::bytes()); }

    QString path(const char* name) const { return directory.filePath(QString::fromUtf8(name)); }
    void expectQuestion(QMessageBox::StandardButton answer,
                        const QString& kept = u"tvk_povodny.mdb"_s,
                        const QString& protection = {}) {
        boxes.expectAsked(
            u"Súbor tvk.mdb je v pôvodnom formáte. Previesť ho?\n\n"
            "Všetky údaje sa prenesú do nového súboru tvk.mdb. Pôvodný súbor ostane "
            "nezmenený "
            "vedľa neho ako %1. Po prevode uvidíte, čo sa prenieslo a čo nie.\n\n%2"
            "Ak odpoviete Nie, nič sa nezmení a program sa ukončí."_s.arg(kept, protection),
            u"Upozornenie"_s, QMessageBox::Question, yesNo, answer);
    }
    void expectWindow(const char* name, const std::function<void(QWidget&)>& drive) {
        boxes.expect(support::ExpectedWindow{QString::fromUtf8(name), drive});
    }
    void start() {
        window.open();
        EXPECT_TRUE(!window.isVisible() || QTest::qWaitForWindowExposed(&window));
    }
    QTemporaryDir directory;
    store::DBEngine engine;
    const store::ProgramFolder folder{directory.path()};
    int runsEnded = 0;
    const mainwindow::Surroundings around{engine,
                                          folder,
                                          [] { return QDate(2006, 10, 1); },
                                          [](mainwindow::Screen, mainwindow::FrmUvod&) {},
                                          [this] { ++runsEnded; },
                                          offerTakeOver};
    support::ScriptedBoxes boxes;
    mainwindow::FrmUvod window{around};
};

} // namespace

TEST_F(Offer, GoesOnWithTheNewRegisterOnYes) {
    expectQuestion(QMessageBox::Yes);
    expectWindow("dlgPrevod", [](QWidget&) {});
    expectWindow("frmPrevod", [this](QWidget& report) {
        EXPECT_EQ(report.findChild<QLabel*>(u"lblPrevod"_s)->text().toStdString(),
                  "Prevod sa skončil. Prečítaných riadkov: 536, zapísaných: 536.\n"
                  "Pôvodný súbor ostal nezmenený ako tvk_povodny.mdb, táto správa leží vedľa neho "
                  "ako tvk_prevod.txt.\nČo sa nedalo preniesť tak, ako bolo, počet: 2");
        EXPECT_EQ(cell(report, "lstTabulky", 0, 0) + cell(report, "lstTabulky", 0, 2),
                  u"Klienti (k_zaklad)40"_s);
        EXPECT_EQ(cell(report, "lstVynimky", 0, 1), u"Chyby vloženia"_s);
        static_cast<ReportWindow&>(report).saveAs(path("moja.txt"));
        press(report, "Pokračovať");
    });
    start();
    EXPECT_TRUE(window.isVisible());
    window.ukazKlientov();
    EXPECT_EQ(window.findChild<QTableView*>(u"dbgKlient"_s)->model()->rowCount(), 40);
    EXPECT_EQ(files::read(path("moja.txt")), files::read(path("tvk_prevod.txt")));
}

TEST_F(Offer, TellsThatAPasswordLocksNothingAndUnderWhichNameTheFileIsKept) {
    files::write(path("tvk.mdb"), sample::withPassword(sample::bytes()));
    files::write(path("tvk_povodny.mdb"), "dávne");
    const auto words =
        u"Pôvodný súbor má heslo. V jeho formáte to nič nezamyká: údaje prečíta každý, kto súbor "
        "má, aj bez hesla. Ani nový register heslo nemá."_s;
    expectQuestion(QMessageBox::Yes, u"tvk_povodny_2.mdb"_s, words + u"\n\n"_s);
    expectWindow("dlgPrevod", [](QWidget&) {});
    expectWindow("frmPrevod", [&](QWidget& report) {
        EXPECT_TRUE(report.findChild<QLabel*>(u"lblPrevod"_s)->text().contains(words));
        press(report, "Pokračovať");
    });
    start();
    EXPECT_TRUE(QString::fromUtf8(files::read(path("tvk_prevod.txt"))).contains(words));
}

TEST_F(Offer, ChangesNothingOnNoOrWhenTheConversionIsBrokenOff) {
    for (const auto answer : {QMessageBox::No, QMessageBox::Yes}) {
        expectQuestion(answer);
        if (answer == QMessageBox::Yes)
            expectWindow("dlgPrevod", [](QWidget& progress) { press(progress, "Zrušiť"); });
        start();
        boxes.allCame();
        EXPECT_FALSE(window.isVisible());
        EXPECT_EQ(std::exchange(runsEnded, 0), 1);
        EXPECT_EQ(files::namesIn(directory.path()), QStringList{u"tvk.mdb"_s});
        EXPECT_EQ(files::read(path("tvk.mdb")), sample::bytes());
    }
}

TEST_F(Offer, TellsWhyAFileCannotBeTakenOver) {
    QByteArray bytes = sample::bytes();
    files::write(path("tvk.mdb"), bytes.first(bytes.size() / 2));
    expectQuestion(QMessageBox::Yes);
    expectWindow("dlgPrevod", [](QWidget&) {});
    boxes.expectTold(u"Prevod sa nepodaril. Súbor je neúplný: chýba jeho koniec.\n\n"
                     "Pôvodný súbor sa nezmenil."_s,
                     u"Chybová správa"_s, QMessageBox::Critical);
    start();
    EXPECT_EQ(runsEnded, 1);
    boxes.allCame();

    bytes[0x14] = 0;
    files::write(path("tvk.mdb"), bytes);
    boxes.expectTold(u"Súbor je v staršej verzii pôvodného formátu (Jet 3), ktorá sa nedá "
                     "previesť.\n\nPôvodný súbor sa nezmenil."_s,
                     u"Chybová správa"_s, QMessageBox::Critical);
    boxes.expectTold(u"Program nemôže pracovať, je nutný reštart počítača !"_s, {},
                     QMessageBox::Warning);
    start();
}

TEST_F(Offer, PrintsTheReport) {
    ConversionReport report;
    report.tables = {{u"k_zaklad"_s, 40, 40, 39}};
    report.findings = {{u"NOVÁKJÁ00 (Ján Novák)"_s, u"k_zaklad"_s, u"kľúč sa opakuje"_s,
                        u"slovo "_s.repeated(2000)}};
    const report::Pages pages = pagesOf(report, {2006, 10, 1});
    EXPECT_GT(pages.pages.size(), 1U);
    QStringList words;
    for (const report::Page& page : pages.pages)
        for (const report::PlacedText& text : page.texts)
            words += text.text;
    const QString all = words.join(u' ');
    EXPECT_EQ(all.count(u"slovo"_s), 2000);
    EXPECT_TRUE(all.contains(u"NOVÁKJÁ00 (Ján Novák)"));
    EXPECT_TRUE(all.contains(u"Klienti (k_zaklad) 40 39"));
}
