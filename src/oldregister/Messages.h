#pragma once

#include "oldregister/OldValue.h"

#include <QByteArray>

#include <stdexcept>

namespace oldregister {

/// What the reading process tells. All tables come first, then their rows, the end last.
struct TableList {
    /// Those of the register, with the columns of the file in the file's order.
    std::vector<OldTable> tables;
    /// Tables of the user that no register has.
    std::vector<QString> foreign;
    /// Tables of the register whose description can't be read.
    std::vector<QString> unreadable;
};
struct OldRow {
    /// Index into the tables of the list.
    quint32 table = 0;
    std::vector<OldValue> values;
};
/// A page of a table that holds something else, or rows of it that can't be read.
struct BrokenPage {
    quint32 table = 0;
    quint32 page = 0;
    quint32 lostRows = 0;
};
/// The file as a whole can't be read; `why` is a Slovak sentence.
struct Refusal {
    QString why;
};
struct EndOfFile {};

using Message = std::variant<TableList, OldRow, BrokenPage, Refusal, EndOfFile>;

/// The reading process told something that makes no sense.
class BadMessage : public std::runtime_error {
  public:
    BadMessage() : std::runtime_error("bad message") {}
};

/// A message as it goes through the pipe: its length in four bytes, then itself.
QByteArray packed(const Message& message);

/// Takes the first whole message out of what has come; nothing while it is not whole.
/// @throws BadMessage
std::optional<Message> takeMessage(QByteArray& received);

} // namespace oldregister
