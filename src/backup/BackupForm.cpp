#include "backup/BackupForm.h"

#include "forms/MessageBox.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace backup {

namespace {

constexpr int steps = 1000;
constexpr int formWidth = 420;

} // namespace

BackupForm::BackupForm(const QString& name, const QString& title, store::DBEngine& engine,
                       const store::ProgramFolder& folder, QWidget* parent)
    : QDialog(parent), engine_(engine), folder_(folder), lblStav_(new QLabel),
      prgStav_(new QProgressBar) {
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
    connect(cmdZrusit, &QPushButton::clicked, this, &BackupForm::reject);
    auto* lines = new QVBoxLayout(this);
    lines->addWidget(lblStav_);
    lines->addWidget(prgStav_);
    lines->addWidget(cmdZrusit, 0, Qt::AlignRight);
    setFixedWidth(formWidth);
}

int BackupForm::exec() {
    work();
    hide();
    return Accepted;
}

void BackupForm::reject() {
    givenUp_ = true;
    QDialog::reject();
}

TellProgress BackupForm::progress(const QString& doing) {
    lblStav_->setText(doing);
    prgStav_->reset();
    since_.start();
    givenUp_ = false;
    return [this](double part) {
        return showPart(part);
    };
}

bool BackupForm::showPart(double part) {
    if (!isVisible() && since_.elapsed() >= patience_.count())
        show();
    prgStav_->setValue(static_cast<int>(part * steps));
    QCoreApplication::processEvents();
    return !givenUp_;
}

QMessageBox::StandardButton BackupForm::tell(const QString& text, QMessageBox::Icon icon,
                                             const QString& detail,
                                             QMessageBox::StandardButtons buttons) {
    hide();
    return forms::showMessage(parentWidget(),
                              {.text = text, .icon = icon, .buttons = buttons, .detail = detail});
}

} // namespace backup
