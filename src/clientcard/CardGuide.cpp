#include "clientcard/CardGuide.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace clientcard {

namespace {

QLabel* makeLine(const char16_t* name, QWidget& window) {
    auto* line = new QLabel(&window);
    line->setObjectName(QString::fromUtf16(name));
    line->setTextFormat(Qt::PlainText);
    line->setWordWrap(true);
    line->hide();
    return line;
}

} // namespace

CardGuide::CardGuide(QWidget& window, QPushButton& cmdZaklUd)
    : cmdZaklUd_(cmdZaklUd), lblZapisane_(makeLine(u"lblZapisane", window)),
      lblZamok_(makeLine(u"lblZamok", window)) {
    QFont bold = lblZapisane_->font();
    bold.setBold(true);
    lblZapisane_->setFont(bold);
    lblZamok_->setText(QStringLiteral("Ostatné záložky sa sprístupnia, keď sa zapíšu základné "
                                      "údaje. Polia s hviezdičkou * sú povinné."));
}

QLayout* CardGuide::layOut() {
    auto* texts = new QVBoxLayout;
    texts->addWidget(lblZapisane_);
    texts->addWidget(lblZamok_);
    auto* line = new QHBoxLayout;
    line->addLayout(texts, 1);
    line->addWidget(&cmdZaklUd_);
    return line;
}

void CardGuide::setLocked(bool locked) {
    lblZamok_->setVisible(locked);
    cmdZaklUd_.setVisible(locked);
}

bool CardGuide::isLocked() const {
    return !lblZamok_->isHidden();
}

void CardGuide::tellWritten(const QString& whom) {
    lblZapisane_->setText(QStringLiteral("Klient %1 je zapísaný.").arg(whom));
    lblZapisane_->show();
    QAccessibleEvent alert(lblZapisane_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void CardGuide::forget() {
    lblZapisane_->hide();
}

bool CardGuide::speaks() const {
    return isLocked() || !lblZapisane_->isHidden();
}

} // namespace clientcard
