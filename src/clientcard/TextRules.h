#pragma once

#include "card/TextRules.h"

namespace clientcard {

using card::ageAtBirth;
using card::capitalised;
using card::capitalisedName;
using card::trimBlanks;

} // namespace clientcard
