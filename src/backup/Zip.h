#pragma once

#include "store/EngineError.h"

#include <QString>

#include <memory>
#include <optional>

struct zip;
struct zip_error;
struct zip_file;

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
    enum class Fault { NoArchive, NoEntry, Damaged };

    /// @throws Fault; store::EngineError when the file can't be read
    explicit ZipEntry(const QString& path);
    ~ZipEntry();
    ZipEntry(const ZipEntry&) = delete;
    ZipEntry& operator=(const ZipEntry&) = delete;

    /// The size in bytes that the archive claims.
    quint64 size() const { return size_; }
    quint64 packedSize() const { return packed_; }
    /// The next bytes, at most `most`; 0 at the end, where the sum and the size have proved true.
    /// @throws Fault::Damaged, also when there is more than claimed; store::EngineError
    qint64 read(char* into, qint64 most);

  private:
    std::optional<quint64> find() const;
    bool isPlainFile(quint64 index) const;

    QString path_;
    ZipHandle archive_;
    zip_file* file_ = nullptr;
    quint64 size_ = 0;
    quint64 packed_ = 0;
    quint64 done_ = 0;
};

} // namespace backup
