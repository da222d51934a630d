#pragma once

#include "store/Progress.h"

#include <QByteArray>
#include <QFile>
#include <QString>

#include <functional>

namespace backup {

/// How an archive is made.
struct PackOptions {
    /// UTF-8; without one nothing is encrypted.
    QByteArray password = {};
    QByteArray comment = {};
};

/// Packs a file into a new archive as its one entry "tvk.mdb", durable and readable by its owner
/// only, and reads it back: the entry has been equal to the file to the byte.
/// @throws store::EngineError, 3204 when there is a file of that name; store::GivenUp. What was
/// begun is for a Begun to remove.
void packFile(const QString& path, const QString& made, const PackOptions& options,
              const store::TellProgress& tell);
/// As packFile, out of the register in another archive that has no password.
/// @throws ZipEntry::Fault for that archive, too
void packAgain(const QString& archive, const QString& made, const PackOptions& options,
               const store::TellProgress& tell);

/// Gives the next bytes, at most so many; 0 at the end, less when they can't be read.
using ReadBytes = std::function<qint64(char* into, qint64 most)>;

/// Reads both to their ends, after so many bytes. @throws store::EngineError when they differ;
/// store::GivenUp
void compareBytes(const ReadBytes& made, const ReadBytes& original, quint64 size,
                  const QString& path, const store::Share& share);

/// @throws store::EngineError
void openToRead(QFile& file);

/// Takes a work file away with its block, unless it was kept; at first what a killed program left
/// of it.
class Begun {
  public:
    explicit Begun(QString path) : path_(std::move(path)) { remove(); }
    ~Begun() {
        if (!kept_)
            remove();
    }
    Q_DISABLE_COPY_MOVE(Begun)
    const QString& path() const { return path_; }
    void keep() { kept_ = true; }
    void remove() const;

  private:
    QString path_;
    bool kept_ = false;
};

} // namespace backup
