#include "mainwindow/MainWindow.h"
#include "store/EngineError.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

namespace {

QStringList filesIn(const support::TemporaryRegister& reg) {
    return QDir(reg.directory.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

void leave(const QString& path) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("zvysok");
}

class ExitTest : public MainWindow {
  protected:
    void fillAndEmpty() {
        for (int i = 0; i < 200; ++i)
            reg.add(QStringLiteral("k_memo"),
                    {{u"idkod", QStringLiteral("K%1").arg(i)}, {u"poznamky", QString(4000, u'x')}});
        reg.execute({QStringLiteral("delete * from k_memo")});
        reg.engine.commitPending();
    }
    qint64 size() const { return QFileInfo(reg.folder.database()).size(); }
};

TEST_F(ExitTest, menuAndButtonCompactTheFile) {
    for (const bool byMenu : {true, false}) {
        fillAndEmpty();
        addClient(byMenu ? "A" : "B", "Ján", "Novák");
        reg.engine.commitPending();
        leave(reg.folder.path(u"arch_tmp.zip"));
        const qint64 before = size();
        open();
        if (byMenu)
            window->findChild<QAction*>(QStringLiteral("mnuKoniec"))->trigger();
        else
            click("Label4");
        EXPECT_FALSE(window->isVisible());
        EXPECT_LT(size(), before / 2);
        EXPECT_EQ(filesIn(reg), QStringList{QStringLiteral("tvk.mdb")});
        EXPECT_EQ(QFile::permissions(reg.folder.database()) &
                      (QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup | QFile::WriteOther),
                  QFile::Permissions());
        EXPECT_EQ(reg.count(QStringLiteral("k_zaklad")), byMenu ? 1 : 2);
    }
    EXPECT_EQ(runsEnded, 2);
}

TEST_F(ExitTest, menuActsOnItsOwnClickAndKey) {
    open();
    const QMenuBar* bar = window->menuBar();
    const QRect place =
        bar->actionGeometry(window->findChild<QAction*>(QStringLiteral("mnuKoniec")));
    QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                      bar->mapTo(window.get(), place.center()));
    EXPECT_EQ(runsEnded, 1);
    open();
    key(Qt::Key_K, Qt::AltModifier);
    EXPECT_EQ(runsEnded, 2);
}

TEST_F(ExitTest, aCopyLeftBehindIsReportedAndNothingIsTouched) {
    addClient("A", "Ján", "Novák");
    reg.engine.commitPending();
    leave(reg.folder.path(u"tmp.mdb"));
    leave(reg.folder.path(u"arch_tmp.zip"));
    open();
    QFile live(reg.folder.database());
    ASSERT_TRUE(live.open(QIODevice::ReadOnly));
    const QByteArray before = live.readAll();
    boxes.expect(support::ExpectedWindow{
        .name = QStringLiteral("QMessageBox"), .drive = [](QWidget& shown) {
            auto& box = dynamic_cast<QMessageBox&>(shown);
            EXPECT_TRUE(box.text().contains(QStringLiteral("3204"))) << box.text().toStdString();
            EXPECT_EQ(box.icon(), QMessageBox::Critical);
            box.button(QMessageBox::Ok)->click();
        }});
    click("Label4");
    EXPECT_EQ(runsEnded, 1);
    EXPECT_FALSE(window->isVisible());
    live.seek(0);
    EXPECT_EQ(live.readAll(), before);
    EXPECT_EQ(filesIn(reg), QStringList({QStringLiteral("arch_tmp.zip"), QStringLiteral("tmp.mdb"),
                                         QStringLiteral("tvk.mdb")}));
}

} // namespace
