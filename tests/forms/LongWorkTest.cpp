#include "forms/LongWork.h"

#include <QApplication>
#include <QMenu>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

TEST(LongWorkTest, closesWhatIsOpenAndIsGivenUpByItsWindow) {
    QWidget window;
    window.show();
    QMenu menu(&window);
    menu.addAction(u"Tlač"_s);
    menu.popup(window.pos());
    {
        const forms::LongWork work(u"Počíta sa …"_s, &window, 0ms);
        EXPECT_FALSE(menu.isVisible());
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::BusyCursor);
        EXPECT_TRUE(work.progress()(0.1));
        QWidget* form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        QTest::keyClick(form->findChild<QPushButton*>(), Qt::Key_Space);
        EXPECT_FALSE(work.progress()(0.2));
    }
    EXPECT_FALSE(forms::BusyPointer::isShown());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

/// Before its window stands, nothing keeps a press from the window that waits.
TEST(LongWorkTest, letsNothingThroughBeforeItsWindowStands) {
    bool isThrough = false;
    const forms::LongWork work(u"Počíta sa …"_s, nullptr, 1h);
    QMetaObject::invokeMethod(
        qApp, [&isThrough] { isThrough = true; }, Qt::QueuedConnection);
    EXPECT_TRUE(work.progress()(0.5));
    EXPECT_FALSE(isThrough);
    QCoreApplication::processEvents();
}
