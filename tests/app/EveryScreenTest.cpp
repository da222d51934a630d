#include "app/ScreenWalk.h"
#include "forms/SlovakTexts.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QKeySequence>
#include <QLabel>
#include <QMenuBar>
#include <QRegularExpression>
#include <QTranslator>

#include <gtest/gtest.h>

#include <map>
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
    static const QRegularExpression word(u"\\w\\w"_s,
                                         QRegularExpression::UseUnicodePropertiesOption);
    const bool isTold =
        node->text(QAccessible::Name).contains(word) && node->role() != QAccessible::NoRole;
    const bool isMet = node->state().focusable || node->role() == QAccessible::EditableText;
    if (isMet && !isCell && !isTold)
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

/// Controls of the program's own screens that can't be used and don't say why.
void findMute(const QWidget& screen, Faults& faults) {
    for (auto* control : screen.findChildren<QWidget*>()) {
        const bool isClosed = !control->isEnabled() && control->focusPolicy() != Qt::NoFocus;
        const bool isOwn = !screen.inherits("QFileDialog") && !screen.inherits("QPrintDialog") &&
                           !screen.inherits("QPrintPropertiesDialog");
        // A part without a tip shows that of the whole.
        const QWidget* said = control;
        while (said->toolTip().isEmpty() && !said->isWindow())
            said = said->parentWidget();
        const QString why = said->toolTip().section(u'\n', -1);
        if (isOwn && isClosed && control->isVisible() && !why.endsWith(u'.'))
            faults.insert(u"says not why: "_s + control->objectName() +
                          QString::fromUtf8(control->metaObject()->className()));
    }
}

/// Letters for Alt that two controls share which can be pressed at once.
void findSharedLetters(const QWidget& screen, Faults& faults) {
    std::map<QString, QString> taken;
    const auto take = [&](const QString& text) {
        const QString letter = QKeySequence::mnemonic(text).toString();
        if (letter.isEmpty())
            return;
        const auto [first, isNew] = taken.emplace(letter, text);
        if (!isNew)
            faults.insert(u"%1 is for '%2' and '%3'"_s.arg(letter, first->second, text));
    };
    for (const auto* button : screen.findChildren<QAbstractButton*>()) {
        if (button->isVisible() && button->isEnabled() && button->window() == screen.window())
            take(button->text());
    }
    for (const auto* label : screen.findChildren<QLabel*>()) {
        if (label->isVisible() && label->buddy() != nullptr && label->window() == screen.window())
            take(label->text());
    }
    if (const auto* bar = screen.findChild<QMenuBar*>(); bar != nullptr && bar->isVisible()) {
        for (const QAction* menu : bar->actions())
            take(menu->text());
    }
    if (const auto* menu = qobject_cast<const QMenu*>(&screen)) {
        for (const QAction* entry : menu->actions())
            take(entry->text());
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
    int spelled = 0;
    ScreenWalk walk([&](QWidget& screen, const QString& name) {
        ++screens;
        for (const auto* line : screen.findChildren<QLabel*>())
            spelled += line->isVisible() && line->text().startsWith(u"Pravopis") ? 1 : 0;
        Faults found;
        findNameless(QAccessible::queryAccessibleInterface(&screen), found);
        findUnrelated(screen, found);
        findMute(screen, found);
        findSharedLetters(screen, found);
        for (const QString& fault : found)
            nameless.insert(name + u": "_s + fault);
    });
    walk.walk();
    expectNone("for a reader of the screen", nameless);
    expectNone("foreign", untranslated.faults);
    EXPECT_GT(screens, 150);
    EXPECT_GE(spelled, 6) << "long texts that can be written";
}

} // namespace
