#pragma once

#include <QString>
#include <QtCore/qnamespace.h>

class QBoxLayout;
class QGridLayout;
class QWidget;

namespace card {

/// Gives a field the width of that many characters; a long one may shrink to two thirds of it.
void setWidth(QWidget& field, int characters);

/// Lets a control take the room that there is, between so many characters and so many.
void setRoom(QWidget& control, int least, int most);

/// What lies around the control does not move when it is hidden.
void keepPlace(QWidget& control);

/// A dense grid of fields, each behind its label and with its drop-down beside it.
class FieldGrid {
  public:
    /// Where a field lies: the label in one column of the grid, the field in the next.
    struct Place {
        int row;
        int pair;
        /// Pairs of columns that the field reaches over.
        int pairs = 1;
    };

    /// @param labels how the labels stand in their columns
    explicit FieldGrid(QBoxLayout& frame, Qt::Alignment labels = Qt::AlignRight);
    /// @param pick may be null
    void add(const Place& place, const QString& label, QWidget& field, QWidget* pick);
    QGridLayout& grid() { return *grid_; }

  private:
    QGridLayout* grid_;
    Qt::Alignment labels_;
};

} // namespace card
