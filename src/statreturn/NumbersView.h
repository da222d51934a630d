#pragma once

#include "statreturn/NumberGrid.h"

#include <QTableView>

namespace statreturn {

/// A grid of numbers as a table of texts: a zero is empty, what does not apply is an "x".
class NumbersModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    using QAbstractTableModel::QAbstractTableModel;

    /// @param numbers must outlive the model or the next call; null empties the table
    void setNumbers(const NumberGrid* numbers);
    const NumberGrid* numbers() const { return numbers_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    /// The head's text; with `groupRole` that of its group.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    static constexpr int groupRole = Qt::UserRole;

  private:
    QString text(const QModelIndex& index) const;
    const NumberGrid* numbers_ = nullptr;
};

/// Numbers to walk through by keys, under heads that stay in sight. The heads of the number on
/// which one stands light up.
class NumbersView : public QTableView {
    Q_OBJECT
  public:
    explicit NumbersView(const QString& name, QWidget* parent = nullptr);

    /// Shows other numbers, and stands where it stood; at first on the first row with people. Tells
    /// nobody.
    /// @param numbers must outlive their show
    void setNumbers(const NumberGrid* numbers);
    const NumberGrid& numbers() const { return *numbers_.numbers(); }
    /// What it takes to show all rows.
    int fullHeight() const;
    std::size_t row() const { return std::size_t(std::max(0, currentIndex().row())); }
    std::size_t column() const { return std::size_t(std::max(0, currentIndex().column())); }

  Q_SIGNALS:
    /// Another number is the current one.
    void numberChosen();

  protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void layOut();
    void fitColumns();
    QModelIndex firstPlace() const;

    NumbersModel numbers_;
    /// Where it stood last.
    QPoint place_{-1, -1};
    int leastWidth_ = 0;
};

} // namespace statreturn
