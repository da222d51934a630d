#pragma once

namespace forms {

/// Device-independent pixels of a length in twips, 1440 to the inch, on a screen of 96 to the inch.
constexpr int pixels(int twips) {
    return twips / 15;
}

} // namespace forms
