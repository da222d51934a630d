#pragma once

#include "clientcard/TabFamily.h"

#include <memory>

namespace clientcard {

/// The six tabs of free text, all of one row.
std::unique_ptr<TabFamily> makeMemoTabs(CardFrame& frame);

} // namespace clientcard
