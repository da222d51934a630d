#include "forms/LongWork.h"

#include <QApplication>
#include <QDeadlineTimer>

#include <chrono>

namespace forms {

namespace {

void closePopups() {
    for (QWidget* popup = QApplication::activePopupWidget(); popup != nullptr;
         popup = QApplication::activePopupWidget()) {
        if (!popup->close())
            return;
    }
}

/// The screen needs a moment to say which parts of a window have come to sight again.
void paintUncovered() {
    const QDeadlineTimer moment(std::chrono::milliseconds(30));
    while (!moment.hasExpired())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 5);
}

} // namespace

BusyPointer::BusyPointer() {
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    closePopups();
    paintUncovered();
}

BusyPointer::~BusyPointer() {
    QGuiApplication::restoreOverrideCursor();
}

bool BusyPointer::isShown() {
    return QGuiApplication::overrideCursor() != nullptr;
}

LongWork::LongWork(const QString& doing, QWidget* parent, std::chrono::milliseconds patience)
    : form_(QStringLiteral("frmPraca"), QCoreApplication::applicationName(), parent),
      progress_([this, show = form_.progress(doing)](double part) {
          part_ = part;
          return show(part);
      }) {
    form_.setPatience(patience);
}

void LongWork::goOn() const {
    if (!progress_(part_))
        throw store::GivenUp();
}

} // namespace forms
