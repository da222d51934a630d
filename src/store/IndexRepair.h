#pragma once

#include "store/Files.h"
#include "store/Progress.h"

#include <QString>

#include <memory>

namespace store {

/// A sound copy of a register whose indexes are damaged while its tables are whole. Made beside it;
/// gone with this object unless it was put in place.
class IndexRepair {
  public:
    /// Nobody may have the register open. @return null when more than indexes is damaged
    /// @throws EngineError when the copy can't be written, or given to the register's owner;
    /// GivenUp
    static std::unique_ptr<IndexRepair> tryMake(const QString& path, const TellProgress& tell = {});
    /// Puts the copy in the place of the register, in one step. @throws EngineError
    void putInPlace();

  private:
    explicit IndexRepair(const QString& path) : files_(path) {}
    void make(const TellProgress& tell);

    WorkFiles files_;
};

} // namespace store
