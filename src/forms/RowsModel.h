#pragma once

#include "store/Recordset.h"

#include <QAbstractListModel>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace store {
class DataSource;
}

class QWidget;

namespace forms {

/// The lines of a drop-down or a list: fixed texts, or one column of a data source's rows. Rows are
/// looked at when they are shown; before load() a data source has no lines here.
class RowsModel : public QAbstractListModel {
    Q_OBJECT
  public:
    /// @param view asks for the lines; what can't be read goes its route
    explicit RowsModel(QWidget& view) : view_(view) {}

    void setItems(const QStringList& items);
    void removeItem(int row);
    /// @param source must outlive the model; the model uses a cursor of its own on its rows
    void setSource(store::DataSource& source, const QString& column);

    /// What is said of a row whose text is empty, in its tip and to a screen reader.
    using SayEmpty = std::function<QString(store::Recordset& row)>;
    void setSayEmpty(SayEmpty say) { sayEmpty_ = std::move(say); }

    /// Shows this column's value behind the text where the line before or after has the same text.
    void setTwinColumn(const QString& column) { twinColumn_ = column; }

    /// Takes up the source's rows as they are now, unless it has done so. @throws EngineError
    void load();
    /// Drops the rows; the next load() takes up those of then.
    void unload();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    /// Empty for a row that is not there any more.
    QString text(int row) const;
    /// The text as the list shows it: equal neighbours are told apart.
    QString line(int row) const;
    /// Not valid for fixed texts.
    store::RowMark mark(int row) const;
    /// The line of the source's current row, -1 when there is none.
    int sourceRow() const;
    /// The first line that begins with the text, letters' case aside; if there is none, accents
    /// aside as well; then the first whose words behind the code begin so; -1 when there is none
    /// either.
    int find(const QString& beginning) const;
    /// The lines are codes, each with its words behind a bar.
    bool holdsCodes() const;
    /// What a field takes of a line: its code, or the whole.
    QString value(int row) const;
    /// Another line's value than that of this one begins with the text, letters' case aside.
    bool beginsAnother(int row, const QString& text) const;
    /// The line that is the text; if there is none, the first that begins with it, letters' case
    /// and accents aside; -1 when there is none either.
    int lineOf(const QString& text) const;

  private:
    QString read(int row) const;
    QString said(int row) const;
    int first(const std::function<bool(const QString&)>& fits) const;
    int firstWithoutAccents(const QString& beginning) const;
    int firstByWords(const QString& beginning) const;

    QWidget& view_;
    store::DataSource* source_ = nullptr;
    QString column_, twinColumn_;
    SayEmpty sayEmpty_;
    std::unique_ptr<store::Recordset> rows_;
    mutable std::vector<std::optional<QString>> texts_;
    /// A line on show could not be read; until the next load() none is tried.
    mutable bool failed_ = false;
};

} // namespace forms
