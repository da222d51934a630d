#include "app/Application.h"

#include "forms/Appearance.h"
#include "forms/MessageBox.h"
#include "forms/SlovakTexts.h"

#include <QAbstractEventDispatcher>

namespace app {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName(QStringLiteral("TVK"));
    setApplicationVersion(QStringLiteral(TVK_VERSION));
    setDesktopFileName(QStringLiteral("sk.tvk.register"));
    // The main window says when the run is over: an archiving closes and opens it.
    setQuitOnLastWindowClosed(false);
    forms::dress(*this);
    textSize_.emplace(*this);
    forms::installSlovakTexts(*this);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    bool handled = true;
    runReporting([&] { handled = QApplication::notify(receiver, event); });
    return handled;
}

void Application::beforeWaiting(std::function<void()> action) {
    disconnect(beforeWaiting_);
    if (action)
        beforeWaiting_ = connect(eventDispatcher(), &QAbstractEventDispatcher::aboutToBlock, this,
                                 [this, action = std::move(action)] { runReporting(action); });
}

void Application::runReporting(const std::function<void()>& action) {
    try {
        action();
    } catch (const store::EngineError& error) {
        report(error);
    } catch (const std::exception& error) {
        report({store::ErrorNumber::Internal, QString::fromLocal8Bit(error.what()), {}});
    }
}

// The box waits for the loop: the error may have come out of a paint or of the dispatcher. While
// one is on show, what repeats behind it is not told again.
void Application::report(const store::EngineError& error) {
    if (reporting_)
        return;
    reporting_ = true;
    QMetaObject::invokeMethod(
        this,
        [this, error] {
            forms::showEngineError(activeWindow(), error);
            reporting_ = false;
        },
        Qt::QueuedConnection);
}

} // namespace app
