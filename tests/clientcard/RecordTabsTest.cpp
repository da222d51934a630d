#include "RecordScreen.h"

using cardtest::Member;
using cardtest::members;
using cardtest::RecordTest;
using cardtest::text;
using cardtest::worker;
using enum QMessageBox::StandardButton;

TEST_F(RecordTest, AllTabsRunOneMachine) {
    for (const Member& member : members) {
        SCOPED_TRACE(member.table);
        turnTo(member);
        expectBrowse();
        press("Novy");
        expectEdit();
        expect(member.mandatory);
        press("Zap");
        expectState(true, entry(0).objectName());
        expect("Záznam je otvorený, najprv ho zapíš alebo stornuj !", "Upozornenie");
        EXPECT_FALSE(card->close());
        turnTabs(1);
        expectState(true, entry(0).objectName());
        key(Qt::Key_Escape);
        expectBrowse();
        EXPECT_EQ(count(), 0);

        press("Novy");
        fill(member.second);
        press("ZapNew");
        expectEdit();
        EXPECT_EQ(count(), 1);
        EXPECT_EQ(entry(0).text(), QString());
        fill(member.first);
        press("Zap");
        expectBrowse();
        EXPECT_EQ(lines(), text(member.lines));
        EXPECT_EQ(count("idkod = 'NOVOTNEV00'"), 2);
        EXPECT_EQ(list().row(), 0);

        const QString first = entry(0).text();
        pressLine(1);
        const QString second = entry(0).text();
        EXPECT_NE(first, second);
        press("Opr");
        expectEdit();
        keysIn(0, "E");
        expectBrowse();
        // Storno on the siblings leads to the first one.
        EXPECT_EQ(list().row(), member.tab == 2 ? 0 : 1);
        key(Qt::Key_End);
        press("Opr");
        press("Zap");
        expectBrowse();
        EXPECT_EQ(list().row(), member.keepsPlace ? 1 : 0);
        EXPECT_EQ(entry(0).text() == second, member.keepsPlace);

        key(Qt::Key_Home);
        for (const auto answer : {No, Yes}) {
            expectDeletion(answer);
            press("Vym");
            EXPECT_EQ(count(), answer == No ? 2 : 1);
            expectBrowse();
        }
        EXPECT_EQ(lines(), text(member.lines).section(u'|', 1));
    }
}

TEST_F(RecordTest, OneRecordADay) {
    for (const int tab : {10, 11, 12, 13}) {
        SCOPED_TRACE(tab);
        turnTo(tab);
        add(m->first);
        const char* taken = "Našiel sa záznam s rovnakým dátumom :1.9.2005";
        press("Novy");
        keysIn(0, "1.9.2005");
        expect(taken);
        key(Qt::Key_Return);
        EXPECT_EQ(focused(), entry(0).objectName());
        expect(taken);
        press(button("Zap"));
        EXPECT_EQ(focused(), entry(0).objectName());
        EXPECT_EQ(count(), 1);
        if (tab == 13) {
            fill({{0, "5.9.2005"}});
            keysIn(1, "1.9.2005");
            expect(taken);
            key(Qt::Key_Return);
        }
        key(Qt::Key_Escape);

        press("Opr");
        keysIn(0, "R");
        EXPECT_EQ(focused(), entry(1).objectName()) << "the record's own date";
        // What a key has passed is not asked about again until the card closes.
        entry(0).setFocus();
        fill({{0, "nikdy"}});
        key(Qt::Key_Tab);
        EXPECT_EQ(entry(0).text(), text("nikdy"));
        key(Qt::Key_Escape);
        expectBrowse();
        EXPECT_EQ(lines(), text("01.09.2005"));
    }
}

TEST_F(RecordTest, TheWorkerOfARecord) {
    addEmployee("KRALJAEV00", "Eva", "Kralova");
    for (const auto& [tab, field, pick] :
         {std::tuple{10, 1, "DBCPza"}, {12, 1, "DBCZaz"}, {11, 3, "DBCZsc"}}) {
        SCOPED_TRACE(tab);
        turnTo(tab);
        add({{0, "1.9.2005"}, {field, "kraljaev00"}});
        EXPECT_EQ(value("idkod_p"), text("KRALJAEV00")) << "typed and accepted";
        EXPECT_EQ(at<forms::DropDown>(pick).text(), text("KRALJAEV00|Kralova  Eva"));
        // Of an edited record only the field counts.
        edit({{field, "adamovev00"}});
        EXPECT_EQ(value("idkod_p"), text("ADAMOVEV00")) << "completed as the list has it";
        // A pick counts, whatever is typed behind it.
        press("Opr");
        keysIn(field, "FnovR");
        EXPECT_EQ(focused(), entry(field).objectName());
        EXPECT_EQ(entry(field).text(), text(worker));
        fill({{field, "KRALJAEV00"}});
        press("Zap");
        EXPECT_EQ(value("idkod_p"), text(worker));
        edit({{field, "KRALJAEV00"}});
        EXPECT_EQ(value("idkod_p"), text("KRALJAEV00")) << "the pick is forgotten";
        // A new record takes the employee at whom the list stands, not the text of the field.
        press("Novy");
        fill({{0, "2.9.2005"}, {field, worker}});
        key(Qt::Key_Return);
        fill({{field, "KRALJAEV00"}});
        press("Zap");
        EXPECT_EQ(count("idkod_p = 'NOVAKJA00'"), 1);
        press("Novy");
        fill({{0, "3.9.2005"}, {field, ""}});
        keys("FnovR");
        fill({{field, "ADAMOVEV00"}});
        key(Qt::Key_Return);
        press("Zap");
        EXPECT_EQ(count("idkod_p = 'ADAMOVEV00'"), 1) << "typed behind a pick";
        // Esc in the pick gives the focus back and leaves the record open.
        press("Novy");
        keysIn(field, "FE");
        EXPECT_EQ(focused(), entry(field).objectName());
        EXPECT_TRUE(std::exchange(modKontrola::gZVyberu, false));
        key(Qt::Key_Escape);
        expectBrowse();
    }
}

TEST_F(RecordTest, ThePickNeedsEmployees) {
    reg.execute({text("delete from zamestnanci")});
    turnTo(10);
    press("Novy");
    entry(1).setFocus();
    for (const bool byKey : {true, false}) {
        expect("Chýba zoznam zamestnancov ! ", "");
        byKey ? key(Qt::Key_F4) : press(at<forms::DropDown>("DBCPza"));
        EXPECT_EQ(focused(), entry(1).objectName());
    }
}

TEST_F(RecordTest, ARecordThatIsGoneIsNotOpened) {
    turnTo(10);
    add(m->first);
    reg.execute({text("delete from k_vysetrenie")});
    expectEngineError("Chyba č. 3167\n\nZáznam bol vymazaný.");
    press("Opr");
    EXPECT_FALSE(button("Zap").isEnabled());
    EXPECT_FALSE(entry(0).isEnabled());
    EXPECT_TRUE(isEnabled(0));
}

TEST_F(RecordTest, TheSecondMandatoryField) {
    const char* noWorker = "Meno psychológa je povinný údaj !";
    for (const auto& [tab, field, message] :
         {std::tuple{10, 1, noWorker},
          {11, 3, noWorker},
          {12, 1, noWorker},
          {13, 1, "Dátum budúcej návštevy je povinný údaj !"}}) {
        SCOPED_TRACE(tab);
        turnTo(tab);
        press("Novy");
        fill({{0, "1.9.2005"}, {field, ""}});
        expect(message);
        press("ZapNew");
        expectState(true, entry(field).objectName());
        EXPECT_EQ(count(), 0);
    }
}
