#include "forms/ErrorRoute.h"

#include "forms/Guard.h"
#include "forms/MessageBox.h"
#include "store/Database.h"

#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace forms {

namespace {

QString lineOf(const NotWritten& refused) {
    const QString what = refused.column.isEmpty()
                             ? QStringLiteral("záznam")
                             : QStringLiteral("%1 „%2“").arg(refused.column, refused.typed);
    return QStringLiteral("%1\nChyba č. %2: %3")
        .arg(what)
        .arg(static_cast<int>(refused.error.number()))
        .arg(refused.error.description());
}

} // namespace

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
    tellSoon();
}

void ErrorRoute::passOver(NotWritten refused) {
    if (store::isOfMedium(refused.error.number()))
        return fail(refused.error);
    // An Update that is tried again meets the same refusal again.
    std::erase_if(notWritten_, [&](const NotWritten& known) {
        return known.column == refused.column && known.error.number() == refused.error.number();
    });
    notWritten_.push_back(std::move(refused));
    tellSoon();
}

bool ErrorRoute::passedOverRow() const {
    return std::ranges::any_of(notWritten_,
                               [](const NotWritten& refused) { return refused.column.isEmpty(); });
}

/// The end of the action that runs tells; without one, the loop does.
void ErrorRoute::tellSoon() {
    if (depth_ == 0)
        QMetaObject::invokeMethod(this, &ErrorRoute::tell, Qt::QueuedConnection);
}

std::optional<store::EngineError> ErrorRoute::takeError() {
    return std::exchange(error_, std::nullopt);
}

void ErrorRoute::tell() {
    if (depth_ > 0)
        return;
    const QPointer self = this;
    if (error_)
        tellError();
    if (self != nullptr && !notWritten_.empty())
        tellNotWritten();
}

void ErrorRoute::tellError() {
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

void ErrorRoute::tellNotWritten() {
    QStringList lines{QStringLiteral("Tieto údaje sa nezapísali:")};
    for (const NotWritten& refused : std::exchange(notWritten_, {}))
        lines += lineOf(refused);
    showMessage(window_, {.text = lines.join(QStringLiteral("\n\n")),
                          .title = QStringLiteral("Chybová správa"),
                          .icon = QMessageBox::Warning});
}

void guardedEnd(const std::function<void()>& action) {
    try {
        action();
    } catch (const store::EngineError& error) {
        showEngineError(nullptr, error);
    }
}

} // namespace forms
