#include "mainwindow/ButtonColours.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using mainwindow::ButtonColours;

namespace {

/// One letter a button: . rest, h highlight, V chosen.
std::string shown(const ButtonColours& colours) {
    std::string letters;
    for (int button = 1; button <= ButtonColours::buttons; ++button) {
        const QColor colour = colours.shown(button);
        letters += colour == mainwindow::farbaHover   ? 'h'
                   : colour == mainwindow::farbaVyber ? 'V'
                   : colour == mainwindow::farbaZakl  ? '.'
                                                      : '?';
    }
    return letters;
}

/// One step: a letter for what happens and the button or list that it happens to.
///   m move over a picture, p click on a picture that shows a list, l the same on a label,
///   t a table's button, x exit, c a card of that list has closed
struct Step {
    const char* action;
    const char* expected;
};

void apply(ButtonColours& colours, const char* action) {
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

struct Walk {
    const char* name;
    std::vector<Step> steps;
};

class ColoursTest : public testing::TestWithParam<Walk> {};

TEST_P(ColoursTest, followTheWalk) {
    ButtonColours colours;
    EXPECT_EQ(shown(colours), "......");
    int number = 0;
    for (const Step& step : GetParam().steps) {
        apply(colours, step.action);
        EXPECT_EQ(shown(colours), step.expected) << "step " << ++number << ": " << step.action;
    }
}

INSTANTIATE_TEST_SUITE_P(
    ButtonColours, ColoursTest,
    testing::Values(Walk{"highlightStaysUntilAnotherIsTouched",
                         {{"m6", ".....h"}, {"m6", ".....h"}, {"m3", "..h..."}, {"m1", "h....."}}},
                    Walk{"chosenTurnsGreenOnlyWhenThePointerGoesOn",
                         {{"m1", "h....."},
                          {"p1", "h....."},
                          {"m1", "h....."},
                          {"m2", "Vh...."},
                          {"m1", "h....."},
                          {"m6", "V....h"}}},
                    Walk{"firstMoveAfterAClickOnThePictureIsIgnored",
                         {{"m1", "h....."}, {"p1", "h....."}, {"m2", "h....."}, {"m2", "Vh...."}}},
                    Walk{"aClickOnTheLabelIgnoresNoMove",
                         {{"m1", "h....."}, {"l1", "h....."}, {"m2", "Vh...."}}},
                    Walk{"otherListTakesTheGreenAway",
                         {{"m1", "h....."},
                          {"l1", "h....."},
                          {"m2", "Vh...."},
                          {"l2", ".h...."},
                          {"m3", ".Vh..."},
                          {"l1", "..h..."},
                          {"m1", "h....."},
                          {"m4", "V..h.."}}},
                    Walk{"choosingTheSameListAgainShowsIt",
                         {{"m1", "h....."}, {"l1", "h....."}, {"l1", "V....."}, {"m1", "h....."}}},
                    Walk{"tablesResetTheEntriesBelowThem",
                         {{"l1", "......"},
                          {"t3", "V....."},
                          {"t5", "V....."},
                          {"m3", "V.h..."},
                          {"m5", "V...h."}}},
                    Walk{"exitMarksTheThirdEntry",
                         {{"l1", "......"}, {"x4", "......"}, {"m3", "..h..."}, {"m4", "..Vh.."}}},
                    Walk{"aClosedCardShowsItsListAgain",
                         {{"m1", "h....."},
                          {"l1", "h....."},
                          {"m2", "Vh...."},
                          {"c1", "Vh...."},
                          {"m3", "V.h..."},
                          {"l2", "..h..."},
                          {"c2", ".Vh..."},
                          {"c0", ".Vh..."}}}),
    [](const auto& walk) { return walk.param.name; });

} // namespace
