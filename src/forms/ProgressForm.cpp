#include "forms/ProgressForm.h"

#include "forms/Metrics.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace forms {

namespace {

constexpr int progressSteps = 1000;
constexpr int formLetters = 64;
/// Often enough for the eye, seldom enough for the work.
constexpr int betweenPaintsMs = 50;

} // namespace

ProgressForm::ProgressForm(const QString& name, const QString& title, QWidget* parent)
    : QDialog(parent), lblStav_(new QLabel), prgStav_(new QProgressBar),
      cmdZrusit_(new QPushButton(QStringLiteral("&Zrušiť"))) {
    setObjectName(name);
    setWindowTitle(title);
    setWindowModality(Qt::ApplicationModal);
    lblStav_->setObjectName(QStringLiteral("lblStav"));
    lblStav_->setWordWrap(true);
    prgStav_->setObjectName(QStringLiteral("prgStav"));
    prgStav_->setAccessibleName(title);
    prgStav_->setRange(0, progressSteps);
    cmdZrusit_->setObjectName(QStringLiteral("cmdZrusit"));
    cmdZrusit_->setToolTip(QStringLiteral("Preruší prácu, všetko ostane, ako bolo"));
    connect(cmdZrusit_, &QPushButton::clicked, this, &ProgressForm::reject);
    auto* lines = new QVBoxLayout(this);
    lines->addWidget(lblStav_);
    lines->addWidget(prgStav_);
    lines->addWidget(cmdZrusit_, 0, Qt::AlignRight);
    fitToFont(*this, [this] { setFixedWidth(lettersWide(*this, formLetters)); });
}

void ProgressForm::setEndless() {
    cmdZrusit_->hide();
    prgStav_->setRange(0, 0);
    setWindowFlag(Qt::WindowCloseButtonHint, false);
}

void ProgressForm::reject() {
    if (cmdZrusit_->isHidden())
        return;
    givenUp_ = true;
    QDialog::reject();
}

store::TellProgress ProgressForm::progress(const QString& doing) {
    lblStav_->setText(doing);
    prgStav_->reset();
    since_.start();
    sincePainted_.start();
    givenUp_ = false;
    return [this](double part) {
        return showPart(part);
    };
}

bool ProgressForm::showPart(double part) {
    const bool isKnown = part != store::unknownPart && !cmdZrusit_->isHidden();
    prgStav_->setRange(0, isKnown ? progressSteps : 0);
    prgStav_->setValue(static_cast<int>(part * progressSteps));
    // Until this window takes all presses, none may reach the one that waits for the work.
    if (!isVisible() && !givenUp_) {
        if (since_.elapsed() < patience_.count())
            return true;
        show();
    } else if (!sincePainted_.hasExpired(betweenPaintsMs)) {
        return !givenUp_;
    }
    QCoreApplication::processEvents();
    sincePainted_.start();
    return !givenUp_;
}

} // namespace forms
