#pragma once

#include <QString>

#include <sqlite3.h>

#include <memory>
#include <vector>

namespace bench {

/// A register opened by hand, with SQLite's own interface and no more of ours than the order of
/// texts, without which its indexes can't be read. Failures end the program.
class BareFile {
  public:
    explicit BareFile(const QString& path);

    sqlite3* handle() const { return database_.get(); }

  private:
    struct Closer {
        void operator()(sqlite3* database) const { sqlite3_close(database); }
    };
    std::unique_ptr<sqlite3, Closer> database_;
};

/// A statement of SQLite; failures end the program.
class BareQuery {
  public:
    BareQuery(const BareFile& file, const char* sql);

    void bind(int parameter, const QString& text);
    void bind(int parameter, qint64 number);
    bool step();
    void reset() { sqlite3_reset(statement_.get()); }
    qint64 integer(int column) const { return sqlite3_column_int64(statement_.get(), column); }
    /// The text as the program's own texts are.
    QString text(int column) const;
    /// Reads every column of the row. @return number of characters read
    qsizetype readRow() const;

  private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

} // namespace bench
