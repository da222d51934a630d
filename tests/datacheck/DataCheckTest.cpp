// Every kind of damage is laid, found from the menu, and mended as the window offers.

#include "app/Screens.h"
#include "mainwindow/FrmUvod.h"
#include "store/Connection.h"
#include "support/ScriptedBoxes.h"
#include "support/TemporaryRegister.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr auto yesNo = QMessageBox::Yes | QMessageBox::No;

class DataCheck {
  public:
    DataCheck() {
        reg.execute(
            {u"insert into k_zaklad (idkod, meno, priezv, katcis) values ('KOVACEVA00', 'Eva', "
             "'Kováč', '1')"_s,
             u"insert into k_zaklad (idkod, meno, priezv, katcis) values ('NOVAKJAN00', 'Ján', "
             "'Novák', '2')"_s,
             u"insert into k_memo (idkod) values ('KOVACEVA00')"_s,
             u"insert into k_memo (idkod, poznamky) values ('NOVAKJAN00', '<p><b>a</b></p>')"_s,
             u"insert into zamestnanci (idkod, meno, priezv) values ('MALAANA00', 'Ana', 'Malá')"_s,
             u"insert into k_navstevy (idkod, datum) values ('NOVAKJAN00', #1/2/2007#)"_s,
             u"insert into k_vysetrenie (idkod, idkod_p) values ('NOVAKJAN00', 'MALAANA00')"_s,
             u"insert into c_zdrpoi (kod, nazov) values ('24', 'Poisťovňa')"_s,
             u"insert into c_zariad (kod, nazov, akronym) values ('01', 'Škola', 'VYCH')"_s});
    }

    void layRaw(const char* sql) {
        reg.letGo();
        store::Connection file(reg.folder.database(), store::Connection::Access::ReadWrite);
        sqlite3_db_config(file.handle(), SQLITE_DBCONFIG_DEFENSIVE, 0, nullptr);
        file.execute(sql);
    }
    /// Opens the window by its menu; `drive` is run once all is checked.
    void check(const std::function<void(QWidget&)>& drive) {
        reg.engine.commitPending();
        reg.letGo();
        if (!window.isVisible())
            window.open();
        boxes.expect(support::ExpectedWindow{u"FrmKontrola"_s, [&](QWidget& form) {
                                                 ended(form);
                                                 drive(form);
                                                 if (form.isVisible())
                                                     QTest::keyClick(&form, Qt::Key_Escape);
                                             }});
        window.findChild<QAction*>(u"mniKontrola"_s)->trigger();
    }
    static void ended(QWidget& form) {
        const auto isAtWork = [&form](const char* label) {
            return form.findChild<QLabel*>(QLatin1String(label))->text().contains(u'…');
        };
        EXPECT_TRUE(QTest::qWaitFor([&] { return !isAtWork("lblStav") && !isAtWork("lblSubor"); }));
    }
    static QStringList findings(QWidget& form) {
        auto* list = form.findChild<QTableWidget*>(u"lstNalezy"_s);
        QStringList lines;
        for (int row = 0; row < list->rowCount(); ++row)
            lines += list->item(row, 0)->text() + u" | "_s + list->item(row, 1)->text();
        return lines;
    }

    support::TemporaryRegister reg;
    support::ScriptedBoxes boxes;
    int runsEnded = 0;
    mainwindow::Surroundings around{reg.engine, reg.folder, [] { return QDate(2007, 9, 20); },
                                    app::openScreen,
                                    [this] {
                                        ++runsEnded;
                                    }};
    mainwindow::FrmUvod window{around};
};

/// What the window that follows on Enter is called, and what the user types there first.
struct Case {
    const char* name;
    std::vector<QString> damage;
    QStringList found;
    QString opened;
    QString typed;
    /// A select that gives so many rows afterwards.
    QString select;
    int count;
};

const Case cases[] = {
    {"a lost key",
     {u"insert into k_navstevy (idkod, datum) values ('STARY00', #3/4/2007#)"_s,
      u"insert into k_navstevy (idkod, datum) values ('STARY00', #3/5/2007#)"_s,
      u"insert into k_memo (idkod, poznamky) values ('STARY00', 'b')"_s,
      u"insert into k_zaznam_spc (idkod, idkod_p) values ('STARY00', 'MALAANA00')"_s},
     {u"Záznamy s kľúčom STARY00, ktorý nemá nijaký klient: texty 1, záznamy starostlivosti 1, "
      "návštevy 2 | "_s},
     u"FrmVyber"_s,
     u"n"_s,
     u"select k_memo.idkod from (k_memo inner join k_navstevy on k_memo.idkod = k_navstevy.idkod) "
     "inner join k_zaznam_spc on k_memo.idkod = k_zaznam_spc.idkod where k_memo.idkod = "
     "'NOVAKJAN00' and poznamky = '<p><b>a</b></p><p>b</p>'"_s,
     3},
    {"no key",
     {u"insert into k_surodenci (meno) values ('Peter')"_s},
     {u"Súrodenec bez kľúča klienta | "_s},
     u"FrmVyber"_s,
     u"kov"_s,
     u"select * from k_surodenci where idkod = 'KOVACEVA00' and meno = 'Peter'"_s,
     1},
    {"a client without a key",
     {u"insert into k_zaklad (idkod) values ('NOVÁKJÁ00')"_s,
      u"insert into k_memo (idkod) values ('NOVÁKJÁ00')"_s,
      u"insert into k_zaklad (meno, priezv) values ('Ján', 'Novák')"_s},
     {u"Klient nemá kľúč, jeho karta sa nedá otvoriť | Ján Novák"_s},
     u"Vytvoriť klientovi Ján Novák kľúč ?"_s,
     {},
     u"select k_zaklad.idkod from k_zaklad inner join k_memo on k_zaklad.idkod = k_memo.idkod where k_zaklad.idkod = 'NOVÁKJÁ01'"_s,
     1},
    {"a lost worker",
     {u"insert into k_zaznam_zmeny (idkod, idkod_p) values ('NOVAKJAN00', 'ODISLA00')"_s},
     {u"Záznamy s kľúčom pracovníka ODISLA00, ktorý nemá nijaký zamestnanec: zaznamenané zmeny 1 | "_s},
     u"FrmVyber"_s,
     u"m"_s,
     u"select * from k_zaznam_zmeny where idkod_p = 'MALAANA00'"_s,
     1},
    {"no worker",
     {u"insert into k_zaznam_spc (idkod) values ('NOVAKJAN00')"_s,
      u"insert into k_zaznam_spc (idkod, idkod_p) values ('NOVAKJAN00', ' ')"_s},
     {u"Záznamy bez pracovníka: záznamy starostlivosti | Ján Novák (NOVAKJAN00)"_s},
     u"FrmVyber"_s,
     u"m"_s,
     u"select * from k_zaznam_spc where idkod_p = 'MALAANA00'"_s,
     2},
    {"no texts",
     {u"delete * from k_memo where idkod = 'KOVACEVA00'"_s},
     {u"Klient nemá riadok textov, jeho karta sa nedá upraviť | Eva Kováč (KOVACEVA00)"_s},
     u"Doplniť klientovi Eva Kováč (KOVACEVA00) prázdny riadok textov ?"_s,
     {},
     u"select * from k_memo where idkod = 'KOVACEVA00'"_s,
     1},
    {"two texts",
     {u"!DROP INDEX k_memo_idkod; INSERT INTO k_memo (idkod, poznamky, u_ziak) VALUES "
      "('novakjan00', 'b', 'c'), ('NOVAKJAN00', 'd', '')"_s},
     {u"Klient má viac riadkov textov, karta ukáže len jeden | Ján Novák (NOVAKJAN00)"_s},
     u"Spojiť texty klienta Ján Novák (NOVAKJAN00) do jedného riadka ?"_s,
     {},
     u"select * from k_memo where idkod = 'KOVACEVA00' or (poznamky = "
     "'<p><b>a</b></p><p>b</p><p>d</p>' and u_ziak = 'c')"_s,
     2},
    {"two numbers",
     {u"update k_zaklad set katcis = ' 1' where idkod = 'NOVAKJAN00'"_s},
     {u"Katalógové číslo 1 majú viacerí klienti: 2 | Eva Kováč (KOVACEVA00)"_s,
      u"Katalógové číslo 1 majú viacerí klienti: 2 | Ján Novák (NOVAKJAN00)"_s},
     u"FrmKlientUdaj"_s,
     u"Eva  Kováč"_s,
     {},
     0},
    {"no date",
     {u"update k_navstevy set datum = '31.6.2007'"_s},
     {u"„31.6.2007“ nie je dátum v kalendári: dátum | Ján Novák (NOVAKJAN00)"_s},
     u"FrmKlientUdaj"_s,
     u"Ján  Novák"_s,
     {},
     0},
    {"codes without a name",
     {u"update k_zaklad set zdrpoi = '99' where idkod = 'NOVAKJAN00'"_s,
      u"update k_zaklad set zdrpoi = '24' where idkod = 'KOVACEVA00'"_s,
      u"insert into k_zariad (idkod, akronym, nazzar) values ('NOVAKJAN00', 'VYCH', '01')"_s,
      u"insert into k_zariad (idkod, akronym, nazzar) values ('NOVAKJAN00', 'TVK', '01')"_s},
     {u"Kód „99“ nemá v číselníku názov: kód zdravotnej poisťovne | Ján Novák (NOVAKJAN00)"_s,
      u"Kód „01“ nemá v číselníku názov: kód zariadenia | Ján Novák (NOVAKJAN00)"_s},
     u"FrmKlientUdaj"_s,
     u"Ján  Novák"_s,
     {},
     0},
    {"a function without a name",
     {u"insert into c_funkcie (fc_idkod, nazov) values (7, ' ')"_s,
      u"update zamestnanci set prac_zar = 7"_s},
     {u"Kód „7“ nemá v číselníku názov: kód pracovného zaradenia | Ana Malá (MALAANA00)"_s},
     u"FrmPsychUdaj"_s,
     u"Ana  Malá"_s,
     {},
     0},
};

} // namespace

class DataCheckOf : public testing::TestWithParam<Case> {};

TEST_P(DataCheckOf, findsTheDamageAndMendsIt) {
    const Case& damage = GetParam();
    DataCheck run;
    for (const QString& sql : damage.damage)
        if (sql.startsWith(u'!'))
            run.layRaw(sql.mid(1).toUtf8().constData());
        else
            run.reg.execute({sql});
    run.check([&](QWidget& form) {
        EXPECT_EQ(DataCheck::findings(form), damage.found);
        const bool isCard = damage.select.isEmpty();
        if (damage.opened.endsWith(u'?'))
            run.boxes.expect(support::ExpectedBox{.text = damage.opened,
                                                  .title = u"Kontrola údajov"_s,
                                                  .icon = QMessageBox::Question,
                                                  .buttons = yesNo,
                                                  .answer = QMessageBox::Yes});
        else
            run.boxes.expect(support::ExpectedWindow{
                damage.opened, [&](QWidget& next) {
                    if (isCard) {
                        EXPECT_TRUE(next.windowTitle().contains(damage.typed))
                            << next.windowTitle().toStdString();
                        next.close();
                        return;
                    }
                    auto* name = next.findChild<QLineEdit*>(u"textHladaj"_s);
                    QTest::keyClicks(name, damage.typed);
                    QTest::keyClick(name, Qt::Key_Return);
                }});
        QTest::keyClick(form.findChild<QTableWidget*>(u"lstNalezy"_s), Qt::Key_Return);
        DataCheck::ended(form);
        EXPECT_EQ(DataCheck::findings(form), isCard ? damage.found : QStringList());
    });
    if (!damage.select.isEmpty()) {
        EXPECT_EQ(run.reg.count(damage.select), damage.count);
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, DataCheckOf, testing::ValuesIn(cases), [](const auto& info) {
    return QString::fromLatin1(info.param.name).replace(u' ', u'_').toStdString();
});

TEST(DataCheckOfFile, repairsDamagedIndexes) {
    DataCheck run;
    // So large that its opening leaves the damage to be found.
    run.reg.execute({u"delete * from k_memo where idkod = 'KOVACEVA00'"_s});
    run.reg.add(u"k_memo"_s, {{u"idkod", u"KOVACEVA00"_s}, {u"poznamky", QString(9 << 20, u'x')}});
    run.layRaw("PRAGMA writable_schema=ON; UPDATE sqlite_schema SET rootpage=(SELECT rootpage FROM "
               "sqlite_schema WHERE name='k_navstevy_idkod') WHERE name='k_zaklad_meno'");
    run.check([&](QWidget& form) {
        EXPECT_EQ(DataCheck::findings(form), QStringList{u"Súbor registra je poškodený | "_s});
        run.boxes.expect(support::ExpectedBox{
            .text = u"Register v súbore -tvk.mdb- je poškodený, údaje sú v poriadku. Má sa "
                    "register vytvoriť nanovo ?"_s,
            .title = u"Upozornenie"_s,
            .icon = QMessageBox::Warning,
            .buttons = yesNo,
            .answer = QMessageBox::Yes});
        QTest::keyClick(form.findChild<QTableWidget*>(u"lstNalezy"_s), Qt::Key_Return);
    });
    run.boxes.allCame();
    EXPECT_TRUE(run.window.isVisible());
    store::DBEngine::verifyDatabase(run.reg.folder.database());
}

TEST(DataCheckOfFile, canBeGivenUpAndBegunAnew) {
    DataCheck run;
    run.reg.execute({u"insert into k_navstevy (idkod) values ('A')"_s});
    run.check([](QWidget& form) {
        QTest::keyClick(&form, Qt::Key_F5);
        auto* cancel = form.findChild<QWidget*>(u"cmdZrusit"_s);
        cancel->setFocus();
        QTest::keyClick(cancel, Qt::Key_Return);
        EXPECT_TRUE(form.findChild<QLabel*>(u"lblStav"_s)->text().contains(u"prerušená"_s));
        EXPECT_TRUE(form.findChild<QLabel*>(u"lblSubor"_s)->text().endsWith(u"neskontrolované"_s));
        QTest::keyClick(&form, Qt::Key_F5);
        DataCheck::ended(form);
        EXPECT_EQ(DataCheck::findings(form).size(), 1);
    });
}
