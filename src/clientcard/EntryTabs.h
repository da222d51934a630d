#pragma once

#include "clientcard/TabFamily.h"

#include <memory>

namespace clientcard {

/// The tabs "Základné údaje" and "Rodičia".
std::unique_ptr<TabFamily> makeEntryTabs(CardFrame& frame);

} // namespace clientcard
