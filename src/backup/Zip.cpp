#include "backup/Zip.h"

#include "store/Files.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <zip.h>

#include <cerrno>
#include <cstring>
#include <vector>

namespace backup {

namespace {

ZipHandle openArchive(const QString& path) {
    // Opening a pipe would wait for ever.
    const QFileInfo info(path);
    if (!info.exists())
        throw store::systemError(ENOENT, path);
    if (!info.isFile())
        throw ZipEntry::Fault::NoArchive;
    int code = 0;
    ZipHandle archive(zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, &code));
    if (archive)
        return archive;
    if (code == ZIP_ER_OPEN || code == ZIP_ER_READ || code == ZIP_ER_MEMORY)
        throw store::EngineError(store::ErrorNumber::CannotOpen,
                                 QStringLiteral("Súbor sa nedá čítať."), path);
    throw ZipEntry::Fault::NoArchive;
}

bool isReadable(const zip_stat_t& status) {
    constexpr zip_uint64_t needed = ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE;
    return (status.valid & needed) == needed &&
           zip_encryption_method_supported(status.encryption_method, 0) != 0;
}

bool isOfPassword(const zip_error& error) {
    const int code = zip_error_code_zip(&error);
    return code == ZIP_ER_NOPASSWD || code == ZIP_ER_WRONGPASSWD;
}

} // namespace

void Discard::operator()(zip* archive) const {
    zip_discard(archive);
}

store::EngineError zipFault(const zip_error& error, const QString& path) {
    if (zip_error_system_type(&error) == ZIP_ET_SYS && zip_error_code_system(&error) != 0)
        return store::systemError(zip_error_code_system(&error), path);
    return {store::ErrorNumber::DiskError,
            QStringLiteral("Chyba pri práci s archívom (%1).").arg(zip_error_code_zip(&error)),
            path};
}

ZipEntry::ZipEntry(const QString& path, const QByteArray& password)
    : path_(path), archive_(openArchive(path)) {
    const auto index = find();
    if (!index)
        throw Fault::NoEntry;
    index_ = *index;
    zip_stat_t status;
    if (zip_stat_index(archive_.get(), index_, 0, &status) != 0 || !isReadable(status))
        throw Fault::Damaged;
    size_ = status.size;
    packed_ = status.comp_size;
    open(password);
}

void ZipEntry::open(const QByteArray& password) {
    file_ = zip_fopen_index_encrypted(archive_.get(), index_, 0,
                                      password.isEmpty() ? nullptr : password.constData());
    if (file_ == nullptr)
        throw isOfPassword(*zip_get_error(archive_.get())) ? Fault::Locked : Fault::Damaged;
}

QByteArray ZipEntry::comment() const {
    int length = 0;
    const char* text = zip_get_archive_comment(archive_.get(), &length, ZIP_FL_ENC_RAW);
    return text != nullptr ? QByteArray(text, length) : QByteArray();
}

zip_source* ZipEntry::sourceFor(zip* target) const {
    return zip_source_zip(target, archive_.get(), index_, 0, 0, -1);
}

ZipEntry::~ZipEntry() {
    if (file_ != nullptr)
        zip_fclose(file_);
}

qint64 ZipEntry::read(char* into, qint64 most) {
    const qint64 count = zip_fread(file_, into, static_cast<zip_uint64_t>(most));
    if (count < 0) {
        const zip_error_t& error = *zip_file_get_error(file_);
        if (zip_error_code_zip(&error) == ZIP_ER_READ)
            throw zipFault(error, path_);
        throw Fault::Damaged;
    }
    done_ += static_cast<quint64>(count);
    if (done_ > size_ || (count == 0 && done_ != size_))
        throw Fault::Damaged;
    return count;
}

/// The only entry of the name; two of them would leave open which one is meant.
std::optional<quint64> ZipEntry::find() const {
    std::optional<quint64> found;
    const zip_int64_t entries = zip_get_num_entries(archive_.get(), 0);
    for (quint64 i = 0; i < static_cast<quint64>(entries); ++i) {
        const char* name = zip_get_name(archive_.get(), i, ZIP_FL_ENC_RAW);
        if (name == nullptr || std::strcmp(name, entryName) != 0 || !isPlainFile(i))
            continue;
        if (found)
            throw Fault::Damaged;
        found = i;
    }
    return found;
}

bool isWhole(const QString& archive) {
    try {
        ZipEntry entry(archive);
        std::vector<char> bytes(size_t{1} << 18U);
        while (entry.read(bytes.data(), static_cast<qint64>(bytes.size())) > 0) {
        }
        return true;
    } catch (ZipEntry::Fault) {
        return false;
    }
}

bool ZipEntry::isPlainFile(quint64 index) const {
    zip_uint8_t system = 0;
    zip_uint32_t attributes = 0;
    if (zip_file_get_external_attributes(archive_.get(), index, 0, &system, &attributes) != 0)
        return false;
    const auto kind = (attributes >> 16U) & S_IFMT;
    return system != ZIP_OPSYS_UNIX || kind == 0 || kind == S_IFREG;
}

} // namespace backup
