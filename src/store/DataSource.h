#pragma once

#include "store/Database.h"
#include "store/Recordset.h"

#include <QObject>
#include <QString>

#include <memory>
#include <optional>

namespace store {

/// What a screen works through: a database name, a record source, a recordset and its current row.
/// Only Refresh opens the file and runs the query.
class DataSource : public QObject, private RecordsetObserver {
    Q_OBJECT
  public:
    /// @param engine must outlive the data source
    explicit DataSource(DBEngine& engine, QObject* parent = nullptr);
    ~DataSource() override;

    const QString& DatabaseName() const { return databaseName_; }
    void setDatabaseName(const QString& path) { databaseName_ = path; }
    const QString& RecordSource() const { return recordSource_; }
    void setRecordSource(const QString& source) { recordSource_ = source; }

    /// Leaves the old rows and runs the query; the first row is current. An old recordset ends even
    /// when the new query fails. @throws EngineError
    void Refresh();
    /// True once Refresh has succeeded.
    bool isOpen() const { return recordset_ != nullptr; }
    /// @throws EngineError 3021 before the first Refresh
    store::Recordset& Recordset();
    /// @throws EngineError 3021 before the first Refresh
    store::Database& Database();

  Q_SIGNALS:
    // The first three are the observer's calls themselves: a signal of the same form overrides
    // them.
    /// See RecordsetObserver. The signals are sent synchronously; their slots must not throw.
    void aboutToWrite() override;
    void aboutToLeave() override;
    void repositioned() override;
    /// A new recordset is in place; sent before its first repositioned().
    void refreshed();

  private:
    void leave();

    QString databaseName_;
    QString recordSource_;
    DBEngine& engine_;
    std::optional<store::Database> database_;
    std::unique_ptr<store::Recordset> recordset_;
};

} // namespace store
