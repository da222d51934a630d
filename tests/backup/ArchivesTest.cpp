// Archives as no program should make them.

#include "backup/BackupFiles.h"

#include <QtEndian>

#include <sys/stat.h>
#include <zip.h>

namespace {

using namespace Qt::StringLiterals;
using backup::Finding;

struct Entry {
    const char* name;
    QByteArray bytes;
    zip_uint32_t mode = 0;
    const char* password = nullptr;
};

class Archives : public BackupFiles {
  protected:
    Archives() : original(files::read(reg.folder.database())) {}

    QByteArray packed(const std::vector<Entry>& entries) const {
        const QString file = elsewhere.filePath(u"a.zip"_s);
        zip_t* archive = zip_open(file.toUtf8().constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
        for (const Entry& entry : entries) {
            zip_source_t* source = zip_source_buffer(
                archive, entry.bytes.constData(), static_cast<zip_uint64_t>(entry.bytes.size()), 0);
            const auto index =
                static_cast<zip_uint64_t>(zip_file_add(archive, entry.name, source, 0));
            if (entry.mode != 0)
                zip_file_set_external_attributes(archive, index, 0, ZIP_OPSYS_UNIX,
                                                 entry.mode << 16U);
            if (entry.password != nullptr)
                zip_file_set_encryption(archive, index, ZIP_EM_AES_256, entry.password);
        }
        EXPECT_EQ(zip_close(archive), 0);
        return files::read(file);
    }
    /// Looks at an archive of these bytes; nothing but the register is there afterwards, and what
    /// passes for sound is the register that was packed.
    Finding look(const QByteArray& bytes) {
        const QString file = elsewhere.filePath(u"b.zip"_s);
        files::write(file, bytes);
        Finding found = Finding::NoArchive;
        {
            backup::Restore one(reg.engine, reg.folder, isRegister);
            found = one.extract(file);
            if (found == Finding::Sound) {
                EXPECT_EQ(files::read(path("tvk.mdb.obnova")), original);
            }
        }
        EXPECT_EQ(names(), QStringList{u"tvk.mdb"_s});
        return found;
    }

    const QByteArray original;
};

/// With another number so many bytes behind the signature of the entry in the central directory.
QByteArray with(QByteArray archive, qsizetype behind, quint32 number) {
    qToLittleEndian(number, archive.data() + archive.lastIndexOf("PK\1\2") + behind);
    return archive;
}
QByteArray withSum(const QByteArray& archive, quint32 sum) {
    return with(archive, 16, sum);
}
QByteArray withSize(const QByteArray& archive, quint32 size) {
    return with(archive, 24, size);
}

TEST_F(Archives, eachIsWhatItIsAndNoMore) {
    const QByteArray sound = packed({{"tvk.mdb", original}});
    QByteArray twice = packed({{"tvk.mdb", original}, {"tvk.mda", original}});
    twice.replace("tvk.mda", "tvk.mdb");
    const auto size = static_cast<quint32>(original.size());
    const std::vector<std::tuple<const char*, QByteArray, Finding>> table{
        {"sound", sound, Finding::Sound},
        {"other entries", packed({{"../tvk.mdb", "x"}, {"tvk.mdb", original}}), Finding::Sound},
        {"no file", {}, Finding::NoArchive},
        {"a text", "Toto nie je archív.", Finding::NoArchive},
        {"a bare register", original, Finding::NoArchive},
        {"no entries", QByteArray("PK\5\6") + QByteArray(18, '\0'), Finding::NoRegister},
        {"another name", packed({{"iny.mdb", original}}), Finding::NoRegister},
        {"other case", packed({{"TVK.MDB", original}}), Finding::NoRegister},
        {"way up", packed({{"../tvk.mdb", original}}), Finding::NoRegister},
        {"root", packed({{"/tvk.mdb", original}}), Finding::NoRegister},
        {"drive", packed({{"C:\\tvk.mdb", original}}), Finding::NoRegister},
        {"folder", packed({{"x/tvk.mdb", original}}), Finding::NoRegister},
        {"link", packed({{"tvk.mdb", "/etc/passwd", S_IFLNK | 0777}}), Finding::NoRegister},
        {"device", packed({{"tvk.mdb", original, S_IFBLK | 0600}}), Finding::NoRegister},
        {"encrypted", packed({{"tvk.mdb", original, 0, "heslo"}}), Finding::Locked},
        {"two registers", twice, Finding::NoRegister},
        {"empty entry", packed({{"tvk.mdb", {}}}), Finding::NoRegister},
        {"no register", packed({{"tvk.mdb", "údaje"}}), Finding::NoRegister},
        {"half a register", packed({{"tvk.mdb", original.first(original.size() / 2)}}),
         Finding::NoRegister},
        {"bomb", packed({{"tvk.mdb", QByteArray(65 << 20, '\0')}}), Finding::NoRegister},
        {"cut", sound.chopped(1000), Finding::NoArchive},
        {"another sum", withSum(sound, 1), Finding::NoRegister},
        {"claims less", withSize(sound, size - 1), Finding::NoRegister},
        {"claims nothing", withSize(sound, 0), Finding::NoRegister},
        {"claims more", withSize(sound, size + 1), Finding::NoRegister},
        {"claims a bomb", withSize(sound, 0x7FFFFFFF), Finding::NoRegister},
    };
    for (const auto& [what, bytes, expected] : table)
        EXPECT_EQ(look(bytes), expected) << what;
    EXPECT_NE(look(withSize(sound, 0xFFFFFFFF)), Finding::Sound);
}

} // namespace
