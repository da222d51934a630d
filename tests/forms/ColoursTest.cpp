#include "forms/Colours.h"

#include "support/Contrast.h"

#include <gtest/gtest.h>

using namespace forms;

namespace {

/// What is seen on what, and how well it has to stand out.
struct Pair {
    QColor seen, ground;
    double least;
};

constexpr double text = 4.5, reading = 7, edge = 3;

TEST(ColoursTest, whatIsSeenStandsOutFromItsGround) {
    const Pair pairs[] = {
        {ink, screenColour, text},          {ink, buttonColour, text},
        {ink, entryColour, text},           {ink, fieldGround, reading},
        {ink, secondRowGround, reading},    {ink, headColour, reading},
        {ink, litHeadColour, reading},      {ink, wrongGround, reading},
        {ink, tipGround, reading},          {readInk, readGround, reading},
        {hintInk, screenColour, reading},   {emptyFieldInk, fieldGround, reading},
        {chosenInk, chosenGround, reading}, {differsInk, screenColour, text},
        {idleInk, screenColour, text},      {idleInk, idleButtonColour, text},
        {idleInk, fieldGround, text},       {edgeColour, screenColour, edge},
        {edgeColour, fieldGround, edge},    {edgeColour, readGround, edge},
        {focusColour, screenColour, edge},  {focusColour, fieldGround, edge},
        {focusColour, buttonColour, edge},  {unknownWordColour, fieldGround, edge},
    };
    for (const auto& [seen, ground, least] : pairs)
        EXPECT_GE(contrast::ratio(seen, ground), least)
            << seen.name().toStdString() << " on " << ground.name().toStdString();
}

} // namespace
