#include "oldregister/FileKind.h"

#include <QFile>

namespace oldregister {

namespace {

constexpr qsizetype versionAt = 0x14;
constexpr char fourthVersion = 1;

bool isOldFormat(const QByteArray& head) {
    return head.startsWith(QByteArray("\0\1\0\0Standard Jet DB\0", 20)) ||
           head.startsWith(QByteArray("\0\1\0\0Standard ACE DB\0", 20));
}

FileKind kindOfVersion(char version) {
    if (version == fourthVersion)
        return FileKind::OldRegister;
    return version < fourthVersion ? FileKind::OlderVersion : FileKind::NewerVersion;
}

} // namespace

FileKind kindOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.exists() ? FileKind::Unreadable : FileKind::Missing;
    const QByteArray head = file.read(versionAt + 1);
    if (head.isEmpty())
        return FileKind::Empty;
    if (head.startsWith(QByteArray("SQLite format 3\0", 16)))
        return FileKind::Register;
    if (head.size() <= versionAt || !isOldFormat(head))
        return FileKind::Foreign;
    return kindOfVersion(head[versionAt]);
}

QString refusalOf(FileKind kind) {
    switch (kind) {
    case FileKind::OldRegister:
        return {};
    case FileKind::Missing:
        return QStringLiteral("Súbor sa nenašiel.");
    case FileKind::Unreadable:
        return QStringLiteral("Súbor sa nedá čítať.");
    case FileKind::Empty:
        return QStringLiteral("Súbor je prázdny.");
    case FileKind::Register:
        return QStringLiteral("Súbor už je v novom formáte.");
    case FileKind::OlderVersion:
        return QStringLiteral("Súbor je v staršej verzii pôvodného formátu (Jet 3), ktorá sa "
                              "nedá previesť.");
    case FileKind::NewerVersion:
        return QStringLiteral(
            "Súbor je v novšej verzii pôvodného formátu, ktorá sa nedá previesť.");
    case FileKind::Foreign:
        break;
    }
    return QStringLiteral("Súbor nie je v pôvodnom formáte ani v novom formáte registra.");
}

} // namespace oldregister
