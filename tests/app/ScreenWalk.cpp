#include "app/ScreenWalk.h"

#include "app/Screens.h"
#include "forms/ProgressForm.h"
#include "mkdb/Arguments.h"
#include "mkdb/Commands.h"
#include "oldregister/ReportWindow.h"
#include "report/PreviewDialog.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

void makeSample(const QString& file) {
    QString problem;
    mkdb::run(mkdb::readArguments({u"ukazka"_s, file, u"--klienti"_s, u"40"_s},
                                  QString::fromUtf8(TVK_DATA_FOLDER), QDate(2026, 11, 20), problem)
                  .value());
}

/// Modal windows that come while the walk is elsewhere; the walk goes through each of them.
bool isModalWindow(const QWidget* window) {
    return window != nullptr && window->isWindow() && window->isModal();
}

QString nameOf(const QWidget& widget) {
    const QString kind = QString::fromLatin1(widget.metaObject()->className());
    return widget.objectName().isEmpty() ? kind.section(u"::"_s, -1) : widget.objectName();
}

} // namespace

ScreenWalk::ScreenWalk(Look look)
    : look_(std::move(look)),
      reg_(&makeSample), around_{reg_.engine, reg_.folder, [] { return QDate(2026, 11, 20); },
                                 app::openScreen,
                                 [] {
                                 }},
      window_(around_) {
    around_.speller = &speller_;
    // A record of nobody, for the data check to find.
    reg_.execute({u"insert into k_navstevy (idkod, datum) values ('NIKTONIK00', '1.9.2026')"_s});
    reg_.letGo();
    qApp->installEventFilter(this);
}

bool ScreenWalk::eventFilter(QObject* watched, QEvent* event) {
    auto* window = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Show && isModalWindow(window)) {
        QMetaObject::invokeMethod(
            this,
            [this, shown = QPointer<QWidget>(window)] {
                if (shown != nullptr && shown->isVisible())
                    visit(*shown);
            },
            Qt::QueuedConnection);
    }
    return false;
}

void ScreenWalk::visit(QWidget& window) {
    const QPointer<QWidget> open(&window);
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    path_ << nameOf(window);
    look(window, {});
    walkInside(window);
    path_.removeLast();
    if (open == nullptr || !open->isVisible())
        return;
    if (auto* dialog = qobject_cast<QDialog*>(open))
        dialog->reject();
    if (open != nullptr)
        open->hide();
}

void ScreenWalk::look(QWidget& screen, const QString& what) {
    QCoreApplication::processEvents();
    look_(screen, path_.join(u'/') + what);
}

void ScreenWalk::lookAtPopup(const QString& what) {
    QCoreApplication::processEvents();
    if (QPointer<QWidget> popup = QApplication::activePopupWidget()) {
        look(*popup, what);
        if (popup != nullptr)
            popup->close();
    } else {
        ADD_FAILURE() << "nothing opened: " << path_.join(u'/').toStdString() << what.toStdString();
    }
}

void ScreenWalk::click(QWidget& window, const char* name) {
    auto* button = window.findChild<QAbstractButton*>(QString::fromUtf8(name));
    ASSERT_TRUE(button != nullptr) << name;
    button->click();
    QCoreApplication::processEvents();
}

void ScreenWalk::walk() {
    window_.open();
    // What the exit leaves is a copy of the register.
    window_.findChild<QAction*>(u"mnuKoniec"_s)->trigger();
    window_.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    path_ << nameOf(window_);
    look(window_, u":start"_s);
    walkMainWindow();
    walkMenu();
    forms::ProgressForm progress(u"frmUlozenie"_s, u"Uložiť inam"_s, nullptr);
    oldregister::ReportWindow conversion({});
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFileName(u"zostava.pdf"_s);
    QPrintDialog print(&printer);
    for (QDialog* dialog : std::initializer_list<QDialog*>{&progress, &conversion, &print})
        dialog->exec();
    path_.clear();
}

void ScreenWalk::walkMainWindow() {
    for (const auto& [button, list] :
         {std::pair{"Picture2", u":zamestnanci"_s}, std::pair{"Picture1", u":klienti"_s}}) {
        click(window_, button);
        look(window_, list);
        for (const char* action : {"CmdNovy", "cmdOprava", "cmdVymaz", "cmdHladaj"})
            click(window_, action);
    }
    for (const char* picture : {"Picture3", "Picture5", "Picture6"})
        click(window_, picture);
}

void ScreenWalk::walkMenu() {
    for (QAction* top : window_.menuBar()->actions()) {
        if (top->menu() == nullptr)
            continue;
        top->menu()->popup(window_.pos());
        lookAtPopup(u":"_s + top->objectName());
        for (QAction* entry : top->menu()->actions()) {
            entry->trigger();
            QCoreApplication::processEvents();
        }
    }
    auto* help = window_.findChild<QWidget*>(u"frmPomoc"_s);
    ASSERT_TRUE(help != nullptr);
    visit(*help);
}

void ScreenWalk::walkInside(QWidget& window) {
    if (window.findChild<QListWidget*>(u"SSTab1"_s) != nullptr)
        return walkCard(window);
    if (auto* preview = qobject_cast<report::PreviewDialog*>(&window))
        return walkPreview(*preview);
    openLists(window);
    openContextMenus(window);
    for (auto* deeper : {window.findChild<QPushButton*>(u"cmdUlozit"_s),
                         window.findChild<QPushButton*>(u"cmdNaprav"_s)}) {
        if (deeper != nullptr && QTest::qWaitFor([&] { return deeper->isEnabled(); }))
            deeper->click();
    }
    for (const char* more : {"collapse", "properties"}) {
        if (auto* button = window.findChild<QAbstractButton*>(QString::fromUtf8(more)))
            button->click();
    }
    // A file of that name takes the user on to what comes behind the choice.
    if (auto* files = qobject_cast<QFileDialog*>(&window);
        files != nullptr && path_.contains(u"FrmZalohy"_s)) {
        files->findChild<QLineEdit*>(u"fileNameEdit"_s)
            ->setText(reg_.directory.filePath(u"z.zip"_s));
        QMetaObject::invokeMethod(files, "accept");
    }
}

void ScreenWalk::walkCard(QWidget& card) {
    auto* tabs = card.findChild<QListWidget*>(u"SSTab1"_s);
    for (int tab = 0; tab < tabs->count(); ++tab) {
        if (!tabs->item(tab)->flags().testFlag(Qt::ItemIsEnabled))
            continue;
        tabs->setCurrentRow(tab);
        path_ << tabs->item(tab)->text();
        look(card, {});
        walkTab(card);
        path_.removeLast();
    }
}

void ScreenWalk::walkTab(QWidget& card) {
    openLists(card);
    openContextMenus(card);
    for (auto* button : card.findChildren<QPushButton*>()) {
        if (!button->isVisible() || !button->objectName().endsWith(u"Novy"_s))
            continue;
        button->click();
        look(card, u":novy"_s);
        openLists(card);
        openContextMenus(card);
        QTest::keyClick(&card, Qt::Key_Escape);
    }
}

void ScreenWalk::walkPreview(QWidget& preview) {
    for (const char* action : {"savePdf", "print", "lastPage"})
        preview.findChild<QAction*>(QString::fromUtf8(action))->trigger();
    openContextMenus(preview);
}

/// Of each kind one: they differ in their lines alone.
void ScreenWalk::openLists(QWidget& window) {
    for (auto* box : window.findChildren<QComboBox*>()) {
        if (!box->isVisible() || !box->isEnabled() || box->objectName().startsWith(u"qt_"_s))
            continue;
        box->setFocus();
        box->showPopup();
        if (box->view()->isVisible()) {
            look(*box->view()->window(), u":"_s + nameOf(*box));
            box->hidePopup();
        }
    }
}

void ScreenWalk::openContextMenus(QWidget& window) {
    for (auto* field : window.findChildren<QWidget*>()) {
        if (!field->isVisible() || !field->isEnabled())
            continue;
        const bool isText = qobject_cast<QLineEdit*>(field) != nullptr ||
                            qobject_cast<QTextEdit*>(field) != nullptr;
        if (!isText)
            continue;
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, field->rect().center(),
                                field->mapToGlobal(field->rect().center()));
        // Some menus come back when they are closed, others at once.
        QMetaObject::invokeMethod(
            this, [this, field] { lookAtPopup(u":menu "_s + nameOf(*field)); },
            Qt::QueuedConnection);
        QCoreApplication::sendEvent(field, &asked);
        QCoreApplication::processEvents();
        return;
    }
}
