#pragma once

#include "store/EngineError.h"

#include <gtest/gtest.h>

/// Expects an action to end with the engine's error of a number.
#define EXPECT_ENGINE_ERROR(action, expected)                                                      \
    try {                                                                                          \
        action;                                                                                    \
        ADD_FAILURE() << "no error";                                                               \
    } catch (const store::EngineError& error) {                                                    \
        EXPECT_EQ(static_cast<int>(error.number()), expected) << error.what();                     \
        EXPECT_FALSE(error.description().isEmpty());                                               \
    }
