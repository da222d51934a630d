#pragma once

#include "report/Pages.h"

#include <QString>

class QIODevice;
class QPainter;
class QWidget;

namespace report {

/// The meter of the fonts that the painter uses. The program's font is loaded at its first use.
const TextMeter& fontMeter();

/// Draws a page so that one unit of the painter is one twip.
void drawPage(QPainter& painter, const Page& page);

/// Writes a PDF with embedded fonts and searchable texts. @return false when the device failed
bool writePdf(const Pages& pages, QIODevice& device);

/// Shows the pages in a preview with zoom, page turning, printing and "Uložiť ako PDF", and returns
/// when the user has closed it.
void showPreview(const Pages& pages, QWidget* parent);

} // namespace report
