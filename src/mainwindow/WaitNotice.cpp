#include "mainwindow/WaitNotice.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QIcon>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>
#include <QWindow>

#include <chrono>

namespace mainwindow {

namespace {

constexpr int noticeWidth = 420;
/// Often enough for the bar to move.
constexpr qint64 pauseMs = 40;
/// For a screen to take up a window.
constexpr auto patience = std::chrono::milliseconds(500);

void letPaint() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace

WaitNotice::WaitNotice(const QString& text) {
    setObjectName(QStringLiteral("dlgCakanie"));
    setWindowTitle(QCoreApplication::applicationName());
    setWindowIcon(QIcon(QStringLiteral(":/icons/tvk.svg")));
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    auto* label = new QLabel(text + QStringLiteral(" Pri veľkom registri to môže trvať aj "
                                                   "niekoľko minút. Prosím, počkajte."));
    label->setObjectName(QStringLiteral("lblCakanie"));
    label->setWordWrap(true);
    auto* bar = new QProgressBar;
    bar->setAccessibleName(label->text());
    // How long the making of an index takes is not known beforehand.
    bar->setRange(0, 0);
    auto* lines = new QVBoxLayout(this);
    lines->addWidget(label);
    lines->addWidget(bar);
    setFixedWidth(noticeWidth);
}

void WaitNotice::showWork() {
    if (isVisible() && !sinceShown_.hasExpired(pauseMs))
        return;
    const bool isNew = !isVisible();
    show();
    const QDeadlineTimer deadline(patience);
    while (isNew && !windowHandle()->isExposed() && !deadline.hasExpired())
        letPaint();
    letPaint();
    sinceShown_.start();
}

} // namespace mainwindow
