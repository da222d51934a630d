#include "forms/ErrorRoute.h"

#include "forms/Guard.h"
#include "forms/MessageBox.h"
#include "store/Database.h"

#include <QPointer>
#include <QWidget>

#include <utility>

namespace forms {

ErrorRoute::ErrorRoute(QWidget* window) : QObject(window), window_(window) {}

ErrorRoute& ErrorRoute::of(QWidget& widget) {
    QWidget* window = widget.window();
    auto* route = window->findChild<ErrorRoute*>(QString(), Qt::FindDirectChildrenOnly);
    return route != nullptr ? *route : *new ErrorRoute(window);
}

bool ErrorRoute::perform(const std::function<void()>& action) {
    const QPointer self = this;
    ++depth_;
    const bool isDone = run(action, false);
    if (self != nullptr && --depth_ == 0)
        tell();
    return isDone;
}

bool ErrorRoute::show(const std::function<void()>& reads) {
    return run(reads, true);
}

bool ErrorRoute::run(const std::function<void()>& action, bool reads) {
    const QPointer self = this;
    try {
        action();
        return true;
    } catch (const store::EngineError& error) {
        if (self != nullptr)
            keep(error, reads);
        return false;
    }
}

/// While a read error is told, what the window repeats behind the box is not kept.
void ErrorRoute::keep(const store::EngineError& error, bool isRead) {
    if (error_ || (isRead && telling_))
        return;
    error_ = error;
    isRead_ = isRead;
    if (depth_ == 0)
        QMetaObject::invokeMethod(this, &ErrorRoute::tell, Qt::QueuedConnection);
}

std::optional<store::EngineError> ErrorRoute::takeError() {
    return std::exchange(error_, std::nullopt);
}

void ErrorRoute::tell() {
    if (!error_ || depth_ > 0)
        return;
    const bool isRead = isRead_;
    const store::EngineError error = *takeError();
    if (engine_ != nullptr)
        engine_->rollBackPending();
    const QPointer self = this;
    telling_ = true;
    showEngineError(window_, error);
    if (self == nullptr)
        return;
    telling_ = false;
    if (isRead)
        Q_EMIT readFailed(error);
}

void guardedEnd(const std::function<void()>& action) {
    try {
        action();
    } catch (const store::EngineError& error) {
        showEngineError(nullptr, error);
    }
}

} // namespace forms
