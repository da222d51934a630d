#pragma once

#include <span>

namespace forms {

/// A text of Qt and its Slovak words.
struct SlovakText {
    /// Without ampersands: the desktop themes differ in where they put them.
    const char* source;
    /// With the ampersand that captions of buttons get.
    const char16_t* slovak;
};

/// What Qt's own Slovak catalogue leaves out and a screen of the program may show: captions of
/// standard buttons, the kinds of files, the dialog of printers with what a printer can do.
std::span<const SlovakText> slovakTable();

} // namespace forms
