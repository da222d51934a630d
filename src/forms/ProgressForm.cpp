#include "forms/ProgressForm.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace forms {

namespace {

constexpr int steps = 1000;
constexpr int formWidth = 420;

} // namespace

ProgressForm::ProgressForm(const QString& name, const QString& title, QWidget* parent)
    : QDialog(parent), lblStav_(new QLabel), prgStav_(new QProgressBar) {
    setObjectName(name);
    setWindowTitle(title);
    setWindowModality(Qt::ApplicationModal);
    lblStav_->setObjectName(QStringLiteral("lblStav"));
    prgStav_->setObjectName(QStringLiteral("prgStav"));
    prgStav_->setAccessibleName(title);
    prgStav_->setRange(0, steps);
    auto* cmdZrusit = new QPushButton(QStringLiteral("&Zrušiť"));
    cmdZrusit->setObjectName(QStringLiteral("cmdZrusit"));
    cmdZrusit->setToolTip(QStringLiteral("Preruší prácu, všetko ostane, ako bolo"));
    connect(cmdZrusit, &QPushButton::clicked, this, &ProgressForm::reject);
    auto* lines = new QVBoxLayout(this);
    lines->addWidget(lblStav_);
    lines->addWidget(prgStav_);
    lines->addWidget(cmdZrusit, 0, Qt::AlignRight);
    setFixedWidth(formWidth);
}

void ProgressForm::reject() {
    givenUp_ = true;
    QDialog::reject();
}

store::TellProgress ProgressForm::progress(const QString& doing) {
    lblStav_->setText(doing);
    prgStav_->reset();
    since_.start();
    givenUp_ = false;
    return [this](double part) {
        return showPart(part);
    };
}

bool ProgressForm::showPart(double part) {
    if (!isVisible() && !givenUp_ && since_.elapsed() >= patience_.count())
        show();
    prgStav_->setValue(static_cast<int>(part * steps));
    QCoreApplication::processEvents();
    return !givenUp_;
}

} // namespace forms
