#include "clientcard/CardFoot.h"

#include "card/Buttons.h"
#include "clientcard/RecordStateTexts.h"
#include "forms/FlowLayout.h"
#include "forms/KeyHint.h"
#include "forms/WhyNot.h"

#include <QPushButton>

#include <array>

namespace clientcard {

namespace {

// Two of them are never shown: one does nothing, the other what its neighbour does better.
constexpr std::array<card::ButtonRow, 8> footTable = {{
    {u"cmdZaklUd", u"Zapíš základné ú&daje", u"Zapíše základné údaje a sprístupníi ďalšie záložky",
     false},
    {u"cmdZakZap", u"Zapíš základné údaje", u"", false},
    {u"cmdSave", u"Zapíš", u"", false},
    {u"cmdTlac", u"&Tlač záložku"},
    {u"cmdTlacKartu", u"Tlač k&artu", u"Všetky záložky, v ktorých niečo je, ako jeden dokument"},
    {u"cmdZapNew", u"Zapíš + nový &klient", u"Zapíše aktuálne údaje a prejde na nového klienta"},
    {u"CmdZap", u"Zapíš + náv&rat", u"Zapíše aktuálne údaje a vráti sa do hlavnej obrazovky"},
    {u"cmdStorno", u"&Storno", u"Návrat do hlavnej obrazovky"},
}};

} // namespace

CardFoot::CardFoot(QWidget& window, const std::function<void(Button)>& pressed)
    : esc_(&window), keys_(new forms::KeyHint(&window)), hints_(*keys_),
      buttons_(
          card::makeButtons(footTable, &window, [pressed](int place) { pressed(Button(place)); })) {
    keys_->setObjectName(QStringLiteral("lblKlavesy"));
    setPrints(false);
    takeEsc();
}

QLayout* CardFoot::layOut() {
    auto* line = new forms::FlowLayout(forms::FlowLayout::Fill::First);
    line->addWidget(keys_);
    for (QPushButton* button : buttons_) {
        if (button != buttons_[cmdZaklUd])
            line->addWidget(button);
    }
    return line;
}

void CardFoot::setPrints(bool prints) {
    prints_ = prints;
    enablePrinting(true);
}

void CardFoot::showKeys() {
    if (recordIsOpen())
        hints_.setEverywhere({}, QStringLiteral("Esc storno záznamu"));
    else if (!buttons_[cmdZaklUd]->isHidden())
        hints_.setEverywhere({}, QStringLiteral("Alt+D zapíše základné údaje"));
    else
        hints_.setEverywhere({}, QStringLiteral("Ctrl+PageDown ďalšia záložka"));
}

void CardFoot::enable(bool enabled) {
    for (const Button button : {CmdZap, cmdZapNew, cmdStorno})
        forms::setUsable(*buttons_[button], enabled, recordIsOpenText());
    enablePrinting(enabled);
}

void CardFoot::enablePrinting(bool enabled) {
    for (const Button button : {cmdTlac, cmdTlacKartu})
        forms::setUsable(*buttons_[button], enabled && prints_,
                         prints_ ? recordIsOpenText() : QStringLiteral("Tu sa netlačí."));
}

void CardFoot::giveWayTo(QAbstractButton& recordStorno) {
    enable(false);
    esc_.set(&recordStorno);
    showKeys();
}

void CardFoot::comeBack() {
    enable(true);
    takeEsc();
}

void CardFoot::takeEsc() {
    esc_.set(buttons_[cmdStorno]);
    showKeys();
}

bool CardFoot::recordIsOpen() const {
    return esc_.button() != buttons_[cmdStorno];
}

} // namespace clientcard
