#pragma once

#include "clientcard/TabFamily.h"

#include <memory>

namespace clientcard {

/// The six tabs whose records are kept in lists.
std::unique_ptr<TabFamily> makeRecordTabs(CardFrame& frame);

} // namespace clientcard
