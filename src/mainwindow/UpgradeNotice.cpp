#include "mainwindow/UpgradeNotice.h"

#include "store/Database.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace mainwindow {

namespace {

constexpr int noticeWidth = 420;
/// Often enough for the bar to move.
constexpr qint64 pauseMs = 40;

} // namespace

UpgradeNotice::UpgradeNotice(store::DBEngine& engine, const QString& database) : engine_(engine) {
    setObjectName(QStringLiteral("dlgUprava"));
    setWindowTitle(QCoreApplication::applicationName());
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    auto* text = new QLabel(
        QStringLiteral("Register sa prispôsobuje tejto verzii programu. Stane sa to len raz, pri "
                       "veľkom registri to môže trvať aj niekoľko minút. Prosím, počkajte."));
    text->setObjectName(QStringLiteral("lblUprava"));
    text->setWordWrap(true);
    auto* bar = new QProgressBar;
    bar->setAccessibleName(text->text());
    // How long the making of an index takes is not known beforehand.
    bar->setRange(0, 0);
    auto* lines = new QVBoxLayout(this);
    lines->addWidget(text);
    lines->addWidget(bar);
    setFixedWidth(noticeWidth);
    if (store::DBEngine::owesFullCheck(database))
        engine_.whileUpgrading([this] { showWork(); });
}

UpgradeNotice::~UpgradeNotice() {
    engine_.whileUpgrading({});
}

void UpgradeNotice::showWork() {
    if (isVisible() && sinceShown_.elapsed() < pauseMs)
        return;
    show();
    sinceShown_.start();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

} // namespace mainwindow
