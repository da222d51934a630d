#pragma once

#include "report/Table.h"

#include <QTableView>

#include <functional>

namespace statreturn {

/// A column of a list of people; the width is in pixels.
struct PeopleColumn {
    QString head;
    int width = 0;
};

/// Lines of texts that are made when they are looked at, so that a long list is there at once.
class PeopleModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    /// Makes the texts of a line.
    using Line = std::function<QStringList(int line)>;

    using QAbstractTableModel::QAbstractTableModel;

    void setLines(std::vector<PeopleColumn> columns, int count, Line line);
    const std::vector<PeopleColumn>& columns() const { return columns_; }
    /// All lines under their heads.
    report::Table table() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    std::vector<PeopleColumn> columns_;
    int count_ = 0;
    Line line_;
    /// The line that was made last: it is asked for column by column.
    mutable int made_ = -1;
    mutable QStringList texts_;
};

/// The people behind a number.
class PeopleList : public QTableView {
    Q_OBJECT
  public:
    explicit PeopleList(QWidget* parent = nullptr);

    /// Shows other lines and stands on the first one.
    void setLines(std::vector<PeopleColumn> columns, int count, PeopleModel::Line line);
    report::Table table() const { return lines_.table(); }
    int count() const { return lines_.rowCount(); }
    /// -1 without lines.
    int line() const { return currentIndex().row(); }
    /// Stands on a line, or on the nearest that there is.
    void setLine(int line);

    /// Letters are no search here: the list may be long.
    void keyboardSearch(const QString&) override {}

  Q_SIGNALS:
    void lineChosen();

  protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

  private:
    PeopleModel lines_;
};

} // namespace statreturn
