#include "help/HelpKey.h"
#include "help/HelpPages.h"
#include "help/HelpWindow.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTextBrowser>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString shownTitle(const QWidget& over) {
    const auto* window = over.findChild<help::HelpWindow*>();
    return window == nullptr ? QString() : window->findChild<QListWidget*>()->currentItem()->text();
}

TEST(HelpTest, f1OpensThePageOfThePlaceAndItsSearchFindsWords) {
    const help::HelpKey helpKey(*qApp);
    QWidget window;
    auto* card = new QWidget(&window);
    card->setObjectName(u"frmKlientUdaj"_s);
    auto* field = new QLineEdit(card);
    field->setObjectName(u"textKrz(3)"_s);
    auto* list = new QLineEdit(&window);
    list->setObjectName(u"DBList4"_s);
    QTest::keyClick(field, Qt::Key_F1);
    EXPECT_EQ(shownTitle(window), u"Karta klienta"_s);
    QTest::keyClick(list, Qt::Key_F1);
    EXPECT_TRUE(shownTitle(window).startsWith(u"Záznamy v karte"_s));
    EXPECT_EQ(window.findChildren<help::HelpWindow*>().size(), 1);

    auto* help = window.findChild<help::HelpWindow*>();
    auto* question = help->findChild<QLineEdit*>();
    auto* titles = help->findChild<QListWidget*>();
    QTest::keyClicks(question, u"POVODNY prevode"_s);
    EXPECT_EQ(titles->currentItem()->text(), u"Register v pôvodnom formáte"_s);
    const auto hits = help->findChild<QTextBrowser*>()->extraSelections();
    ASSERT_FALSE(hits.isEmpty());
    EXPECT_EQ(hits.last().cursor.selectedText(), u"prevode"_s);
}

/// A page that no screen opens would be found by the search alone.
TEST(HelpTest, everyPageBelongsToAScreen) {
    ASSERT_GT(help::helpPages().size(), 10U);
    for (const help::HelpPage& page : help::helpPages())
        EXPECT_TRUE(!page.title.isEmpty() && !page.screens.isEmpty()) << page.html.toStdString();
}

} // namespace
