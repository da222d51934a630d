// Every kind of damage is laid, found from the menu, and mended as the window offers.

#include "app/Screens.h"
#include "mainwindow/FrmUvod.h"
#include "store/Connection.h"
#include "support/Lists.h"
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
            lines += (list->item(row, 0)->text() + u" | "_s + list->item(row, 1)->text()).trimmed();
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

/// What the list says of a damage: its name ("case"), the statements that lay it ("sql", or "raw"
/// for those of the file itself), what is "found", the window or the question that "opens" on
/// Enter, what is "typed" into that window or its "title", and how many "rows" of a selection there
/// are then.
using Case = QMap<QString, QStringList>;

std::vector<Case> casesOfTheList() {
    std::vector<Case> all;
    for (const QStringList& line : support::linesOf(u"damages.txt"_s)) {
        if (line[0] == u"case")
            all.emplace_back();
        all.back()[line[0]] += line.mid(1);
    }
    return all;
}

} // namespace

class DataCheckOf : public testing::TestWithParam<Case> {};

TEST_P(DataCheckOf, findsTheDamageAndMendsIt) {
    const auto said = [](const char* what) {
        return GetParam().value(QLatin1String(what));
    };
    DataCheck run;
    for (const QString& sql : said("sql"))
        run.reg.execute({sql});
    for (const QString& sql : said("raw"))
        run.layRaw(sql.toUtf8().constData());
    const bool isCard = said("rows").isEmpty();
    const QString opened = said("opens").join(QString());
    run.check([&](QWidget& form) {
        EXPECT_EQ(DataCheck::findings(form), said("found"));
        if (opened.endsWith(u'?'))
            run.boxes.expectAsked(opened, u"Kontrola údajov"_s, QMessageBox::Question, yesNo,
                                  QMessageBox::Yes);
        else
            run.boxes.expect(support::ExpectedWindow{
                opened, [&](QWidget& next) {
                    if (isCard) {
                        EXPECT_TRUE(next.windowTitle().contains(said("title").join(QString())))
                            << next.windowTitle().toStdString();
                        next.close();
                        return;
                    }
                    auto* name = next.findChild<QLineEdit*>(u"textHladaj"_s);
                    QTest::keyClicks(name, said("typed").join(QString()));
                    QTest::keyClick(name, Qt::Key_Return);
                }});
        QTest::keyClick(form.findChild<QTableWidget*>(u"lstNalezy"_s), Qt::Key_Return);
        DataCheck::ended(form);
        EXPECT_EQ(DataCheck::findings(form), isCard ? said("found") : QStringList());
    });
    if (!isCard) {
        EXPECT_EQ(run.reg.count(said("rows")[1]), said("rows")[0].toInt());
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, DataCheckOf, testing::ValuesIn(casesOfTheList()),
                         [](const auto& info) {
                             QString name = info.param[u"case"_s].join(QString());
                             return name.replace(u' ', u'_').toStdString();
                         });

TEST(DataCheckOfFile, repairsDamagedIndexes) {
    DataCheck run;
    // So large that its opening leaves the damage to be found.
    run.reg.execute({u"delete * from k_memo where idkod = 'KOVACEVA00'"_s});
    run.reg.add(u"k_memo"_s, {{u"idkod", u"KOVACEVA00"_s}, {u"poznamky", QString(9 << 20, u'x')}});
    run.layRaw("PRAGMA writable_schema=ON; UPDATE sqlite_schema SET rootpage=(SELECT rootpage FROM "
               "sqlite_schema WHERE name='k_navstevy_idkod') WHERE name='k_zaklad_meno'");
    run.check([&](QWidget& form) {
        EXPECT_EQ(DataCheck::findings(form), QStringList{u"Súbor registra je poškodený |"_s});
        run.boxes.expectAsked(u"Register v súbore -tvk.mdb- je poškodený, údaje sú v poriadku. Má "
                              "sa register vytvoriť nanovo ?"_s,
                              u"Upozornenie"_s, QMessageBox::Warning, yesNo, QMessageBox::Yes);
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
