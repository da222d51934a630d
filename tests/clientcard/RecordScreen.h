#pragma once

#include "CardScreen.h"
#include "forms/RowList.h"

#include <algorithm>
#include <tuple>
#include <utility>
#include <vector>

namespace cardtest {

/// What is typed into a field of a record.
struct Typed {
    int field;
    const char* text;
};
using Record = std::vector<Typed>;

/// A tab of records as its users see it, with two records that differ.
struct Member {
    int tab;
    const char *table, *list, *buttons, *fields;
    /// Where the focus is when a record is opened.
    const char* opensOn;
    Record first, second;
    /// The lines of the list after both were written, and the current one after each was edited.
    const char* lines;
    bool keepsPlace;
    /// The message of an empty record, and the question before the first is deleted.
    const char *mandatory, *title, *question;
};

inline constexpr const char* worker = "NOVAKJA00";

// clang-format off
inline const std::vector<Member> members = {
    {2, "k_surodenci", "DBList1", "cmdSur", "textSur", "textSur(0)",
     {{0, "adam mal"}, {1, "1999"}}, {{0, "bea mala"}, {2, "z"}},
     "Adam Mal|Bea Mala", true, "Meno je povinný údaj !", "",
     "Naozaj chceš vymazať súrodenca : Adam Mal ?"},
    {9, "k_zariad", "DBList2", "cmdZar", "textZar", "textZar(0)",
     {{0, "05"}, {2, "1.9.05"}, {3, "30.6.06"}}, {{0, "07"}, {2, "1.9.06"}, {3, "30.6.07"}},
     "01.09.2005 - 30.06.2006|01.09.2006 - 30.06.2007", true,
     "Názov zariadenia je povinný údaj !", "Výmaz zariadenia klienta",
     // The facility that was looked up last, not the record's.
     "Naozaj chceš vymazať zariadenie : Skola  01.09.2005 - 30.06.2006 ?"},
    {10, "k_vysetrenie", "DBList3", "cmdPza", "TextPza", "rtbPza",
     {{0, "1.9.05"}, {1, worker}}, {{0, "2.9.2005"}, {1, worker}},
     "01.09.2005|02.09.2005", true, "Dátum je povinný údaj !",
     "Výmaz priebehu a záverov špec.-ped.vyšetrenia",
     "Naozaj chceš vymazať záznam o vyšetrení zo dňa: 01.09.2005  Novotna  Eva ?"},
    {11, "k_zaznam_spc", "DBList5", "cmdZsc", "textZsc", "rtbZsc",
     {{0, "1.9.05"}, {3, worker}}, {{0, "2.9.2005"}, {1, "08:30"}, {3, worker}},
     "01.09.2005|02.09.2005", false, "Dátum je povinný údaj !",
     "Výmaz záznamu o špec.-ped.činnosti ",
     "Naozaj chceš vymazať zaznamenané zmeny zo dňa: 01.09.2005  Novotna  Eva ?"},
    {12, "k_zaznam_zmeny", "DBList4", "cmdZaz", "TextZaz", "rtbZaz",
     {{0, "1.9.05"}, {1, worker}}, {{0, "2.9.2005"}, {1, worker}},
     "01.09.2005|02.09.2005", false, "Dátum je povinný údaj !", "Výmaz záznamu o zmene",
     "Naozaj chceš vymazať zaznamenané zmeny zo dňa: 01.09.2005  Novotna  Eva ?"},
    {13, "k_navstevy", "DBList6", "cmdNav", "textNav", "textNav(0)",
     {{0, "1.9.05"}, {1, "8.9.05"}}, {{0, "2.9.2005"}, {1, "9.9.2005"}},
     "01.09.2005|02.09.2005", false, "Dátum návštevy je povinný údaj !",
     "Výmaz zápisu návštevy ", "Naozaj chceš vymazať zápis zo dňa: 01.09.2005 ?"},
};
// clang-format on

class RecordTest : public CardTest {
  protected:
    RecordTest() {
        insertClient("NOVOTNEV00");
        addEmployee("ADAMOVEV00", "Eva", "Adamova");
        addEmployee(worker, "Jan", "Novak");
        for (const char* row :
             {"'05', 'Trieda', 'VYCH'", "'07', 'Skola', 'VYCH'", "'21', 'Poradna', 'TVK'"})
            insert(qPrintable(text("c_zariad (kod, nazov, akronym) values (%1)").arg(text(row))));
        modKontrola::gMenoKlienta = text(" : Eva  Novotna");
    }

    void addEmployee(const char* key, const char* name, const char* surname) {
        reg.add(text("zamestnanci"),
                {{u"idkod", text(key)}, {u"meno", text(name)}, {u"priezv", text(surname)}});
    }
    void turnTo(int tab) { turnTo(*std::ranges::find(members, tab, &Member::tab)); }
    /// Turns to a member's tab by the keys.
    void turnTo(const Member& to) {
        m = &to;
        open(text("NOVOTNEV00"));
        while (tabs().currentRow() < to.tab)
            turnTabs(1);
    }
    QPushButton& button(const char* name) {
        const bool isDelete = text(name) == text("Vym") && m->tab == 2;
        return at<QPushButton>(qPrintable(text(isDelete ? "CmdSur" : m->buttons) + text(name)));
    }
    void press(const char* name) {
        CardTest::press(button(name));
        // The platform of the tests forgets who was active before a drop-down.
        if (card->isVisible())
            card->activateWindow();
    }
    using CardTest::press;
    void pressLine(int line) {
        const QRect rect = list().visualRect(list().model()->index(line, 0));
        support::press(*list().viewport(), rect.center());
    }
    forms::EntryField& entry(int index) {
        return at(qPrintable(QStringLiteral("%1(%2)").arg(text(m->fields)).arg(index)));
    }
    forms::RowList& list() { return at<forms::RowList>(m->list); }
    QString lines() {
        QStringList all;
        for (int line = 0; line < list().count(); ++line)
            all += list().itemText(line);
        return all.join(u'|');
    }
    void fill(const Record& record) {
        for (const Typed& typed : record) {
            entry(typed.field).setFocus();
            entry(typed.field).selectAll();
            type(typed.text);
        }
    }
    void keysIn(int field, const char* pressed) {
        entry(field).setFocus();
        keys(pressed);
    }
    void add(const Record& record) { save("Novy", record); }
    void edit(const Record& record) { save("Opr", record); }
    void save(const char* openedBy, const Record& record) {
        press(openedBy);
        fill(record);
        press("Zap");
    }
    /// How many records there are, or those that meet a condition.
    qint64 count(const char* condition = "true") {
        return reg.count(text("select * from %1 where %2").arg(text(m->table), text(condition)));
    }
    QString value(const char* column) { return stored(column, m->table); }
    /// The question before the first record is deleted.
    void expectDeletion(QMessageBox::StandardButton answer, const char* facility = "Skola") {
        const QString title = text(m->title);
        expectQuestion(text(m->question).replace(text("Skola"), text(facility)),
                       title.isEmpty() ? title : title + modKontrola::gMenoKlienta, answer);
    }
    /// All that must be on or off, and where the focus is.
    void expectState(bool editing, const QString& focus) {
        const bool rows = list().count() > 0;
        for (const auto& [name, on] : {std::pair{"Novy", !editing},
                                       {"Opr", !editing && rows},
                                       {"Vym", !editing && rows},
                                       {"Zap", editing},
                                       {"ZapNew", editing},
                                       {"Sto", editing}})
            EXPECT_EQ(button(name).isEnabled(), on) << name;
        for (const char* name : {"CmdZap", "cmdZapNew", "cmdStorno"})
            EXPECT_EQ(at<QPushButton>(name).isEnabled(), !editing) << name;
        for (int tab = 0; tab < 14; ++tab)
            EXPECT_EQ(isEnabled(tab), !editing || tab == m->tab) << tab;
        EXPECT_EQ(list().isEnabled(), !editing);
        EXPECT_EQ(entry(0).isEnabled(), editing);
        if (auto* rich = card->findChild<forms::RichText*>(text(m->opensOn))) {
            EXPECT_EQ(rich->editor().isReadOnly(), !editing);
        }
        EXPECT_EQ(focused(), focus);
    }
    void expectBrowse() {
        expectState(false, count() > 0 ? text(m->list) : text(m->buttons) + text("Novy"));
    }
    void expectEdit() { expectState(true, text(m->opensOn)); }

    const Member* m = nullptr;
};

} // namespace cardtest
