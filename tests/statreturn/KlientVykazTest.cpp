#include "statreturn/FrmKlientVykaz.h"
#include "statreturn/PeopleList.h"
#include "statreturn/ReturnRegister.h"
#include "store/FileBytes.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace statreturn;

namespace {

/// Three clients of the age of 7 with impairments of sight, one without one, an old one, and an
/// employee without a function; the window over them, driven by keys.
struct KlientVykazTest : testing::Test, ReturnRegister {
    KlientVykazTest() : ReturnRegister({u"prazdna"_s}) {
        addClient(u"ADAM"_s, u"4"_s, u"05"_s);
        addClient(u"BELA"_s, u"43"_s, u"16"_s);
        addClient(u"CILA"_s, u"4"_s, u"12"_s);
        addClient(u"DANA"_s, {}, u"05"_s);
        addClient(u"FERO"_s, u"9x"_s, u"99"_s, QDate(1980, 1, 1));
        reg.add(u"zamestnanci"_s, {{u"idkod", u"EMIL"_s}, {u"priezv", u"EMIL"_s}});
        reg.engine.commitPending();
        stored = bytes();
        window.emplace(
            tools.print, u"2006/2007"_s, today,
            [this](const Person& person, QWidget*) { return playCard(person); }, nullptr);
        window->show();
        activate();
    }
    void addClient(const QString& key, const store::Value& impairment, const QString& type,
                   const QDate& birth = QDate(2000, 5, 1)) {
        reg.add(u"k_zaklad"_s, {{u"idkod", key},
                                {u"priezv", key},
                                {u"datnar", birth},
                                {u"pohlav", u"Z"_s},
                                {u"postih", impairment}});
        for (const QDate& care : {QDate(2006, 8, 31), QDate(2007, 5, 1), QDate(2007, 3, 1)})
            reg.add(u"k_zaznam_spc"_s, {{u"idkod", key}, {u"datum", care}});
        reg.add(u"k_zariad"_s, {{u"idkod", key}, {u"akronym", u"VYCH"_s}, {u"nazzar", type}});
    }
    QByteArray bytes() const { return files::read(reg.folder.database()); }
    /// Without a window manager nobody brings the window back after another one.
    void activate() {
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&*window));
    }
    void keys(std::initializer_list<Qt::Key> codes, Qt::KeyboardModifiers modifiers = {}) {
        for (const Qt::Key code : codes)
            QTest::keyClick(window->windowHandle(), code, modifiers);
    }
    QString label(const char16_t* name) const {
        return window->findChild<QLabel*>(QString::fromUtf16(name))->text();
    }
    /// The lines of the list, their cells joined by "|".
    QStringList lines() const {
        QStringList lines;
        for (const QStringList& row : window->findChild<PeopleList*>()->table().rows)
            lines << row.join(u'|');
        return lines;
    }
    QString focused() const { return window->focusWidget()->objectName(); }
    QString playCard(const Person& person) {
        opened << person.key;
        return atCard ? atCard() : person.key;
    }

    QByteArray stored;
    QStringList opened;
    std::function<QString()> atCard;
    support::ScriptedBoxes boxes;
    std::optional<FrmKlientVykaz> window;
};

const QString adam = u"ADAM|01.05.2000|7|4 zrakové|05 Bežná trieda ZŠ|01.03.2007|0108"_s;
const QString bela =
    u"BELA|01.05.2000|7|4 zrakové, 3 sluchové|16 Bez ďalšieho vzdelávania|01.03.2007|0108"_s;
const QString cila = u"CILA|01.05.2000|7|4 zrakové|12 Stredná škola|01.03.2007|0108"_s;

TEST_F(KlientVykazTest, listsTheClientsBehindTheNumberOnWhichOneStands) {
    EXPECT_EQ(focused(), u"grdVek"_s);
    EXPECT_EQ(label(u"lblVyber"), u"Tabuľka I, riadok 0108 (7 - 8), stĺpec 1 spolu  ·  Počet: 3"_s);
    EXPECT_EQ(lines(), QStringList({adam, bela, cila}));
    for (int column = 1; column < 10; ++column)
        keys({Qt::Key_Right});
    EXPECT_EQ(label(u"lblVyber"),
              u"Tabuľka I, riadok 0108 (7 - 8), stĺpec 10 zrakové, dievčatá  ·  Počet: 2"_s);
    EXPECT_EQ(lines(), QStringList({adam, cila}));
    keys({Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(lines(), QStringList());
    EXPECT_EQ(focused(), u"grdVek"_s);
    for (int row = 9; row < 19; ++row)
        keys({Qt::Key_Down});
    keys({Qt::Key_Home});
    EXPECT_EQ(lines(), QStringList({u"FERO|01.01.1980|27|9 iné, x|99|01.03.2007|0119"_s}));
    keys({Qt::Key_PageDown}, Qt::ControlModifier);
    EXPECT_EQ(lines().size(), 1);
    keys({Qt::Key_End, Qt::Key_Home}, Qt::ControlModifier);
    keys({Qt::Key_End}, Qt::ControlModifier);
    keys({Qt::Key_Home, Qt::Key_Up});
    EXPECT_EQ(label(u"lblVyber"),
              u"Tabuľka II, riadok 0216 (Bez ďalšieho vzdelávania), stĺpec 1 spolu  ·  v tomto "
              "riadku sa klienti nepočítajú"_s);
    keys({Qt::Key_Down});
    EXPECT_EQ(lines().size(), 2);
    EXPECT_TRUE(lines()[1].endsWith(u"|0212"_s));
    EXPECT_EQ(bytes(), stored);
}

TEST_F(KlientVykazTest, opensTheCardAndCountsAfresh) {
    keys({Qt::Key_Right, Qt::Key_Return, Qt::Key_Down});
    EXPECT_EQ(focused(), u"lstKlienti"_s);
    atCard = [this] {
        reg.execute({u"update k_zaklad set postih = '' where idkod = 'ADAM'"_s,
                     u"update k_zaklad set idkod = 'BELKA' where idkod = 'BELA'"_s,
                     u"update k_zaznam_spc set idkod = 'BELKA' where idkod = 'BELA'"_s});
        return u"BELKA"_s;
    };
    keys({Qt::Key_Return});
    EXPECT_EQ(opened, QStringList({u"BELA"_s}));
    EXPECT_EQ(focused(), u"lstKlienti"_s);
    EXPECT_EQ(lines().size(), 2);
    EXPECT_EQ(window->findChild<PeopleList*>()->line(), 0);
    EXPECT_EQ(label(u"lblVyber"),
              u"Tabuľka I, riadok 0108 (7 - 8), stĺpec 2 Spolu, dievčatá  ·  Počet: 2"_s);
    atCard = [this] {
        reg.execute({u"delete from k_zaznam_spc"_s});
        return QString();
    };
    keys({Qt::Key_Return});
    EXPECT_EQ(lines().size(), 0);
    EXPECT_EQ(focused(), u"grdVek"_s);
}

TEST_F(KlientVykazTest, showsNothingWhenItCannotCountAfresh) {
    atCard = [this] {
        reg.execute({u"insert into c_zariad (kod,akronym) values ('17','VYCH')"_s});
        return QString();
    };
    boxes.expect({.text = u"Chyba č. 9\n\nTabuľka má miesto pre 16 druhov vzdelávania, v číselníku "
                          "ich je viac."_s,
                  .icon = QMessageBox::Critical});
    keys({Qt::Key_Return, Qt::Key_Return});
    activate();
    keys({Qt::Key_S, Qt::Key_P, Qt::Key_PageDown}, Qt::ControlModifier);
    EXPECT_EQ(lines(), QStringList());
    EXPECT_EQ(label(u"lblVyber"), QString());
    EXPECT_EQ(previews, 0);
}

TEST_F(KlientVykazTest, tellsWhoIsLeftOutAndOpensTheirCardsToo) {
    keys({Qt::Key_PageUp}, Qt::ControlModifier);
    EXPECT_EQ(lines(), QStringList({u"DANA|01.05.2000|Tabuľka I|Chýba postihnutie."_s}));
    keys({Qt::Key_Right});
    EXPECT_EQ(lines().size(), 3);
    keys({Qt::Key_Right});
    EXPECT_EQ(lines(),
              QStringList({u"EMIL||Tabuľka III|Chýba funkcia. Nie je určené, či je interný "
                           "alebo externý."_s}));
    EXPECT_EQ(label(u"lblStav"), u"Chýba funkcia. Nie je určené, či je interný alebo externý."_s);
    for (int row = 1; row < 10; ++row)
        keys({Qt::Key_Down});
    EXPECT_EQ(lines(), QStringList({u"EMIL||Tabuľka III|Chýba funkcia."_s}));
    keys({Qt::Key_Return, Qt::Key_Return});
    EXPECT_EQ(opened, QStringList({u"EMIL"_s}));
}

TEST_F(KlientVykazTest, savesAndPrintsTheList) {
    const QString path = reg.folder.path(u"zoznam.csv");
    boxes.expect(support::fileDialog(path, [](QWidget& dialog) {
        EXPECT_EQ(dialog.objectName(), u"csvDialog"_s);
        EXPECT_EQ(dialog.findChild<QLineEdit*>(u"fileNameEdit"_s)->text(),
                  u"Tabuľka I riadok 0108 7 - 8 stĺpec 1 spolu.csv"_s);
    }));
    keys({Qt::Key_S}, Qt::ControlModifier);
    EXPECT_TRUE(label(u"lblStav").startsWith(u"Uložené do súboru"_s));
    const QString list = u"\r\n%1\r\n%2\r\n%3\r\n"_s.arg(adam, bela, cila).replace(u'|', u';');
    EXPECT_TRUE(QString::fromUtf8(files::read(path)).endsWith(list));
    activate();
    scratchTable = u"z_vek"_s;
    keys({Qt::Key_P}, Qt::ControlModifier);
    ASSERT_EQ(previews, 1);
    EXPECT_EQ(printed(u"0"), u"Priezvisko a meno"_s);
    EXPECT_EQ(pages.table.rows.size(), 3U);
    EXPECT_EQ(rows.size(), 0);
    EXPECT_EQ(bytes(), stored);
}

} // namespace
