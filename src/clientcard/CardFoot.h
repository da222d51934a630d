#pragma once

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

enum class TabKind;

/// The line below the tabs: which keys lead on from the one on show, and the buttons that save,
/// print and end.
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

    void showKeys(TabKind kind);
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
    std::vector<QPushButton*> buttons_;
    bool prints_ = false;
};

} // namespace clientcard
