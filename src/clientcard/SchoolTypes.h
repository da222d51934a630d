#pragma once

namespace forms {
class DropDown;
}

namespace clientcard {

/// Fills a list with the sixteen types of school; a line begins with the type's code of two digits.
/// Dormant: the tab of placements offers what the centre's own code-list holds.
void naplnTypSkoly(forms::DropDown& list);

} // namespace clientcard
