#include "backup/Copies.h"

#include "backup/Packing.h"
#include "backup/Retention.h"
#include "backup/Zip.h"
#include "store/ContentHash.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <ranges>

namespace backup {

namespace {

using store::EngineError;
using store::ErrorNumber;

const QString& nameFormat() {
    static const QString format = QStringLiteral("'tvk_'yyyy-MM-dd_HH-mm-ss'.zip'");
    return format;
}

/// Takes what an archive's comment says of its content; nothing for one that can't be read.
QByteArray contentOf(const QString& archive) {
    try {
        return ZipEntry(archive).comment();
    } catch (ZipEntry::Fault) {
        return {};
    }
}

/// What a share of a longer work tells.
store::TellProgress part(const store::TellProgress& tell, double from, double to) {
    return [&tell, from, to](double done) {
        return store::Share(tell, from, to).tells(done);
    };
}

/// Makes one copy and sees to the others.
class Copying {
  public:
    Copying(const store::ProgramFolder& folder, const QDateTime& now)
        : folder_(copiesFolder(folder)), register_(folder.database()), now_(now),
          copies_(copies(folder)) {}

    bool isLast(const QByteArray& content) const {
        const auto last =
            std::ranges::find_if(copies_, [this](const Copy& copy) { return copy.made <= now_; });
        return last != copies_.end() && contentOf(last->path) == content && isWhole(last->path);
    }

    void make(const QByteArray& content, const store::TellProgress& tell) {
        store::makePrivateFolder(folder_);
        const Begun begun(QDir(folder_).filePath(QStringLiteral("rozpracovana.cast")));
        while (!isPacked(begun, content, tell))
            dropOldest();
        place(begun.path());
        thin();
    }

  private:
    /// @return false when there is no room for it
    bool isPacked(const Begun& begun, const QByteArray& content,
                  const store::TellProgress& tell) const {
        begun.remove();
        try {
            packFile(register_, begun.path(), {.comment = content}, tell);
            return true;
        } catch (const EngineError& error) {
            if (error.number() != ErrorNumber::DiskFull || oldestToGo() == copies_.end())
                throw;
            return false;
        }
    }

    /// The oldest one, if it isn't the newest that is whole.
    std::vector<Copy>::const_iterator oldestToGo() const {
        const auto whole =
            std::ranges::find_if(copies_, [](const Copy& copy) { return isWhole(copy.path); });
        const auto oldest = copies_.empty() ? copies_.end() : std::prev(copies_.end());
        if (oldest != whole)
            return oldest;
        return copies_.size() > 1 ? std::prev(oldest) : copies_.end();
    }

    void dropOldest() {
        const auto oldest = oldestToGo();
        QFile::remove(oldest->path);
        copies_.erase(oldest);
    }

    /// Two copies of one second get different names.
    void place(const QString& made) {
        for (QDateTime time = now_;; time = time.addSecs(1)) {
            const QString name = QDir(folder_).filePath(time.toString(nameFormat()));
            if (QFileInfo::exists(name))
                continue;
            store::moveToFreeName(made, name);
            now_ = time;
            return;
        }
    }

    void thin() const {
        std::vector<QDateTime> times{now_};
        for (const Copy& copy : copies_)
            times.push_back(copy.made);
        for (const QDateTime& time : superfluous(times, now_))
            QFile::remove(QDir(folder_).filePath(time.toString(nameFormat())));
    }

    QString folder_;
    QString register_;
    QDateTime now_;
    std::vector<Copy> copies_;
};

} // namespace

QString copiesFolder(const store::ProgramFolder& folder) {
    return folder.path(u"zalohy");
}

std::vector<Copy> copies(const store::ProgramFolder& folder) {
    std::vector<Copy> found;
    for (const QFileInfo& file : QDir(copiesFolder(folder)).entryInfoList(QDir::Files)) {
        const QDateTime made = QDateTime::fromString(file.fileName(), nameFormat());
        if (made.isValid() && file.isFile() && made.toString(nameFormat()) == file.fileName())
            found.push_back({file.filePath(), made, file.size()});
    }
    std::ranges::sort(found, std::ranges::greater(), &Copy::made);
    return found;
}

NextCopy::NextCopy(const store::ProgramFolder& folder, const QDateTime& now)
    : folder_(folder), now_(now), found_(std::async(std::launch::async, &NextCopy::look, this)) {}

NextCopy::~NextCopy() {
    pace_.stop();
}

NextCopy::Found NextCopy::look() {
    const QByteArray content =
        store::contentHash(folder_.database(), [this](double part) { return pace_.tells(part); });
    return {content, Copying(folder_, now_).isLast(content)};
}

bool NextCopy::make(bool isChecked, const store::TellProgress& tell) {
    store::Share(tell, 0, 1)(0);
    pace_.waitFor(found_, part(tell, 0, 0.2));
    const Found found = found_.get();
    if (pace_.isStopped())
        throw store::GivenUp();
    if (found.isCopied)
        return false;
    if (!isChecked)
        store::DBEngine::verifyDatabase(folder_.database(), part(tell, 0.2, 0.4));
    Copying(folder_, now_).make(found.content, part(tell, 0.4, 1));
    return true;
}

} // namespace backup
