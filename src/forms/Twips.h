#pragma once

namespace forms {

/// Device-independent pixels of a length in twips, 1440 to the inch, on a screen of 96 to the inch;
/// rounded. Lengths are not negative.
constexpr int pixels(int twips) {
    constexpr int perPixel = 1440 / 96;
    return (twips + perPixel / 2) / perPixel;
}

} // namespace forms
