#pragma once

#include "oldregister/ConversionReport.h"
#include "report/Pages.h"

class QDate;

namespace oldregister {

/// The report of a conversion as it is printed.
report::Pages pagesOf(const ConversionReport& report, const QDate& today);

} // namespace oldregister
