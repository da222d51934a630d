#pragma once

#include "report/Placed.h"

#include <QAbstractScrollArea>
#include <QPoint>

namespace report {

struct Pages;

/// Shows one page at a time on its paper. Arrows, wheel and dragging move it; a turn of the wheel
/// beyond its end turns the page, and with Ctrl it zooms.
class PageView : public QAbstractScrollArea {
    Q_OBJECT

  public:
    enum class Fit { Free, Width, Page };

    /// @param pages at least one; have to outlive the view
    explicit PageView(const Pages& pages, QWidget* parent = nullptr);

    /// How many pages are known so far.
    int pageCount() const;
    /// Number of the page on show, the first one being 1.
    int currentPage() const { return current_; }
    /// Shows that page, or the nearest that there is, from its upper edge on.
    void setCurrentPage(int number);

    /// The texts of the page on show, each on a line.
    QString pageText() const;

    /// Makes the page on show anew, as when the number of all pages has become known.
    void refresh();

    /// Size on the screen as a multiple of the paper's.
    double zoom() const;
    /// Zooms by that factor, within sensible limits, and no longer fits the window.
    void zoomBy(double factor);
    Fit fit() const { return fit_; }
    void setFit(Fit fit);

  Q_SIGNALS:
    void pageChanged(int number);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    /// Of the paper on the screen, in pixels.
    QSizeF sheetSize() const;
    QPointF sheetCorner() const;
    double fittingZoom() const;
    void adjust(double anchor);
    bool turnByWheel(int delta);

    const Pages& pages_;
    int current_ = 1;
    Page page_;
    Fit fit_ = Fit::Width;
    double zoom_ = 1;
    QPoint grip_;
};

} // namespace report
