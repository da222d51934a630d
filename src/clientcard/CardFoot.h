#pragma once

#include "card/FocusHints.h"
#include "forms/EscButton.h"

#include <functional>
#include <vector>

class QLayout;
class QPushButton;
class QWidget;

namespace forms {
class KeyHint;
}

namespace clientcard {

/// The line below the tabs: what the keys do, and the buttons that save, print and end. The one
/// that writes a new client lies nearer to the fields.
class CardFoot {
  public:
    /// By their places in the table of buttons.
    enum Button {
        cmdZaklUd,
        cmdZakZap,
        cmdSave,
        cmdTlac,
        cmdTlacKartu,
        cmdZapNew,
        CmdZap,
        cmdStorno
    };

    /// @param pressed nothing may be thrown out of it
    CardFoot(QWidget& window, const std::function<void(Button)>& pressed);

    QLayout* layOut();
    QPushButton& button(Button button) const { return *buttons_[button]; }
    void setPrints(bool prints);

    void showKeys();
    /// Nothing outside the tab of an open record can be pressed, and Esc is its Storno's.
    void giveWayTo(QAbstractButton& recordStorno);
    /// Esc is the card's again, and with it the buttons.
    void comeBack();
    /// Esc is the card's again.
    void takeEsc();
    bool recordIsOpen() const;

  private:
    void enable(bool enabled);
    void enablePrinting(bool enabled);

    forms::EscButton esc_;
    forms::KeyHint* keys_;
    card::FocusHints hints_;
    std::vector<QPushButton*> buttons_;
    bool prints_ = false;
};

} // namespace clientcard
