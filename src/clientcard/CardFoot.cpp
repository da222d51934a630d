#include "clientcard/CardFoot.h"

#include "card/Buttons.h"
#include "clientcard/CardTables.h"
#include "forms/FlowLayout.h"
#include "forms/KeyHint.h"

#include <QPushButton>

#include <array>

namespace clientcard {

namespace {

// Two of them are never shown: one does nothing, the other what its neighbour does better.
constexpr std::array<card::ButtonRow, 8> footTable = {{
    {u"cmdZaklUd", u"Zapíš základné údaje", u"Zapíše základné údaje a sprístupníi ďalšie záložky",
     false},
    {u"cmdZakZap", u"Zapíš základné údaje", u"", false},
    {u"cmdSave", u"Zapíš", u"", false},
    {u"cmdTlac", u"Tlač záložku"},
    {u"cmdTlacKartu", u"Tlač kartu", u"Všetky záložky, v ktorých niečo je, ako jeden dokument"},
    {u"cmdZapNew", u"Zapíš + nový klient", u"Zapíše aktuálne údaje a prejde na nového klienta"},
    {u"CmdZap", u"Zapíš + návrat", u"Zapíše aktuálne údaje a vráti sa do hlavnej obrazovky"},
    {u"cmdStorno", u"Storno", u"Návrat do hlavnej obrazovky"},
}};

constexpr auto entryKeys =
    u"Enter ďalšie pole  ·  F4 číselník  ·  Ctrl+PageDown ďalšia záložka  ·  "
    "PageDown na zápis";
constexpr auto recordKeys = u"Enter ďalšie pole  ·  F4 číselník  ·  Esc storno záznamu";
constexpr auto otherKeys = u"Tab ďalšie pole  ·  Ctrl+PageDown ďalšia záložka";

} // namespace

CardFoot::CardFoot(QWidget& window, const std::function<void(Button)>& pressed)
    : esc_(&window), keys_(new forms::KeyHint(&window)),
      buttons_(
          card::makeButtons(footTable, &window, [pressed](int place) { pressed(Button(place)); })) {
    setPrints(false);
    takeEsc();
}

QLayout* CardFoot::layOut() {
    auto* line = new forms::FlowLayout(forms::FlowLayout::Fill::First);
    line->addWidget(keys_);
    for (QPushButton* button : buttons_)
        line->addWidget(button);
    return line;
}

void CardFoot::setPrints(bool prints) {
    prints_ = prints;
    enablePrinting(true);
}

void CardFoot::showKeys(TabKind kind) {
    keys_->setText(QString::fromUtf16(recordIsOpen()  ? recordKeys
                                      : isEntry(kind) ? entryKeys
                                                      : otherKeys));
}

void CardFoot::enable(bool enabled) {
    for (const Button button : {CmdZap, cmdZapNew, cmdStorno})
        buttons_[button]->setEnabled(enabled);
    enablePrinting(enabled);
}

void CardFoot::enablePrinting(bool enabled) {
    for (const Button button : {cmdTlac, cmdTlacKartu})
        buttons_[button]->setEnabled(enabled && prints_);
}

void CardFoot::giveWayTo(QAbstractButton& recordStorno) {
    enable(false);
    esc_.set(&recordStorno);
}

void CardFoot::comeBack() {
    enable(true);
    takeEsc();
}

void CardFoot::takeEsc() {
    esc_.set(buttons_[cmdStorno]);
}

bool CardFoot::recordIsOpen() const {
    return esc_.button() != buttons_[cmdStorno];
}

} // namespace clientcard
