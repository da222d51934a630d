#pragma once

#include "store/EngineError.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

struct zip;
struct zip_error;
struct zip_file;
struct zip_source;

namespace backup {

/// The one entry of an archive that counts.
inline constexpr char entryName[] = "tvk.mdb";

/// Gives up what was done to an archive that is still open.
struct Discard {
    void operator()(zip* archive) const;
};
using ZipHandle = std::unique_ptr<zip, Discard>;

/// The error for what libzip reports of a file: that of the system when it has one.
store::EngineError zipFault(const zip_error& error, const QString& path);

/// The register inside an archive, read from its beginning to its end. Names are compared to the
/// letter; folders, links and devices don't count.
class ZipEntry {
  public:
    enum class Fault { NoArchive, NoEntry, Damaged, Locked };

    /// @param password of an encrypted entry, in UTF-8
    /// @throws Fault, Locked when the password is missing or wrong; store::EngineError when the
    /// file can't be read
    explicit ZipEntry(const QString& path, const QByteArray& password = {});
    ~ZipEntry();
    ZipEntry(const ZipEntry&) = delete;
    ZipEntry& operator=(const ZipEntry&) = delete;

    /// The size in bytes that the archive claims.
    quint64 size() const { return size_; }
    quint64 packedSize() const { return packed_; }
    /// The next bytes, at most `most`; 0 at the end, where the sum and the size have proved true.
    /// @throws Fault::Damaged, also when there is more than claimed; store::EngineError
    qint64 read(char* into, qint64 most);
    /// The comment of the whole archive.
    QByteArray comment() const;
    /// Its content as an entry of another archive, which must end before this; null on failure, as
    /// the other archive's error tells.
    zip_source* sourceFor(zip* target) const;

  private:
    std::optional<quint64> find() const;
    void open(const QByteArray& password);
    bool isPlainFile(quint64 index) const;

    QString path_;
    ZipHandle archive_;
    quint64 index_ = 0;
    zip_file* file_ = nullptr;
    quint64 size_ = 0;
    quint64 packed_ = 0;
    quint64 done_ = 0;
};

/// Whether the register in an archive without a password can be read to its end, where its sum has
/// proved true. @throws store::EngineError when the file can't be read
bool isWhole(const QString& archive);

} // namespace backup
