#include "mainwindow/MainWindow.h"

#include <sstream>
#include <string>

using mainwindow::ButtonColours;

namespace {

/// One letter a button.
std::string shown(const ButtonColours& colours) {
    std::string letters;
    for (int button = 1; button <= ButtonColours::buttons; ++button)
        letters += colourLetter(colours.shown(button));
    return letters;
}

/// A letter for what happens and the button or list that it happens to.
///   m move over a picture, p click on a picture that shows a list, l the same on a label,
///   t a table's button, x exit, c a card of that list has closed
void act(ButtonColours& colours, const std::string& action) {
    const int number = action[1] - '0';
    switch (action[0]) {
    case 'm':
        return colours.pointerMoved(number);
    case 'p':
        colours.pictureClicked(number);
        return colours.listChosen(number);
    case 'l':
        return colours.listChosen(number);
    case 't':
        return colours.tableOpened(number);
    case 'x':
        colours.pictureClicked(4);
        return colours.exitChosen();
    case 'c':
        return colours.cardClosed(number);
    default:
        FAIL() << action;
    }
}

/// What happens and what is shown afterwards, by turns.
const std::pair<const char*, const char*> walks[] = {
    {"highlight stays until another is touched", "m6 .....h m6 .....h m3 ..h... m1 h....."},
    {"chosen turns green only when the pointer goes on, whose first move after a click is ignored",
     "m1 h..... p1 h..... m2 h..... m2 Vh.... m1 h..... m6 V....h"},
    {"a click on the label ignores no move", "m1 h..... l1 h..... m2 Vh...."},
    {"other list takes the green away",
     "m1 h..... l1 h..... m2 Vh.... l2 .h.... m3 .Vh... l1 ..h... m1 h..... m4 V..h.."},
    {"choosing the same list again shows it", "m1 h..... l1 h..... l1 V..... m1 h....."},
    {"tables reset the entries below them", "l1 ...... t3 V..... t5 V..... m3 V.h... m5 V...h."},
    {"exit marks the third entry", "l1 ...... x4 ...... m3 ..h... m4 ..Vh.."},
    {"a closed card shows its list again",
     "m1 h..... l1 h..... m2 Vh.... c1 Vh.... m3 V.h... l2 ..h... c2 .Vh... c0 .Vh..."}};

TEST(ButtonColours, followTheWalk) {
    for (const auto& [name, walk] : walks) {
        SCOPED_TRACE(name);
        ButtonColours colours;
        EXPECT_EQ(shown(colours), "......");
        std::istringstream steps(walk);
        for (std::string action, expected; steps >> action >> expected;) {
            act(colours, action);
            EXPECT_EQ(shown(colours), expected) << action << " before " << steps.tellg();
        }
    }
}

} // namespace
