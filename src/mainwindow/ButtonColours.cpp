#include "mainwindow/ButtonColours.h"

namespace mainwindow {

ButtonColours::ButtonColours() {
    farbyTlacidiel_.fill(farbaZakl);
    shown_.fill(farbaZakl);
}

void ButtonColours::pointerMoved(int button) {
    if (poKliku_) {
        poKliku_ = false;
        return;
    }
    shown_.at(index(button)) = farbaHover;
    if (hoverTlacidlo_ != button && hoverTlacidlo_ != 0)
        restore(hoverTlacidlo_);
    hoverTlacidlo_ = button;
}

void ButtonColours::pictureClicked(int button) {
    if (button == 1 || button == 2)
        poKliku_ = true;
}

void ButtonColours::listChosen(int list) {
    choose(list);
    reset({list == 1 ? 2 : 1, 3, 4, 5});
    obnovFarbu();
    aktTlacidlo_ = list;
}

void ButtonColours::tableOpened(int button) {
    reset({button == 3 ? 3 : 4});
    obnovFarbu();
}

void ButtonColours::exitChosen() {
    reset({1, 2});
    choose(3);
    obnovFarbu();
    aktTlacidlo_ = 4;
}

void ButtonColours::cardClosed(int list) {
    choose(list == 1 ? 1 : 2);
    reset({list == 1 ? 2 : 1, 3});
    obnovFarbu();
}

void ButtonColours::reset(std::initializer_list<int> entries) {
    for (const int entry : entries)
        farbyTlacidiel_.at(index(entry)) = farbaZakl;
}

void ButtonColours::restore(int button) {
    shown_.at(index(button)) = farbyTlacidiel_.at(index(button));
}

void ButtonColours::obnovFarbu() {
    if (aktTlacidlo_ >= 1 && aktTlacidlo_ <= 5)
        restore(aktTlacidlo_);
}

} // namespace mainwindow
