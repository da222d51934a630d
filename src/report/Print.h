#pragma once

#include "report/Fonts.h"
#include "report/Pages.h"

#include <QString>

#include <functional>

class QIODevice;
class QPagedPaintDevice;
class QPageLayout;
class QPainter;
class QWidget;

namespace report {

/// Draws a page so that one unit of the painter is one twip.
void drawPage(QPainter& painter, const Page& page);

/// The paper of a page, all of it usable.
QPageLayout paperOf(const Page& page);

/// Draws the pages onto a printer or a PDF writer, each on its own paper, only those in the
/// device's page ranges if it has any. @return false when the device failed
bool printPages(const Pages& pages, QPagedPaintDevice& device);

/// Writes a PDF with embedded fonts, searchable texts, title, language and bookmarks. @return false
/// when the device failed
bool writePdf(const Pages& pages, QIODevice& device);

/// Tells the user, over that window, why printing or saving did not succeed.
using ProblemTeller = std::function<void(QWidget* window, const QString& text)>;

/// Shows the pages in a preview with zoom, page turning, printing and "Uložiť ako PDF", and returns
/// when the user has closed it. Without `tellProblem` the preview's status line tells of failures.
void showPreview(const Pages& pages, QWidget* parent, const ProblemTeller& tellProblem = {});

} // namespace report
