#include "tour/Guide.h"

#include "forms/ProgressForm.h"
#include "tour/ScreenCheck.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QProgressDialog>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace tour {

void giveUp(const QString& why) {
    std::fprintf(stderr, "The tour ended early: %s\n", qUtf8Printable(why));
    std::_Exit(EXIT_FAILURE);
}

namespace {

constexpr QColor edge(48, 48, 88);

/// What sets a window off from those behind it is the desktop's, which there is none of.
void drawShadow(QPainter& painter, const QRect& window) {
    constexpr int depth = 14;
    for (int distance = depth; distance > 0; distance -= 2)
        painter.fillRect(window.adjusted(-distance, 4 - distance, distance, 4 + distance),
                         QColor(0, 0, 32, 11));
}

} // namespace

Guide::Guide(const QString& folder, QWidget& window)
    : takesPictures_(!folder.isEmpty()), folder_(folder), window_(window) {
    if (takesPictures_ && !folder_.mkpath(QStringLiteral(".")))
        giveUp(QStringLiteral("Cannot make the folder ") + folder);
    connect(&looker_, &QTimer::timeout, this, &Guide::look);
    looker_.start(10);
}

QWidget& Guide::inFront() const {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? *modal : window_;
}

/// The modal windows in the order in which they came, and the menu or list that is open.
std::vector<QWidget*> Guide::shownAbove() const {
    std::vector<QWidget*> above;
    for (const auto& window : seen_) {
        if (window != nullptr && window->isVisible())
            above.push_back(window);
    }
    if (QWidget* popup = QApplication::activePopupWidget())
        above.push_back(popup);
    return above;
}

void Guide::picture(const QString& name) {
    QCoreApplication::processEvents();
    QStringList faults = screenFaults(window_);
    for (const QWidget* above : shownAbove())
        faults += screenFaults(*above);
    for (const QString& fault : faults) {
        if (!faults_.contains(fault))
            faults_.insert(fault, name);
    }
    if (takesPictures_)
        takePicture(name);
}

void Guide::takePicture(const QString& name) {
    QPixmap picture = window_.grab();
    QPainter painter(&picture);
    painter.setPen(edge);
    for (QWidget* above : shownAbove()) {
        const QRect place(above->pos() - window_.pos(), above->size());
        drawShadow(painter, place);
        painter.drawPixmap(place.topLeft(), above->grab());
        painter.drawRect(place.adjusted(-1, -1, 0, 0));
    }
    painter.end();
    const QString file =
        QStringLiteral("%1-%2.png").arg(++taken_, 2, 10, QLatin1Char('0')).arg(name);
    if (!picture.save(path(file)))
        giveUp(QStringLiteral("Cannot write ") + file);
}

void Guide::click(const QString& objectName) {
    QWidget* target = inFront().findChild<QWidget*>(objectName);
    if (target == nullptr || !target->isVisible() || !target->isEnabled())
        giveUp(QStringLiteral("Cannot click ") + objectName);
    QWindow* surface = target->window()->windowHandle();
    QTest::mouseClick(surface, Qt::LeftButton, {},
                      target->mapTo(target->window(), target->rect().center()));
    QCoreApplication::processEvents();
}

void Guide::key(int key, Qt::KeyboardModifiers modifiers) {
    // Without a window manager nobody brings a window back when the one before it has closed.
    inFront().activateWindow();
    const QPointer<QWidget> pressed = &inFront();
    QTest::keyClick(pressed->windowHandle(), static_cast<Qt::Key>(key), modifiers);
    QCoreApplication::processEvents();
    // A button pressed by its letter acts when it has come up again.
    const auto isUp = [&] {
        return pressed == nullptr || std::ranges::none_of(pressed->findChildren<QAbstractButton*>(),
                                                          &QAbstractButton::isDown);
    };
    if (!QTest::qWaitFor(isUp))
        giveUp(QStringLiteral("A button stays down"));
}

void Guide::type(const QString& text) {
    QWidget* opened = QApplication::activePopupWidget();
    QWidget* field =
        opened != nullptr ? opened->findChild<QAbstractItemView*>() : inFront().focusWidget();
    if (field == nullptr)
        giveUp(QStringLiteral("Nothing to type into"));
    // Not all letters lie on a key of their own.
    for (const QChar letter : text)
        QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(letter), {});
}

void Guide::enter(std::initializer_list<const char*> typed) {
    for (const char* text : typed) {
        type(QString::fromUtf8(text));
        key(Qt::Key_Return);
    }
}

void Guide::goTo(const QString& objectName) {
    constexpr int farthest = 60;
    for (int i = 0; i < farthest && inFront().focusWidget()->objectName() != objectName; ++i)
        key(Qt::Key_Tab);
    if (inFront().focusWidget()->objectName() != objectName)
        giveUp(QStringLiteral("Cannot reach by keys: ") + objectName);
}

void Guide::press(const QString& button) {
    goTo(button);
    key(Qt::Key_Return);
}

void Guide::inModalWindow(std::function<void(QWidget&)> steps) {
    awaited_.push_back(std::move(steps));
}

void Guide::end() const {
    if (!awaited_.empty())
        giveUp(QStringLiteral("A window that the tour waited for did not come"));
    QString told;
    for (auto fault = faults_.begin(); fault != faults_.end(); ++fault)
        told += QStringLiteral("\n%1 (%2)").arg(fault.key(), fault.value());
    if (!told.isEmpty())
        giveUp(QStringLiteral("Not all can be seen:") + told);
}

void Guide::look() {
    QWidget* modal = QApplication::activeModalWidget();
    std::erase_if(seen_,
                  [](const auto& window) { return window == nullptr || !window->isVisible(); });
    // A window of progress comes and goes by itself.
    if (modal == nullptr || !modal->isVisible() ||
        qobject_cast<QProgressDialog*>(modal) != nullptr ||
        qobject_cast<forms::ProgressForm*>(modal) != nullptr ||
        std::ranges::find(seen_, modal, &QPointer<QWidget>::data) != seen_.end())
        return;
    if (awaited_.empty())
        giveUp(QStringLiteral("An unexpected window: ") + modal->windowTitle());
    seen_.emplace_back(modal);
    // Not from here: while the steps run, this timer must go on to see the boxes that they bring.
    QMetaObject::invokeMethod(
        this, [modal, steps = std::move(awaited_.front())] { steps(*modal); },
        Qt::QueuedConnection);
    awaited_.pop_front();
}

} // namespace tour
