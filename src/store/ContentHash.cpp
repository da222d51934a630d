#include "store/ContentHash.h"

#include "store/Connection.h"
#include "store/OpenCheck.h"
#include "store/Query.h"
#include "store/Schema.h"
#include "store/Watch.h"

#include <QCryptographicHash>
#include <QFileInfo>

namespace store {

namespace {

/// Collects what comes in small pieces: each piece with its length, so that none runs into the
/// next.
class Pieces {
  public:
    void add(std::string_view piece) {
        collected_ += std::to_string(piece.size());
        collected_ += ':';
        collected_ += piece;
        if (collected_.size() > enough)
            flush();
    }
    void addNull() { collected_ += '-'; }
    QByteArray result() {
        flush();
        return hash_.result().toHex();
    }

  private:
    static constexpr size_t enough = 1 << 16;
    void flush() {
        hash_.addData(QByteArrayView(collected_.data(), static_cast<qsizetype>(collected_.size())));
        collected_.clear();
    }
    std::string collected_;
    QCryptographicHash hash_{QCryptographicHash::Blake2b_256};
};

void addRow(const Query& query, Pieces& pieces) {
    for (int column = 0; column < query.columnCount(); ++column) {
        if (query.isNull(column))
            pieces.addNull();
        else
            pieces.add(query.bytes(column));
    }
}

void addTable(const Connection& connection, const QString& name, Pieces& pieces) {
    pieces.add(name.toStdString());
    Query rows(connection.handle(),
               QStringLiteral("SELECT * FROM %1 ORDER BY rowid").arg(sqlName(name)));
    while (rows.step())
        addRow(rows, pieces);
}

} // namespace

QByteArray contentHash(const QString& path, const TellProgress& tell) {
    checkHeader(path);
    // What an interrupted write has left is taken back first.
    const Connection connection(path, hasHotJournal(path) ? Connection::Access::ReadWrite
                                                          : Connection::Access::ReadOnly);
    const Share share(tell, 0, 1);
    double done = 0;
    Pieces pieces;
    Watch watch(connection.handle(), [&] { return share.tells(done); });
    for (const TableDef& table : schema()) {
        const QString name = QString::fromUtf16(table.name);
        if (!name.startsWith(QStringLiteral("z_")))
            watch.run([&] { addTable(connection, name, pieces); });
        done += 1.0 / static_cast<double>(schema().size());
    }
    return pieces.result();
}

} // namespace store
