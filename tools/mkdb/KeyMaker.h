#pragma once

#include <QHash>
#include <QString>

#include <optional>

namespace mkdb {

/// First six letters of the surname and first two of the first name, in upper case, each trimmed.
QString keyBase(const QString& surname, const QString& firstName);

/// Gives out the keys of one table: the base and a number of at least two digits, counted from "00"
/// for every base.
class KeyMaker {
  public:
    /// The next key of that base; nothing when it would not fit its column any more, so that
    /// another name has to be taken.
    std::optional<QString> make(const QString& surname, const QString& firstName);

  private:
    QHash<QString, int> next_;
};

} // namespace mkdb
