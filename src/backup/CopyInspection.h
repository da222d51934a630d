#pragma once

#include "store/Progress.h"

#include <QString>

#include <functional>
#include <thread>
#include <vector>

namespace backup {

/// What a look into a copy has shown.
struct CopyState {
    enum class Kind {
        Sound,
        Damaged,
        /// It could not be looked at now; `why` says why.
        Unknown
    };
    Kind kind = Kind::Unknown;
    qint64 clients = 0;
    QString why = {};
};

/// Unpacks a copy beside itself for a while and checks the register in it in full.
/// @throws store::GivenUp
CopyState inspectCopy(const QString& archive, const store::TellProgress& tell = {});

/// Looks into copies, one after the other, in a thread of its own.
class CopyInspection {
  public:
    /// @param seen called in that thread, with the place of the archive in the list
    CopyInspection(std::vector<QString> archives,
                   std::function<void(size_t place, const CopyState&)> seen);

  private:
    void run(const std::stop_token& stop) const;

    std::vector<QString> archives_;
    std::function<void(size_t place, const CopyState&)> seen_;
    /// Its end stops the work and waits for it.
    std::jthread thread_;
};

} // namespace backup
