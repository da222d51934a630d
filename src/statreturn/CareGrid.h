#pragma once

#include "statreturn/ExpertCare.h"

#include <QScrollArea>

#include <functional>
#include <vector>

class QLabel;

namespace forms {
class EntryField;
}

namespace statreturn {

/// The cells of Table V under heads that stay in sight. Where one stands, the heads of row and
/// column light up.
class CareGrid : public QScrollArea {
    Q_OBJECT
  public:
    /// Makes the field of a row and column with the screen's rules; it belongs to the parent.
    using MakeCell = std::function<forms::EntryField*(int row, int column, QWidget* parent)>;

    CareGrid(const MakeCell& makeCell, QWidget* parent);

    forms::EntryField& cell(int row, int column) const;
    CareCells texts() const;
    void setTexts(const CareCells& texts);
    /// Brings the cell into sight and lights up its heads.
    void showPlace(int row, int column);

    QSize sizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    struct RowHead {
        QWidget* ground;
        QLabel* ofThat;
        QLabel* text;
        QLabel* code;
    };
    struct ColumnHead {
        QLabel* label;
        int line;
        int lines;
        int column;
        int columns;
    };

    void makeCells(const MakeCell& makeCell);
    void makeRowHeads();
    void makeColumnHeads();
    QLabel* addColumnHead(const QString& text, int line, int lines, int column, int columns);
    void fitToFont();
    void fitRowHeads();
    void placeHeads();
    int left(int column) const;

    std::array<std::array<forms::EntryField*, careColumns>, careRows> cells_{};
    /// The heads lie on canvases that move under the edges of the grid.
    QWidget* rowEdge_;
    QWidget* columnEdge_;
    QWidget* rowCanvas_;
    QWidget* columnCanvas_;
    std::array<RowHead, careRows> rowHeads_{};
    std::vector<ColumnHead> columnHeads_;
    std::array<QLabel*, careColumns> columnHead_{};
    QSize cellSize_;
    int headWidth_ = 0;
    int lineHeight_ = 0;
    QWidget* litRow_ = nullptr;
    QWidget* litColumn_ = nullptr;
};

} // namespace statreturn
