#pragma once

#include "card/Key.h"

#include <QHash>
#include <QString>

#include <optional>

namespace mkdb {

/// Gives out the keys of one table: the base of a person's names and a sequence counted from "00"
/// for every base.
class KeyMaker {
  public:
    /// The next key of that base; nothing when it would not fit its column any more, so that
    /// another name has to be taken.
    std::optional<QString> make(const card::Names& names);

  private:
    QHash<QString, int> next_;
};

} // namespace mkdb
