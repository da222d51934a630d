#include "support/ScriptedBoxes.h"

#include "forms/Appearance.h"
#include "forms/SlovakTexts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QEvent>
#include <QFont>
#include <QInputDialog>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryFile>
#include <QWindow>

namespace support {

namespace {

using namespace Qt::StringLiterals;

QString describe(const QWidget& window) {
    if (const auto* box = qobject_cast<const QMessageBox*>(&window))
        return u"box \"%1\": \"%2\""_s.arg(box->windowTitle(), box->text());
    if (const auto* dialog = qobject_cast<const QInputDialog*>(&window))
        return u"prompt \"%1\""_s.arg(dialog->labelText());
    return u"window %1 \"%2\""_s.arg(QLatin1String(window.metaObject()->className()),
                                     window.windowTitle());
}

struct Describe {
    QString operator()(const ExpectedBox& box) const { return u"box: "_s + box.text; }
    QString operator()(const ExpectedInput& input) const { return u"prompt: "_s + input.prompt; }
    QString operator()(const ExpectedWindow& window) const { return u"window: "_s + window.name; }
};

/// Ends a window that the test did not end, so that it goes on to its end.
void dismiss(QWidget& window, const char* fault) {
    ADD_FAILURE() << fault << describe(window).toStdString();
    if (auto* dialog = qobject_cast<QDialog*>(&window))
        dialog->done(QDialog::Rejected);
    else
        window.close();
}

/// A window that shows how far a long work is asks nothing, and comes only where it takes long.
bool isExpectable(const QWidget& window) {
    return window.isWindow() && window.objectName() != u"frmPraca"_s &&
           (window.isModal() || qobject_cast<const QMessageBox*>(&window));
}

/// The platform without a screen would pretend to have one of 800x800.
void pretendScreen(QTemporaryFile& settings) {
    if (qgetenv("QT_QPA_PLATFORM") != "offscreen" || !settings.open())
        return;
    settings.write(R"({"screens": [{"name": "screen", "x": 0, "y": 0, "width": 1280, "height": 800,
                       "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    settings.flush();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + settings.fileName().toUtf8());
}

} // namespace

int runWidgetTests(int argc, char** argv) {
    QTemporaryFile settings;
    pretendScreen(settings);
    // As a desktop without a wish of its own has it.
    QApplication::setFont(QFont(u"Liberation Sans"_s, 9));
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"TVK"_s);
    forms::dress(application);
    forms::installSlovakTexts(application);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}

void press(QWidget& target) {
    press(target, target.rect().center());
}

void press(QWidget& target, QPoint inside) {
    QTest::mouseClick(target.window()->windowHandle(), Qt::LeftButton, {},
                      target.mapTo(target.window(), inside));
}

ExpectedWindow fileDialog(const QString& name, const std::function<void(QWidget&)>& look) {
    return {u"QFileDialog"_s, [=](QWidget& dialog) {
                look(dialog);
                auto* line = dialog.findChild<QLineEdit*>(u"fileNameEdit"_s);
                line->setText(name);
                QTest::keyClick(line, name.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
            }};
}

ScriptedBoxes::ScriptedBoxes() {
    qApp->installEventFilter(this);
}

ScriptedBoxes::~ScriptedBoxes() {
    allCame();
}

void ScriptedBoxes::allCame() {
    for (const Expected& expected : expected_)
        ADD_FAILURE() << "did not come: " << std::visit(Describe{}, expected).toStdString();
    expected_.clear();
}

bool ScriptedBoxes::eventFilter(QObject* watched, QEvent* event) {
    auto* window = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Show && window != nullptr && isExpectable(*window)) {
        const QPointer<QWidget> shown(window);
        QMetaObject::invokeMethod(
            this,
            [this, shown] {
                if (shown != nullptr && shown->isVisible())
                    answer(*shown);
            },
            Qt::QueuedConnection);
    }
    return false;
}

void ScriptedBoxes::answer(QWidget& window) {
    if (expected_.empty()) {
        dismiss(window, "not expected: ");
        return;
    }
    const Expected expected = std::move(expected_.front());
    expected_.pop_front();
    const QPointer<QWidget> open(&window);
    SCOPED_TRACE(std::visit(Describe{}, expected).toStdString());
    std::visit([&](const auto& one) { meet(one, window); }, expected);
    if (open != nullptr && open->isVisible() && !std::holds_alternative<ExpectedWindow>(expected)) {
        dismiss(window, "still open: ");
    }
}

void ScriptedBoxes::meet(const ExpectedBox& expected, QWidget& window) {
    auto* box = qobject_cast<QMessageBox*>(&window);
    if (box == nullptr)
        return dismiss(window, "another came: ");
    EXPECT_EQ(box->text(), expected.text);
    EXPECT_EQ(box->windowTitle(),
              expected.title.isEmpty() ? QCoreApplication::applicationName() : expected.title);
    EXPECT_EQ(box->icon(), expected.icon);
    EXPECT_EQ(box->standardButtons(), expected.buttons);
    if (expected.meanwhile)
        expected.meanwhile();
    QAbstractButton* button = box->button(expected.answer);
    if (expected.byEnter) {
        EXPECT_EQ(box->standardButton(box->defaultButton()), expected.answer);
    }
    if (expected.byEscape)
        QTest::keyClick(box->windowHandle(), Qt::Key_Escape);
    else if (expected.byEnter)
        QTest::keyClick(box->windowHandle(), Qt::Key_Return);
    else if (button != nullptr)
        press(*button);
}

void ScriptedBoxes::meet(const ExpectedInput& expected, QWidget& window) {
    auto* dialog = qobject_cast<QInputDialog*>(&window);
    if (dialog == nullptr)
        return dismiss(window, "another came: ");
    EXPECT_EQ(dialog->labelText(), expected.prompt);
    EXPECT_EQ(dialog->windowTitle(), expected.title);
    EXPECT_EQ(dialog->textValue(), expected.initial);
    if (!expected.answer) {
        QTest::keyClick(dialog->windowHandle(), Qt::Key_Escape);
        return;
    }
    auto* line = dialog->findChild<QLineEdit*>();
    line->selectAll();
    QTest::keyClick(line, Qt::Key_Delete);
    // insert() because key events of a test carry Latin letters only.
    line->insert(*expected.answer);
    QTest::keyClick(dialog->windowHandle(), Qt::Key_Return);
}

void ScriptedBoxes::meet(const ExpectedWindow& expected, QWidget& window) {
    const bool named =
        window.objectName() == expected.name ||
        QString::fromLatin1(window.metaObject()->className()).section(u"::"_s, -1) == expected.name;
    if (!named)
        return dismiss(window, "another came: ");
    expected.drive(window);
}

} // namespace support
