#pragma once

#include "store/EngineError.h"
#include "store/Files.h"
#include "store/Query.h"
#include "store/Sql.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace store {

/// Errors that came up where nothing could throw; the next commit of the engine throws the first.
struct DeferredErrors {
    std::optional<EngineError> first;
    void add(const EngineError& error) {
        if (!first)
            first = error;
    }
};

/// The connection with one file. All writes since the last commit are one unit of work; each
/// statement in it undoes itself alone when it fails.
class Connection {
  public:
    enum class Access {
        ReadWrite,
        ReadOnly,
        /// Reads the bytes as they lie, without locks: what is written meanwhile may look torn.
        Unlocked
    };

    /// Opens a file without looking at what it holds.
    /// @param deferred takes the error when the last unit of work can't be written at the end
    Connection(const QString& path, Access access, std::shared_ptr<DeferredErrors> deferred = {});
    /// Writes what is pending.
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    sqlite3* handle() const { return file_.get(); }
    const QString& path() const { return path_; }
    const FileIdentity& identity() const { return identity_; }

    /// Holds the file for reading until the next commit, which spares each statement the taking of
    /// locks. All reads of a user action see the file alike.
    void beginRead();
    /// Runs a write of a single statement that touches a single row.
    template <class Action>
    auto writeRow(Action&& action) {
        beginWrite();
        return guarded(std::forward<Action>(action));
    }
    /// Runs a write of many rows or of several statements: it happens wholly or not at all.
    template <class Action>
    auto writeAll(Action&& action) {
        beginWrite();
        const Savepoint savepoint(*this);
        return guarded([&] {
            auto result = action();
            savepoint.release();
            return result;
        });
    }
    static constexpr int usualPatienceMs = 2000;
    /// How long to wait for another program that uses the file.
    void setPatience(int milliseconds);
    /// Runs statements of SQLite that give no rows.
    void execute(const char* sql);
    /// The number that a statement of SQLite gives; 0 when it gives no row.
    qint64 number(const QString& sql) const;

    /// Makes the unit of work durable and lets go of the file.
    /// @throws EngineError, and nothing of the unit stays. Once the medium has refused a write, the
    /// whole unit is refused with the same error, whoever passed over it then.
    void commit();
    /// Undoes the unit of work and forgets why it failed.
    void rollBack() noexcept;

    /// Another number after each change that a row read before may have missed.
    quint64 changeStamp() const;

    /// See Database::whileReading().
    void whileReading(std::function<void()> between) { betweenRows_ = std::move(between); }
    /// A row of a long selection has been read.
    void rowRead();

    /// The statement of a stored query; nothing when there is none of that name.
    std::optional<QString> storedQuery(QStringView name);
    QueryLookup queryLookup();

  private:
    /// Undoes what its block wrote, unless released.
    class Savepoint {
      public:
        explicit Savepoint(Connection& connection);
        ~Savepoint();
        Savepoint(const Savepoint&) = delete;
        Savepoint& operator=(const Savepoint&) = delete;
        void release() const;

      private:
        Connection& connection_;
        mutable bool open_ = true;
    };

    template <class Action>
    auto guarded(Action&& action) {
        try {
            auto result = action();
            ++writes_;
            return result;
        } catch (const EngineError& error) {
            noteFailure(error);
            throw;
        }
    }
    bool isIdle() const;
    void beginWrite();
    void openForWriting();
    void noteFailure(const EngineError& error);
    void undo() noexcept;

    QString path_;
    FileIdentity identity_;
    std::shared_ptr<DeferredErrors> deferred_;
    struct Closer {
        void operator()(sqlite3* file) const { sqlite3_close_v2(file); }
    };
    std::unique_ptr<sqlite3, Closer> file_;
    std::optional<Query> lookup_;
    /// The open transaction may write.
    bool writing_ = false;
    /// Writes of the unit of work that went well.
    qint64 writes_ = 0;
    /// Grows whenever the file may change without a counted change: at its release and rollbacks.
    quint64 epoch_ = 0;
    /// Why the whole unit is given up, while its caller may not know that earlier writes of it are
    /// gone.
    std::optional<EngineError> lost_;
    std::function<void()> betweenRows_;
    quint64 rowsRead_ = 0;
};

} // namespace store
