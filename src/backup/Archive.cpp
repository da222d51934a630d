#include "backup/Archive.h"

#include "backup/Copies.h"
#include "backup/Packing.h"
#include "backup/Zip.h"
#include "store/Files.h"
#include "store/OpenCheck.h"

#include <QDir>
#include <QFileInfo>

#include <functional>

namespace backup {

namespace {

using store::EngineError;
using store::ErrorNumber;

void compareFiles(const QString& made, const QString& original, const store::Share& share) {
    QFile ours(made);
    openToRead(ours);
    QFile theirs(original);
    openToRead(theirs);
    compareBytes([&ours](char* into, qint64 most) { return ours.read(into, most); },
                 [&theirs](char* into, qint64 most) { return theirs.read(into, most); },
                 static_cast<quint64>(ours.size()), original, share);
}

/// Two paths to one name, whether or not something lies there.
bool isSameName(const QString& one, const QString& other) {
    const QFileInfo first(one);
    const QFileInfo second(other);
    return first.fileName() == second.fileName() &&
           first.dir().canonicalPath() == second.dir().canonicalPath();
}

bool isSameFile(const QString& one, const QString& other) {
    const auto identity = store::fileIdentity(one);
    return (identity && identity == store::fileIdentity(other)) || isSameName(one, other);
}

void refuseOwnFiles(const store::ProgramFolder& folder, const QString& target) {
    QStringList own;
    for (const QStringView name : {u"tvk.mdb", u"tvk_ren.mdb", u"tmp.mdb", u"arch_tmp.zip"})
        own << folder.path(name);
    for (const Copy& copy : copies(folder))
        own << copy.path;
    for (const QString& file : own) {
        if (isSameFile(file, target))
            throw EngineError(ErrorNumber::TargetExists,
                              QStringLiteral("Do súboru %1 sa archív uložiť nedá, pracuje s ním "
                                             "program. Zvoľte iný názov.")
                                  .arg(QFileInfo(file).fileName()),
                              target);
    }
}

/// Replaces a file, or the one behind a link, in one step.
/// @param make gets the name under which it is made beside
void placeAs(const QString& target, const std::function<void(const QString& begun)>& make) {
    const QString place = store::behindLinks(target);
    const Begun begun(place + QStringLiteral(".cast"));
    make(begun.path());
    store::replaceFile(begun.path(), place);
}

} // namespace

void makeArchive(store::DBEngine& engine, const store::ProgramFolder& folder,
                 const store::TellProgress& tell) {
    const QString path = folder.database();
    // What a crash has left half-written must not be packed.
    if (store::hasHotJournal(path))
        engine.OpenDatabase(path).Close();
    Begun made(folder.path(u"arch_tmp.zip"));
    packFile(path, made.path(), {}, tell);
    made.keep();
}

void placeArchive(const store::ProgramFolder& folder, const QString& target,
                  const store::TellProgress& tell) {
    refuseOwnFiles(folder, target);
    const QString made = folder.path(u"arch_tmp.zip");
    if (isSameName(folder.path(u"arch_tvk.zip"), target))
        return store::replaceFile(made, folder.path(u"arch_tvk.zip"));
    placeAs(target, [&](const QString& begun) {
        const store::Share copied(tell, 0, 0.6);
        store::copyFile(made, begun, [&copied](double part) { return copied.tells(part); });
        compareFiles(begun, made, store::Share(tell, 0.6, 1));
    });
}

void saveCopy(const store::ProgramFolder& folder, const QString& copy, const QString& target,
              const QByteArray& password, const store::TellProgress& tell) {
    refuseOwnFiles(folder, target);
    if (!isWhole(copy))
        throw EngineError(ErrorNumber::UnrecognizedFile,
                          QStringLiteral("Táto záloha je poškodená, inam sa uložiť nedá."), copy);
    placeAs(target,
            [&](const QString& begun) { packAgain(copy, begun, {.password = password}, tell); });
}

} // namespace backup
