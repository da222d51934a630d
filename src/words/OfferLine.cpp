#include "words/OfferLine.h"

#include "card/Buttons.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include <array>

namespace words {

namespace {

constexpr QColor ground(255, 255, 217);

constexpr std::array<card::ButtonRow, 2> offerButtons = {{
    {u"cmdVratitSlova", u"Vrátiť s&lová", u"Alt+L"},
    {u"cmdZahoditSlova", u"Za&hodiť", u"Zahodí rozpísané slová (Alt+H)"},
}};

} // namespace

OfferLine::OfferLine(QWidget* parent) : QFrame(parent), lblSlova_(new QLabel(this)) {
    setObjectName(QStringLiteral("fraSlova"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    card::setGround(*this, QPalette::Window, ground);
    lblSlova_->setObjectName(QStringLiteral("lblSlova"));
    lblSlova_->setTextFormat(Qt::PlainText);
    lblSlova_->setWordWrap(true);
    const auto buttons = card::makeButtons(
        offerButtons, this, [this](int place) { place == 0 ? Q_EMIT taken() : Q_EMIT refused(); });
    cmdVratitSlova_ = buttons[0];
    cmdZahoditSlova_ = buttons[1];
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(8, 4, 8, 4);
    line->addWidget(lblSlova_, 1);
    for (QPushButton* button : buttons) {
        // The field in focus is not left: no check of it may come between, and no step of Tab.
        button->setFocusPolicy(Qt::NoFocus);
        line->addWidget(button);
    }
    hide();
}

void OfferLine::offer(const QString& text, Way way) {
    const bool isText = way == Way::AsText;
    cmdVratitSlova_->setText(isText ? QStringLiteral("Zobraziť s&lová")
                                    : QStringLiteral("Vrátiť s&lová"));
    cmdVratitSlova_->setAccessibleName(cmdVratitSlova_->text().remove(u'&'));
    cmdVratitSlova_->setToolTip(
        isText ? QStringLiteral("Ukáže rozpísané slová ako text, ktorý sa dá kopírovať (Alt+L)")
               : QStringLiteral("Vráti rozpísané slová do polí, zapíše ich až zápis (Alt+L)"));
    show(text + QStringLiteral("  (Alt+L %1, Alt+H zahodí)")
                    .arg(isText ? QStringLiteral("zobrazí") : QStringLiteral("vráti")),
         true);
}

void OfferLine::tell(const QString& text) {
    show(text, false);
}

void OfferLine::show(const QString& text, bool asks) {
    for (QPushButton* button : {cmdVratitSlova_, cmdZahoditSlova_})
        button->setVisible(asks);
    const bool isNews = text != lblSlova_->text() || isHidden();
    lblSlova_->setText(text);
    setVisible(true);
    if (!isNews)
        return;
    QAccessibleEvent alert(lblSlova_, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace words
