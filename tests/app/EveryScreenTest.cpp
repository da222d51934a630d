#include "app/ScreenWalk.h"
#include "forms/SlovakTexts.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QRegularExpression>
#include <QTranslator>

#include <gtest/gtest.h>

#include <set>

using namespace Qt::StringLiterals;

namespace {

using Faults = std::set<QString>;

/// Is asked last, and so for what nobody has a Slovak text for.
class Untranslated : public QTranslator {
  public:
    QString translate(const char* context, const char* source, const char*, int) const override {
        const QString asked = QString::fromUtf8(source);
        // Shortcuts, and all the names of keys, which each look at a shortcut goes through.
        const bool isKey = qstrcmp(context, "QShortcut") == 0 || asked.startsWith(u"Alt+"_s);
        static const QRegularExpression word(u"[A-Za-z]{2}"_s);
        if (!isKey && asked.contains(word) && asked != u"QT_LAYOUT_DIRECTION"_s)
            faults.insert(QString::fromUtf8(context) + u": "_s + asked);
        return {};
    }
    bool isEmpty() const override { return false; }
    mutable Faults faults;
};

QString describe(const QAccessibleInterface& node) {
    const QObject* object = node.object();
    return u"%1 %2 of role %3, value '%4'"_s
        .arg(QString::fromUtf8(object != nullptr ? object->metaObject()->className() : "part"),
             object != nullptr ? object->objectName() : QString())
        .arg(int(node.role()))
        .arg(node.text(QAccessible::Value));
}

/// What a reader of the screen can come to and would not know by name.
void findNameless(QAccessibleInterface* node, Faults& faults) {
    // Rows of a list are the list's; here are those that an open list shows first.
    constexpr int mostChildren = 300;
    if (node == nullptr || !node->isValid() || node->state().invisible)
        return;
    // A cell may well be empty.
    const bool isCell = node->role() == QAccessible::Cell || node->role() == QAccessible::ListItem;
    if (node->state().focusable && !isCell &&
        (node->text(QAccessible::Name).trimmed().isEmpty() || node->role() == QAccessible::NoRole))
        faults.insert(describe(*node));
    for (int i = 0; i < std::min(node->childCount(), mostChildren); ++i)
        findNameless(node->child(i), faults);
}

/// Labels that stand beside a control which knows nothing of them. Lists of the toolkit have their
/// names alone.
void findUnrelated(const QWidget& screen, Faults& faults) {
    for (auto* label : screen.findChildren<QLabel*>()) {
        if (!label->isVisible() || label->buddy() == nullptr ||
            qobject_cast<QAbstractItemView*>(label->buddy()) != nullptr)
            continue;
        auto* control = QAccessible::queryAccessibleInterface(label->buddy());
        const auto related = control->relations(QAccessible::Label);
        if (related.isEmpty())
            faults.insert(u"no relation: "_s + label->text());
    }
}

class EveryScreenTest : public testing::Test {
  protected:
    static void expectNone(const char* what, const Faults& faults) {
        for (const QString& fault : faults)
            ADD_FAILURE() << what << ": " << fault.toStdString();
    }
};

TEST_F(EveryScreenTest, isNamedAndSlovak) {
    Untranslated untranslated;
    QCoreApplication::installTranslator(&untranslated);
    forms::installSlovakTexts(*qApp);
    Faults nameless;
    int screens = 0;
    ScreenWalk walk([&](QWidget& screen, const QString& name) {
        ++screens;
        Faults found;
        findNameless(QAccessible::queryAccessibleInterface(&screen), found);
        findUnrelated(screen, found);
        for (const QString& fault : found)
            nameless.insert(name + u": "_s + fault);
    });
    walk.walk();
    expectNone("without a name", nameless);
    expectNone("foreign", untranslated.faults);
    EXPECT_GT(screens, 150);
}

} // namespace
