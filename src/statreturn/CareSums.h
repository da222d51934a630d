#pragma once

#include "statreturn/ExpertCare.h"

#include <QWidget>

#include <vector>

class QGridLayout;
class QLabel;

namespace statreturn {

/// The sums that the checks of Table V compare, for the column and the row that one stands in.
class CareSums : public QWidget {
    Q_OBJECT
  public:
    explicit CareSums(QWidget* parent);

    void show(const CareCells& cells, int row, int column);

  private:
    struct Line {
        QLabel* name;
        QLabel* stated;
        QLabel* summands;
        QLabel* summed;
    };
    Line addLine(const QString& name, const QString& of);
    QLabel* addTitle();

    QGridLayout* grid_;
    QLabel* columnTitle_;
    std::vector<Line> columnLines_;
    QLabel* rowTitle_;
    Line rowLine_;
};

} // namespace statreturn
