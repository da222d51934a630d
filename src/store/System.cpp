// All that is asked of the operating system itself rather than through Qt.

#include "store/Files.h"
#include "store/Process.h"

#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <vector>

namespace store {

namespace {

struct Cause {
    int code;
    ErrorNumber number;
    const char16_t* text;
};

constexpr Cause causes[] = {
    {ENOENT, ErrorNumber::FileNotFound, u"Súbor sa nenašiel."},
    {ENOTDIR, ErrorNumber::FileNotFound, u"Súbor sa nenašiel."},
    {EEXIST, ErrorNumber::TargetExists, u"Cieľový súbor už existuje."},
    {ENOSPC, ErrorNumber::DiskFull, u"Disk je plný."},
    {EDQUOT, ErrorNumber::DiskFull, u"Disk je plný."},
    {EROFS, ErrorNumber::ReadOnly, u"Priečinok alebo súbor je určený len na čítanie."},
    {EACCES, ErrorNumber::ReadOnly, u"Na zápis do priečinka alebo súboru chýba oprávnenie."},
    {EPERM, ErrorNumber::ReadOnly, u"Na zápis do priečinka alebo súboru chýba oprávnenie."},
};

/// A file descriptor that ends with its block.
class Descriptor {
  public:
    Descriptor(const QString& path, int flags, mode_t mode = 0)
        : number_(::open(QFile::encodeName(path).constData(), flags | O_CLOEXEC, mode)) {
        if (number_ < 0)
            throw systemError(errno, path);
    }
    ~Descriptor() { ::close(number_); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int number() const { return number_; }

  private:
    int number_;
};

void sync(const QString& path, int flags) {
    const Descriptor file(path, flags);
    if (::fsync(file.number()) != 0)
        throw systemError(errno, path);
}

void syncFolderOf(const QString& path) {
    sync(QFileInfo(path).absolutePath(), O_RDONLY | O_DIRECTORY);
}

void rename(const QString& from, const QString& to, unsigned flags) {
    if (::renameat2(AT_FDCWD, QFile::encodeName(from).constData(), AT_FDCWD,
                    QFile::encodeName(to).constData(), flags) != 0)
        throw systemError(errno, errno == EEXIST ? to : from);
    syncFolderOf(to);
}

/// Into a file that is there already.
void copyBytes(const QString& from, const QString& to, const Share& share) {
    constexpr qint64 portion = 1 << 18;
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly))
        throw EngineError(ErrorNumber::CannotOpen, QStringLiteral("Súbor sa nedá čítať."), from);
    QFile target(to);
    if (!target.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw EngineError(ErrorNumber::CannotOpen, QStringLiteral("Súbor sa nedá vytvoriť."), to);
    std::vector<char> bytes(portion);
    qint64 done = 0;
    for (qint64 count = 0; (count = source.read(bytes.data(), portion)) > 0;) {
        if (target.write(bytes.data(), count) != count)
            throw EngineError(ErrorNumber::DiskFull,
                              QStringLiteral("Súbor sa nedá zapísať, disk je asi plný."), to);
        done += count;
        share(static_cast<double>(done) / static_cast<double>(source.size()));
    }
    if (done != source.size())
        throw EngineError(ErrorNumber::DiskError, QStringLiteral("Súbor sa nedá čítať."), from);
}

void limit(__rlimit_resource what, rlim_t most) {
    const rlimit both{most, most};
    ::setrlimit(what, &both);
}

} // namespace

std::optional<FileIdentity> fileIdentity(const QString& path) {
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino};
}

EngineError systemError(int code, const QString& path) {
    for (const Cause& cause : causes)
        if (cause.code == code)
            return EngineError(cause.number, QString::fromUtf16(cause.text), path);
    return EngineError(ErrorNumber::DiskError,
                       QStringLiteral("Chyba pri práci so súborom (chyba systému %1).").arg(code),
                       path);
}

void createPrivateFile(const QString& path) {
    const Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR);
}

bool takeOwnerOf(const QString& model, const QString& path) {
    struct stat status = {};
    const QByteArray target = QFile::encodeName(path);
    if (::stat(QFile::encodeName(model).constData(), &status) != 0)
        throw systemError(errno, model);
    if (::chown(target.constData(), status.st_uid, status.st_gid) != 0) {
        if (errno == EPERM)
            return false;
        throw systemError(errno, path);
    }
    if (::chmod(target.constData(), status.st_mode & 07777) != 0)
        throw systemError(errno, path);
    return true;
}

bool isOwnFile(const QString& path) {
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 &&
           status.st_uid == ::geteuid();
}

void WorkFiles::remove() const {
    for (const QString& file : {copy(), tables()})
        for (const QString& part : {file, file + QStringLiteral("-journal")})
            QFile::remove(part);
}

void syncFile(const QString& path) {
    sync(path, O_RDONLY);
}

void replaceFile(const QString& from, const QString& to) {
    syncFile(from);
    rename(from, to, 0);
}

void moveToFreeName(const QString& from, const QString& to) {
    syncFile(from);
    rename(from, to, RENAME_NOREPLACE);
}

bool addName(const QString& path, const QString& second) {
    const bool isThere = fileIdentity(path) == fileIdentity(second);
    if (!isThere &&
        ::link(QFile::encodeName(path).constData(), QFile::encodeName(second).constData()) != 0) {
        if (errno == EEXIST)
            throw systemError(errno, second);
        return false;
    }
    syncFile(second);
    syncFolderOf(second);
    return true;
}

void copyFile(const QString& from, const QString& to, const TellProgress& tell) {
    createPrivateFile(to);
    try {
        copyBytes(from, to, Share(tell, 0, 1));
        syncFile(to);
    } catch (...) {
        QFile::remove(to);
        throw;
    }
}

void keepAs(const QString& path, const QString& kept) {
    if (addName(path, kept))
        return;
    const QString begun = kept + QStringLiteral(".kopia");
    QFile::remove(begun);
    copyFile(path, begun);
    try {
        takeOwnerOf(path, begun);
        moveToFreeName(begun, kept);
    } catch (...) {
        QFile::remove(begun);
        throw;
    }
}

QString behindLinks(const QString& path) {
    const QFileInfo info(path);
    const QString found = info.canonicalFilePath();
    if (!found.isEmpty())
        return found;
    return info.isSymLink() ? info.symLinkTarget() : path;
}

void moveJournals(const QString& from, const QString& to) {
    for (const char16_t* suffix : journalSuffixes) {
        const QString journal = from + QString::fromUtf16(suffix);
        if (QFile::exists(journal))
            replaceFile(journal, to + QString::fromUtf16(suffix));
    }
}

void confineProcess(const ProcessLimits& limits) {
#ifndef __SANITIZE_ADDRESS__ // whose shadow would count as memory
    limit(RLIMIT_DATA, static_cast<rlim_t>(limits.megabytes) * 1024 * 1024);
#endif
    limit(RLIMIT_CPU, static_cast<rlim_t>(limits.processorSeconds));
    limit(RLIMIT_CORE, 0);
    limit(RLIMIT_FSIZE, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
}

OutputPipe::OutputPipe() : number_(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3)) {
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    ::dup2(nowhere, STDOUT_FILENO);
    ::dup2(nowhere, STDERR_FILENO);
}

bool OutputPipe::write(QByteArrayView bytes) const {
    while (!bytes.empty()) {
        const auto sent = ::write(number_, bytes.data(), static_cast<size_t>(bytes.size()));
        if (sent <= 0)
            return false;
        bytes = bytes.sliced(sent);
    }
    return true;
}

} // namespace store
