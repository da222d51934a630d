#include "RecordScreen.h"

#include <QLabel>

using cardtest::RecordTest;
using cardtest::text;
using enum QMessageBox::StandardButton;

namespace {

class FieldFaultsTest : public RecordTest {
  protected:
    /// The lines that name dates which are none, on the tab on show.
    QString calendarNote() {
        QStringList shown;
        for (const auto* label : card->findChildren<QLabel*>(text("lblKalendar")))
            shown += label->isVisible() ? label->text() : QString();
        return shown.join(QString());
    }
};

} // namespace

TEST_F(FieldFaultsTest, WhatAPickShowsWhenItIsLeftIsStored) {
    addCode("c_narodn", "02", "madarska");
    addCode("c_narodn", "03", "romska");
    struct Case {
        const char *values, *pick, *pressed, *column, *stored;
    };
    for (const Case& c :
         {Case{"", "cmbPos(3)", "zT", "pohlav", "Z"}, Case{"", "cmbPos(3)", "DT", "pohlav", "M"},
          Case{"pohlav = 'Z'", "cmbPos(3)", "FmE", "pohlav", "Z"},
          Case{"", "cmbPos(2)", "3T", "postih", "3        "},
          Case{"postih = '3'", "cmbSek(0)", "9T", "postih", "39"},
          Case{"otepos = '3'", "cmbSek(2)", "9T", "otepos", "39"},
          Case{"narodn = '01'", "dbcvolby(1)", "FDDE", "narodn", "01"},
          Case{"narodn = '01'", "dbcvolby(1)", "DDE", "narodn", "01"},
          Case{"", "dbcvolby(8)", "2", "zdrpoi", "25"},
          Case{"kon_obe = 'Bab'", "dbcvolby(7)", "FDE", "kon_obe", "Bab"},
          Case{"", "dbcvolby(7)", "nT", "kon_obe", "Nitra"}}) {
        SCOPED_TRACE(testing::Message() << c.pick << " by " << c.pressed);
        openClient(c.values);
        auto& pick = at<forms::DropDown>(c.pick);
        if (!pick.isVisible())
            turnTabs(1);
        pick.setFocus();
        keys(c.pressed);
        card->activateWindow();
        click("CmdZap");
        EXPECT_EQ(stored(c.column), text(c.stored));
    }
    turnTo(10);
    for (const auto& [pressed, worker] : {std::pair{"novT", "NOVAKJA00"}, {"FDDE", ""}}) {
        press("Novy");
        keysIn(0, "1.9.2005");
        at<forms::DropDown>("DBCPza").setFocus();
        keys(pressed);
        EXPECT_EQ(entry(1).text(), text(worker));
        entry(0).setFocus();
        card->activateWindow();
        key(Qt::Key_Escape);
    }
}

TEST_F(FieldFaultsTest, ATypedDigitOfASiblingIsTakenWhereverTheFocusGoes) {
    for (const auto& [pressed, after] : {std::pair{"0R", "        "},
                                         {"0T", "        "},
                                         {"R", "35"},
                                         {"3T", "35"},
                                         {"6", "6        "},
                                         {"6TTT9T", "69       "}}) {
        SCOPED_TRACE(pressed);
        reg.execute({text("delete from k_surodenci")});
        insert("k_surodenci (idkod, meno, postih) values ('NOVOTNEV00', 'Adam', '35')");
        turnTo(2);
        press("Opr");
        keysIn(4, pressed);
        press("Zap");
        EXPECT_EQ(value("postih"), text(after));
    }
}

TEST_F(FieldFaultsTest, AFieldIsCheckedOnceHoweverItIsLeft) {
    struct Case {
        int element;
        const char* typed;
        const char* refusal;
    };
    for (const Case& c : {Case{3, "8055120008", "Nesprávne rodné číslo ,opraviť ?"},
                          Case{2, "Xyz", "Zadaný reťazec :Xyz nie je v číselníku"}}) {
        for (const int code : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Tab, Qt::Key_PageDown}) {
            SCOPED_TRACE(testing::Message() << c.element << " by " << code);
            open();
            goTo(c.element);
            type(c.typed);
            boxes.expectAsked(text(c.refusal), text("Chybová správa"), QMessageBox::Warning,
                              Abort | Retry | Ignore, Ignore);
            key(code);
            EXPECT_NE(focused(), field(c.element).objectName());
            EXPECT_EQ(field(c.element).text(), text(c.typed));
        }
    }
    // Nothing is asked on the way to a pick.
    open();
    for (const auto& [element, pick] :
         {std::pair{2, "dbcvolby(0)"}, {8, "dbcvolby(1)"}, {5, "cmbPos(3)"}}) {
        enterInto(0, "");
        goTo(element);
        type("9");
        at<forms::DropDown>(pick).setFocus();
        EXPECT_EQ(focused(), text(pick));
        field(element).clear();
    }
}

TEST_F(FieldFaultsTest, ADateThatIsNoneIsToldWhereItStands) {
    const auto line = [](const char* date) {
        return text("%1 v kalendári nie je, do výkazu sa nezapočíta").arg(text(date));
    };
    const auto isMarked = [this](QWidget& widget) {
        return widget.palette().color(QPalette::Base) != field(0).palette().color(QPalette::Base);
    };
    openClient("datnar = '31.06.2018'");
    EXPECT_EQ(calendarNote(), line("31.06.2018"));
    EXPECT_TRUE(isMarked(field(4)));
    enterInto(17, "31.9.18");
    EXPECT_EQ(calendarNote(), line("31.06.2018") + u'\n' + line("31.9.2018"));
    enterInto(4, "30.6.2018");
    EXPECT_EQ(calendarNote(), line("31.9.2018"));
    EXPECT_FALSE(isMarked(field(4)));
    enterInto(3, "8013320007");
    goTo(17);
    keys("XR");
    EXPECT_EQ(calendarNote(), QString());
    // A record keeps such a text, however often it is edited.
    using Case = std::tuple<int, int, const char*>;
    for (const auto& [tab, index, column] :
         {Case{9, 2, "vzar_od"}, Case{9, 3, "vzar_do"}, Case{10, 0, "datum"}, Case{11, 0, "datum"},
          Case{12, 0, "datum"}, Case{13, 0, "datum"}, Case{13, 1, "dat_budn"}}) {
        SCOPED_TRACE(testing::Message() << tab << ", " << index);
        turnTo(tab);
        press("Novy");
        fill(m->second);
        fill({{index, "31.9.18"}});
        EXPECT_EQ(calendarNote(), QString()) << "while it is typed";
        // The line that comes when the field is left must not push the button away.
        for (const char* next : {"Opr", "Novy"}) {
            press("Zap");
            EXPECT_TRUE(isMarked(entry(index)));
            EXPECT_EQ(calendarNote(), line("31.9.2018"));
            EXPECT_EQ(value(column), text("31.9.2018"));
            press(next);
        }
        EXPECT_EQ(calendarNote(), QString());
        key(Qt::Key_Escape);
        reg.execute({text("delete from ") + text(m->table)});
    }
}

TEST_F(FieldFaultsTest, AWorkerCanBeNamed) {
    addEmployee("NOVÁKJÁ00", "Ján", "Novák");
    addEmployee("MALYJA00", "Jana", "Maly");
    addEmployee("MALYJA01", "Jana", "Malý");
    addEmployee("MALYJA02", "Jana", "Malý");
    for (const auto& [tab, index] : {std::pair{10, 1}, {12, 1}, {11, 3}}) {
        turnTo(tab);
        // By a key at first; from then on nothing is asked when the field is left.
        press("Novy");
        fill({{index, "eva adamova"}});
        key(Qt::Key_Return);
        EXPECT_EQ(entry(index).text(), text("ADAMOVEV00"));
        key(Qt::Key_Escape);
        for (const auto& [typed, key] : {std::pair{"Novák Ján", "NOVÁKJÁ00"},
                                         {"jan novak", "NOVAKJA00"},
                                         {"adamova eva", "ADAMOVEV00"},
                                         {"maly jana", "MALYJA00"}}) {
            SCOPED_TRACE(typed);
            add({{0, "1.9.2005"}, {index, typed}});
            EXPECT_EQ(value("idkod_p"), text(key));
            edit({{index, "Adamova"}});
            edit({{index, typed}});
            EXPECT_EQ(value("idkod_p"), text(key)) << "edited";
            reg.execute({text("delete from ") + text(m->table)});
        }
        press("Novy");
        entry(index).setFocus();
        type("Malý Jana");
        expectRefusal("Zadaný kód :Malý Jana sa nenašiel v číselníku", Cancel);
        key(Qt::Key_Return);
        EXPECT_EQ(entry(index).text(), QString());
        key(Qt::Key_Escape);
    }
}

TEST_F(FieldFaultsTest, TheRepresentativesOptionIsTheClients) {
    for (const auto& [relation, option] :
         {std::pair{"teta", -1}, {"matka", 4}, {"otec", 5}, {"teta", -1}}) {
        // The first row of the table is another client's.
        deleteClients();
        reg.add(text("k_zaklad"), {{u"idkod", text("ABAAA00")}, {u"kon_pomer", text("matka")}});
        insertClient("NOVOTNEV00", qPrintable(text("kon_pomer = '%1'").arg(text(relation))));
        open(text("NOVOTNEV00"));
        for (const int i : {4, 5, 6})
            EXPECT_EQ(at<QRadioButton>(qPrintable(text("optKrz(%1)").arg(i))).isChecked(),
                      i == option)
                << relation << ", " << i;
    }
}
