#pragma once

#include "store/Pace.h"
#include "store/ProgramFolder.h"

#include <QDateTime>

#include <future>
#include <vector>

namespace backup {

/// A copy of the register that the program has made by itself: an archive named by its time.
struct Copy {
    QString path;
    QDateTime made;
    qint64 size = 0;
};

/// The folder of the copies, "zalohy" beside the register.
QString copiesFolder(const store::ProgramFolder& folder);

/// The copies that there are, the newest first.
std::vector<Copy> copies(const store::ProgramFolder& folder);

/// The copy that a closed register may need. Whether its content is that of the last copy, which
/// must be whole, is found out by a thread of its own from the beginning on, beside a compaction.
class NextCopy {
  public:
    NextCopy(const store::ProgramFolder& folder, const QDateTime& now);
    /// Stops what goes on, and waits for it.
    ~NextCopy();
    NextCopy(const NextCopy&) = delete;
    NextCopy& operator=(const NextCopy&) = delete;

    /// Copies the register if need be, once, and then removes what is not kept any more. Where the
    /// disk is full, the oldest copies make room, but never the newest whole one.
    /// @param isChecked whether the register has just been found sound; a damaged one is not copied
    /// @return false when there was nothing to copy
    /// @throws store::EngineError; store::GivenUp
    bool make(bool isChecked, const store::TellProgress& tell = {});

  private:
    /// What the register holds, and whether the last copy holds it.
    struct Found {
        QByteArray content;
        bool isCopied;
    };
    Found look();

    store::ProgramFolder folder_;
    QDateTime now_;
    store::Pace pace_;
    std::future<Found> found_;
};

} // namespace backup
