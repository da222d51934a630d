#pragma once

#include "store/EngineError.h"
#include "store/Progress.h"

#include <QString>

#include <optional>

namespace store {

/// What tells a file from another one that took its place under the same name.
struct FileIdentity {
    quint64 device = 0;
    quint64 inode = 0;
    bool operator==(const FileIdentity& other) const = default;
};

/// The identity of the regular file at a path; nothing when there is none.
std::optional<FileIdentity> fileIdentity(const QString& path);

/// The engine's error for a system call's errno.
EngineError systemError(int code, const QString& path);

/// Makes an empty file that its owner alone can read and write.
/// @throws EngineError 3204 when the file exists, 3026, 3027
void createPrivateFile(const QString& path);

/// Gives a file the owner, the group and the rights of another one. @return false when only the
/// administrator may give it to that owner @throws EngineError
bool takeOwnerOf(const QString& model, const QString& path);

/// Whether a file belongs to this program's user.
bool isOwnFile(const QString& path);

/// What compaction and repair of a register work on beside it. Gone with this object, as is with
/// its making what a killed program left of them.
class WorkFiles {
  public:
    /// @param path the register's, without links
    explicit WorkFiles(QString path) : path_(std::move(path)) { remove(); }
    ~WorkFiles() { remove(); }
    WorkFiles(const WorkFiles&) = delete;
    WorkFiles& operator=(const WorkFiles&) = delete;

    const QString& path() const { return path_; }
    /// Where the file is made that will take the register's place.
    QString copy() const { return path_ + QStringLiteral(".kopia"); }
    /// Where the tables of a damaged register are read.
    QString tables() const { return path_ + QStringLiteral(".tabulky"); }

  private:
    void remove() const;
    QString path_;
};

/// Makes a file's contents durable. @throws EngineError 3043, 3026
void syncFile(const QString& path);

/// Puts a file into the place of another one, or of none, in one step that is durable on return:
/// at any moment the target is wholly the old or wholly the new file. Both lie in one file system.
/// @throws EngineError 3024 when `from` is missing, 3027 when the folder can't be written
void replaceFile(const QString& from, const QString& to);

/// As replaceFile, but fails when the target exists. @throws EngineError 3204
void moveToFreeName(const QString& from, const QString& to);

/// Gives a file a second name, durable on return; it may have it already.
/// @return false where the file system gives none
/// @throws EngineError 3204 when another file has that name
bool addName(const QString& path, const QString& second);

/// Copies a file, durable on return and readable by its owner only; nothing stays of one that
/// fails.
/// @throws EngineError 3204 when the target exists; GivenUp
void copyFile(const QString& from, const QString& to, const TellProgress& tell = {});

/// Keeps a file under another name as well: by a second name, or as a copy where the file system
/// gives none. @throws EngineError 3204 when another file has that name
void keepAs(const QString& path, const QString& kept);

/// Where the file lies, or would lie, that a path leads to through links.
QString behindLinks(const QString& path);

/// What SQLite may leave beside a register, as it is called behind the register's name.
inline constexpr const char16_t* journalSuffixes[] = {u"-journal", u"-wal", u"-shm"};

/// Takes the journals of a register along to its other name: one that stays would spoil the
/// register that comes into its place. @throws EngineError
void moveJournals(const QString& from, const QString& to);

} // namespace store
