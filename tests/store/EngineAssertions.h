#pragma once

#include "store/EngineError.h"

#include <QString>

#include <gtest/gtest.h>

#include <utility>

/// Number and place of the engine's error that an action ends with; 0 when it ends well.
template <class Action>
std::pair<int, QString> errorOf(const Action& action) {
    try {
        action();
    } catch (const store::EngineError& error) {
        return {static_cast<int>(error.number()), error.place()};
    }
    return {0, {}};
}

/// Expects an action to end with the engine's error of a number.
#define EXPECT_ENGINE_ERROR(action, expected)                                                      \
    try {                                                                                          \
        action;                                                                                    \
        ADD_FAILURE() << "no error";                                                               \
    } catch (const store::EngineError& error) {                                                    \
        EXPECT_EQ(static_cast<int>(error.number()), expected) << error.what();                     \
        EXPECT_FALSE(error.description().isEmpty());                                               \
    }
