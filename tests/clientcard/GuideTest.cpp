// The card tells its user where he is, what there is and what to do next.
#include "CardScreen.h"
#include "forms/RowList.h"

#include <QLabel>

using cardtest::CardTest;
using cardtest::text;
using enum QMessageBox::StandardButton;

namespace {

struct GuideTest : CardTest {
    /// What stands beside the caption of each tab, one behind the other.
    QString contents() {
        QStringList shown;
        for (int tab = 0; tab < tabs().count(); ++tab)
            shown += tabs().item(tab)->data(Qt::UserRole).toString();
        return shown.join(u' ').simplified();
    }
    QString said(int tab) {
        return tabs().item(tab)->data(Qt::AccessibleDescriptionRole).toString();
    }
    QString line(const char* label) {
        auto& found = at<QLabel>(label);
        return found.isVisible() ? found.text() : QString();
    }
};

} // namespace

TEST_F(GuideTest, TheWayOfANewClientToTheLockedTabs) {
    open();
    EXPECT_EQ(contents(), QString());
    for (const int mandatory : {0, 1, 6})
        EXPECT_TRUE(field(mandatory).accessibleDescription().endsWith(text("povinný údaj")));
    EXPECT_TRUE(line("lblKlavesy").startsWith(text("* povinný údaj")));
    EXPECT_TRUE(line("lblKlavesy").endsWith(text("Alt+D zapíše základné údaje")));
    EXPECT_TRUE(said(13).contains(text("Alt+D")) && !line("lblZamok").isEmpty());
    goTo(4);
    type("x");
    key(Qt::Key_5, Qt::AltModifier);
    key(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(tabs().currentRow(), 0);
    EXPECT_EQ(focused(), text("textKrz(4)")) << "not left for a tab that is locked";
    field(4).clear();
    goTo(0);
    enter({"jana", "novotna"});
    enterInto(6, "17");
    goTo(18);
    keys("3R5R");
    EXPECT_EQ(at("textPosKSlovom").text(), text("sluchové, pridružené: rečové"));
    EXPECT_EQ(focused(), text("textKrz(19)"));
    keys("R");
    EXPECT_EQ(focused(), text("textKrz(19)")) << "one more may follow";
    keys("R");
    EXPECT_EQ(focused(), text("cmdZaklUd"));
    keys("R");
    EXPECT_EQ(line("lblZapisane"), text("Klient Jana Novotna je zapísaný."));
    EXPECT_EQ(line("lblZamok"), QString());
    EXPECT_EQ(contents(), text("0 0 0 0 0 0"));
    key(Qt::Key_5, Qt::AltModifier);
    EXPECT_EQ(tabs().currentRow(), 13);
    EXPECT_EQ(line("lblZapisane"), QString());
    key(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(focused(), text("textKrz(0)")) << "round";
    EXPECT_TRUE(line("lblKlavesy").endsWith(text("Ctrl+PageDown ďalšia záložka")));
    goTo(18);
    keys("RRR");
    EXPECT_EQ(focused(), text("textKrz(19)")) << "nowhere to lead to";
    click("cmdZapNew");
    EXPECT_EQ(line("lblZapisane"), text("Klient Jana Novotna je zapísaný."));
    EXPECT_EQ(contents(), QString());
}

TEST_F(GuideTest, TheTabsTellAtOnceWhatIsWritten) {
    insertClient("NOVOTNEV00");
    for (const char* kind : {"VYCH", "TVK"})
        reg.add(text("k_zariad"), {{u"idkod", text("NOVOTNEV00")}, {u"akronym", text(kind)}});
    reg.execute({text("update k_memo set u_dieta = '<p>text</p>'")});
    open(text("NOVOTNEV00"));
    EXPECT_EQ(contents(), text("0 text 2 0 0 0 0"));
    EXPECT_TRUE(said(9).startsWith(text("2 záznamy")) && said(3).startsWith(text("text je")));
    key(Qt::Key_8, Qt::ControlModifier);
    type("poznamka");
    key(Qt::Key_5, Qt::AltModifier);
    EXPECT_EQ(contents(), text("0 text text* 2 0 0 0 0"));
    const auto writeVisit = [this](const char* date, const char* next, const char* button) {
        at("textNav(0)").setFocus();
        enter({date, next});
        click(button);
    };
    click("cmdNavNovy");
    EXPECT_TRUE(said(0).contains(text("záznam zapíše")));
    writeVisit("1.9.05", "1.10.05", "cmdNavSto");
    EXPECT_EQ(contents().right(7), text("0 0 0 0"));
    click("cmdNavNovy");
    writeVisit("1.9.05", "1.10.05", "cmdNavZapNew");
    EXPECT_EQ(contents().right(7), text("0 0 0 1"));
    key(Qt::Key_Escape);
    expectQuestion(text("Naozaj chceš vymazať zápis zo dňa: 01.09.2005 ?"),
                   text("Výmaz zápisu návštevy ") + modKontrola::gMenoKlienta, Yes);
    click("cmdNavVym");
    EXPECT_EQ(contents(), text("0 text text* 2 0 0 0 0"));
}

TEST_F(GuideTest, TheHintTellsTheKeysOfTheControlInFocus) {
    insertClient("NOVOTNEV00");
    reg.add(text("k_zariad"), {{u"idkod", text("NOVOTNEV00")},
                               {u"akronym", text("VYCH")},
                               {u"vzar_od", text("1.9.2005")}});
    open(text("NOVOTNEV00"));
    struct Case {
        int tab;
        const char *control, *hint;
    };
    for (const Case& c :
         {Case{0, "textKrz(2)", "Enter ďalšie pole  ·  F4 číselník  ·  PageDown na zápis"},
          Case{0, "dbcvolby(1)", "F4 rozbalí zoznam"}, Case{0, "textPosKSlovom", "šípky čítanie"},
          Case{0, "SSTab1", "šípky výber"}, Case{0, "CmdZap", "Enter stlačí"},
          Case{1, "optKrz(0)", "šípky alebo medzera voľba"},
          Case{3, "rtbDUK(3)", "Enter nový odsek"}, Case{9, "DBList2", "šípky výber"},
          Case{10, "cmdPzaNovy", "Enter stlačí"}}) {
        tabs().setCurrentRow(c.tab);
        at<QWidget>(c.control).setFocus();
        EXPECT_TRUE(line("lblKlavesy").startsWith(text(c.hint)))
            << c.control << ": " << line("lblKlavesy").toStdString();
    }
    const auto* ongoing = at<forms::RowList>("DBList2").model();
    EXPECT_EQ(ongoing->index(0, 0).data().toString(), QString());
    for (const int role : {int(Qt::AccessibleTextRole), int(Qt::ToolTipRole)})
        EXPECT_EQ(ongoing->index(0, 0).data(role).toString(), text("od 01.09.2005, trvá"));
    click("cmdPzaNovy");
    EXPECT_TRUE(line("lblKlavesy").startsWith(text("Enter nový odsek")));
    EXPECT_TRUE(line("lblKlavesy").endsWith(text("Esc storno záznamu")));
}
