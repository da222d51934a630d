#pragma once

#include <QColor>

#include <array>

namespace mainwindow {

/// Rest, highlight and chosen colour of the picture buttons.
inline constexpr QColor farbaZakl(255, 255, 217);
inline constexpr QColor farbaHover(255, 255, 168);
inline constexpr QColor farbaVyber(185, 255, 185);

/// Which colour each of the six picture buttons shows. Buttons count from 1.
///
/// A highlight stays until the pointer touches another button, and a button that was chosen turns
/// green only then: a click changes the colour to go back to, not the colour on show. Some actions
/// reset another entry than their own; users know the window that way.
class ButtonColours {
  public:
    static constexpr int buttons = 6;

    ButtonColours();

    /// The pointer moved over the picture of a button.
    void pointerMoved(int button);
    /// A picture was clicked; the labels on it don't count.
    void pictureClicked(int button);
    /// A list goes on show: 1 clients, 2 employees.
    void listChosen(int list);
    /// Button 3 or 5 is about to open its screen.
    void tableOpened(int button);
    void exitChosen();
    /// A card that was opened from a list has closed; `list` as in listChosen.
    void cardClosed(int list);

    QColor shown(int button) const { return shown_.at(index(button)); }

  private:
    static constexpr std::size_t index(int button) { return static_cast<std::size_t>(button - 1); }
    void reset(std::initializer_list<int> entries);
    void choose(int entry) { farbyTlacidiel_.at(index(entry)) = farbaVyber; }
    void restore(int button);
    void obnovFarbu();

    std::array<QColor, buttons> farbyTlacidiel_;
    std::array<QColor, buttons> shown_;
    int hoverTlacidlo_ = 0;
    int aktTlacidlo_ = 0;
    bool poKliku_ = false;
};

} // namespace mainwindow
