#include "RecordScreen.h"

#include <QGroupBox>

using cardtest::Member;
using cardtest::members;
using cardtest::RecordTest;
using cardtest::text;
using enum QMessageBox::StandardButton;

TEST_F(RecordTest, KeysWalkThroughTheFields) {
    struct Step {
        int tab, from;
        Qt::Key key;
        const char* to;
    };
    insert("k_surodenci (idkod, meno, postih) values ('NOVOTNEV00', 'Adam', '35')");
    for (const Step& step :
         {Step{10, 0, Qt::Key_Up, "rtbPza"}, Step{10, 0, Qt::Key_Return, "TextPza(1)"},
          Step{10, 1, Qt::Key_Down, "TextPza(1)"}, Step{10, 1, Qt::Key_PageUp, "cmdPzaZap"},
          Step{12, 0, Qt::Key_Up, "rtbZaz"}, Step{12, 1, Qt::Key_PageDown, "cmdZazZap"},
          Step{11, 0, Qt::Key_Up, "rtbZsc"}, Step{11, 2, Qt::Key_Down, "textZsc(3)"},
          Step{11, 3, Qt::Key_Return, "textZsc(3)"}, Step{11, 3, Qt::Key_PageDown, "cmdZscZap"},
          Step{13, 0, Qt::Key_Up, "textNav(0)"}, Step{9, 0, Qt::Key_Up, "textZar(0)"},
          Step{9, 3, Qt::Key_Return, "textZar(3)"}, Step{2, 0, Qt::Key_Up, "textSur(0)"},
          Step{2, 4, Qt::Key_Return, "textSur(5)"}, Step{2, 5, Qt::Key_Up, "textSur(4)"},
          Step{10, 1, Qt::Key_F4, "DBCPza"}, Step{9, 0, Qt::Key_F4, "dbcZar"},
          Step{2, 2, Qt::Key_F4, "cmbSur(0)"}, Step{2, 4, Qt::Key_F4, "cmbSur(1)"},
          Step{2, 5, Qt::Key_F4, "cmbSek(3)"},
          // These ask a disabled button for the focus.
          Step{13, 1, Qt::Key_PageDown, "textNav(1)"}, Step{9, 2, Qt::Key_PageDown, "textZar(2)"},
          Step{2, 1, Qt::Key_PageUp, "textSur(1)"}}) {
        SCOPED_TRACE(testing::Message() << step.tab << ", " << step.from << " by " << step.key);
        turnTo(step.tab);
        press(step.tab == 2 ? "Opr" : "Novy");
        if (step.tab == 2 && step.from == 5)
            keysIn(4, "R");
        entry(step.from).setFocus();
        key(step.key);
        EXPECT_EQ(focused(), text(step.to));
        closeList();
        key(Qt::Key_Escape);
        if (step.key == Qt::Key_F4) {
            EXPECT_EQ(focused(), entry(step.from).objectName());
            key(Qt::Key_Escape);
        }
        expectBrowse();
    }
}

TEST_F(RecordTest, PlacementsAreShownByKind) {
    insert("k_zariad (idkod, akronym, nazzar, vzar_od) "
           "values ('NOVOTNEV00', 'VYCH', '05', #09/01/2004#)");
    turnTo(9);
    EXPECT_EQ(lines(), QString()) << "a placement that lasts has an empty line";
    EXPECT_EQ(list().count(), 1);
    EXPECT_EQ(at<forms::DropDown>("dbcZar").text(), text("05  |  Trieda"));
    press(at<QRadioButton>("optZarTvk"));
    expectState(false, text("cmdZarNovy"));
    EXPECT_EQ(list().count(), 0);

    press("Novy");
    EXPECT_FALSE(at<QGroupBox>("Frame4").isVisible());
    keys("F2R");
    EXPECT_EQ(entry(0).text(), text("21"));
    enter({"", "dlha 1"});
    EXPECT_EQ(entry(1).text(), text("Dlha 1"));
    press("Zap");
    expectState(false, text("DBList2"));
    EXPECT_TRUE(at<QGroupBox>("Frame4").isVisible());
    EXPECT_EQ(count("akronym='TVK' and nazzar='21' and isnull(vzar_od) and isnull(vzar_do)"), 1);
    press("Opr");
    EXPECT_EQ(entry(0).selectedText(), text("21"));
    fill({{3, "30.6.06"}});
    press("Zap");
    press("Opr");
    keysIn(3, "X");
    press("Zap");
    EXPECT_EQ(count("isnull(vzar_do)"), 2);
    // A change of tab keeps the kind on show.
    for (const int by : {-1, 1})
        turnTabs(by);
    EXPECT_EQ(entry(0).text(), text("21"));
    press(at<QRadioButton>("optZarVv"));
    EXPECT_EQ(entry(0).text(), text("05"));
}

TEST_F(RecordTest, WhereLeavingAFieldChecksNothing) {
    // Storno by the mouse escapes the check on two tabs, on the others only by Esc.
    for (const auto& [tab, field] : {std::pair{9, 2}, {10, 0}, {11, 0}, {12, 0}, {13, 1}}) {
        SCOPED_TRACE(tab);
        turnTo(tab);
        press("Novy");
        fill({{field, "x"}});
        if (tab != 9) {
            expectWrongDate(Retry);
            press("Sto");
            expectState(true, entry(field).objectName());
            key(Qt::Key_Escape);
        } else {
            press("Sto");
        }
        expectBrowse();
        EXPECT_EQ(count(), 0);
    }
    // Towards the pick the code of the facility is not checked, a date is, even after a key was.
    turnTo(9);
    press("Novy");
    fill({{0, "99"}});
    press(at<forms::DropDown>("dbcZar"));
    EXPECT_EQ(focused(), text("dbcZar"));
    fill({{0, "05"}, {2, "1.9.05"}});
    keys("UDRR");
    fill({{3, "x"}});
    expectWrongDate(Retry);
    press(at<forms::DropDown>("dbcZar"));
    EXPECT_EQ(focused(), text("textZar(3)"));
}

TEST_F(RecordTest, SiblingsAreKnownByName) {
    insert("k_surodenci (idkod, meno) values ('MALYJA00', 'Adam Mal')");
    turnTo(2);
    add({{0, "adam mal"}});
    EXPECT_EQ(count("meno = 'Adam Mal'"), 2);
    press("Novy");
    fill({{0, "adam mal"}});
    for (const bool byKey : {true, false}) {
        expect("Súrodenec s rovnakým menom :Adam Mal už je zapísaný");
        byKey ? key(Qt::Key_Return) : press("Zap");
        EXPECT_EQ(focused(), text("textSur(0)"));
    }
    fill({{0, "d'arc jan'a mal"}});
    key(Qt::Key_Return);
    EXPECT_EQ(entry(0).text(), text("D'arc Jan'a mal"));
    press("Zap");
    EXPECT_EQ(lines(), text("Adam Mal|D'arc Jan'a mal"));
    press("Opr");
    key(Qt::Key_Return);
    EXPECT_EQ(focused(), text("textSur(1)")) << "its own name";
}

TEST_F(RecordTest, ImpairmentsOfASibling) {
    for (const auto& [before, none] : {std::pair{"", false}, {"357", false}, {"357", true}}) {
        SCOPED_TRACE(before);
        reg.execute({text("delete from k_surodenci")});
        insert(qPrintable(text("k_surodenci (idkod, meno, postih) values "
                               "('NOVOTNEV00', 'A', '%1')")
                              .arg(text(before))));
        turnTo(2);
        // Which picks are on show.
        const auto picks = [&] {
            QString shown;
            for (const char* pick : {"cmbSur(0)", "cmbSur(1)", "cmbSek(3)"})
                shown += at<forms::DropDown>(pick).isVisible() ? u'+' : u'-';
            return shown + (entry(5).isEnabled() ? u'5' : u'.');
        };
        EXPECT_EQ(picks(), text("---."));
        press("Opr");
        EXPECT_EQ(picks(), text(*before != '\0' ? "+++5" : "++-."));
        if (none) {
            at<forms::DropDown>("cmbSur(1)").setFocus();
            keys("HR");
            EXPECT_EQ(picks(), text("++-."));
        }
        press("Zap");
        EXPECT_EQ(value("postih"), text(none ? "        " : before));
        EXPECT_EQ(picks(), text("---."));
        press("Opr");
        press("ZapNew");
        EXPECT_EQ(picks(), text("++-."));
        EXPECT_EQ(at("textPosS(0)").text(), QString());
        key(Qt::Key_Escape);
    }
}

TEST_F(RecordTest, TheNextClientBeginsWithoutRecords) {
    for (const int tab : {2, 9, 10, 11, 12, 13}) {
        turnTo(tab);
        add(m->first);
    }
    turnTo(13);
    press(at<QPushButton>("cmdZapNew"));
    enter({"ema", "mala"});
    enterInto(6, "77");
    pressByKeys("cmdZaklUd");
    for (int tab = 1; tab < 14; ++tab) {
        turnTabs(1);
        const auto member = std::ranges::find(members, tab, &Member::tab);
        if (member == members.end())
            continue;
        m = &*member;
        EXPECT_EQ(list().count(), 0) << tab;
        EXPECT_EQ(focused(), text(m->buttons) + text("Novy"));
    }
    add(m->first);
    EXPECT_EQ(count("idkod = 'MALAEM00'"), 1);
}
