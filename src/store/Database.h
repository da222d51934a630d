#pragma once

#include "store/EngineError.h"
#include "store/Progress.h"
#include "store/Recordset.h"

#include <QString>

#include <functional>
#include <memory>

namespace store {

class Connection;

/// A query object that lies in the file under a name.
class QueryDef {
  public:
    /// @throws EngineError 3265 when no query has that name.
    QString SQL() const;
    void setSQL(const QString& sql);

  private:
    friend class Database;
    QueryDef(std::shared_ptr<Connection> connection, QString name);
    std::shared_ptr<Connection> connection_;
    QString name_;
};

/// A handle on an open database file. All handles on one file of a process share one connection.
class Database {
  public:
    /// Runs one action statement. @return the number of rows it touched.
    /// A statement that fails has changed nothing. @throws EngineError
    qint64 Execute(const QString& sql);
    /// @throws EngineError
    std::unique_ptr<Recordset> OpenRecordset(const QString& source);
    /// Has something called now and then while the rows of a join are looked for, on whatever
    /// handle of this file; the reading ends with what it throws.
    /// @param between may read the file by statements of its own; empty for nothing
    void whileReading(std::function<void()> between);
    QueryDef QueryDefs(const QString& name);
    /// Puts a new query object into the file. @throws EngineError 3012 when one has that name
    void CreateQueryDef(const QString& name, const QString& sql);
    /// Gives up the handle; further calls but Close throw. The last handle or recordset of a file
    /// closes the file and writes what is pending. @throws EngineError when it can't
    void Close();

  private:
    friend class DBEngine;
    friend class BulkInsert;
    explicit Database(std::shared_ptr<Connection> connection);
    std::shared_ptr<Connection> connection_;
};

/// The engine of a process: hands out databases, one connection for a file. Lives as long as all
/// that it handed out is used; not copied.
class DBEngine {
  public:
    DBEngine();
    ~DBEngine();
    DBEngine(const DBEngine&) = delete;
    DBEngine& operator=(const DBEngine&) = delete;

    /// Opens a register, one of an older schema after it was brought to the present one. A file of
    /// some size is not searched for damage here, unless its last write was cut off: that is for
    /// BackgroundCheck.
    /// @throws EngineError 3024 when there is no such file, 3343 when it is no register, is cut off
    /// or damaged or of a newer schema (the file is not changed then), 3051 when it can't be read.
    Database OpenDatabase(const QString& path);
    /// Copies a closed database to a new file without its free space, readable by its owner
    /// only and, on return, checked in full and durable. There is only one locale.
    /// @throws EngineError 3204 when the target exists, 3024, 3343, 3026 when the disk is full;
    /// GivenUp. A target that was begun is removed.
    void CompactDatabase(const QString& source, const QString& target, const QString& locale,
                         const TellProgress& tell = {});
    /// Makes a new, empty database with all tables, indexes and stored queries, readable by its
    /// owner only. @throws EngineError 3204 when the file exists.
    void CreateDatabase(const QString& path);
    /// True when OpenDatabase leaves the search for damage to be done in the background.
    static bool owesFullCheck(const QString& path);
    /// Why the opening of a large register takes seconds or minutes: its last write was cut off, so
    /// that it is searched for damage, or it is brought to the present schema.
    enum class Opening { Checks, Upgrades };
    /// Has something called when that begins, and again and again until it is done.
    /// @param working must not throw, nor use the engine; empty for nothing
    void whileOpening(std::function<void(Opening)> working);
    /// Opens the file on its own and checks every page. @throws EngineError 3343; GivenUp
    static void verifyDatabase(const QString& path, const TellProgress& tell = {});

    /// Makes durable what the current user action has written. Called before the program waits for
    /// its user. @throws EngineError when it can't be written; then nothing of the action stays.
    void commitPending();
    /// Undoes what the current user action has written, and forgets the errors that waited for its
    /// end. Edits that are open stay open.
    void rollBackPending() noexcept;
    /// True when another file lies at the path than the one that a database of it works on.
    bool holdsReplacedFile(const QString& path) const;

  private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace store
