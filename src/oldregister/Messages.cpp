#include "oldregister/Messages.h"

#include <QDataStream>
#include <QIODevice>
#include <QtEndian>

#include <concepts>
#include <tuple>
#include <utility>

namespace oldregister {

namespace {

constexpr qsizetype lengthSize = 4;
constexpr quint32 longestMessage = 100'000'000;
constexpr quint32 mostItems = 100'000;

// ---- The members of each type, in the order in which they are sent ----

template <class Type, class Wanted>
concept Is = std::same_as<std::remove_const_t<Type>, Wanted>;

auto membersOf(Is<RawDate> auto& date) {
    return std::tie(date.days);
}
auto membersOf(Is<OldColumn> auto& column) {
    return std::tie(column.name, column.type);
}
auto membersOf(Is<OldTable> auto& table) {
    return std::tie(table.name, table.rows, table.columns);
}
auto membersOf(Is<TableList> auto& list) {
    return std::tie(list.tables, list.foreign, list.unreadable);
}
auto membersOf(Is<OldRow> auto& row) {
    return std::tie(row.table, row.values);
}
auto membersOf(Is<BrokenPage> auto& page) {
    return std::tie(page.table, page.page, page.lostRows);
}
auto membersOf(Is<Refusal> auto& refusal) {
    return std::tie(refusal.why);
}
std::tuple<> membersOf(Is<std::monostate> auto& /*null*/) {
    return {};
}
std::tuple<> membersOf(Is<Unreadable> auto& /*value*/) {
    return {};
}
std::tuple<> membersOf(Is<EndOfFile> auto& /*end*/) {
    return {};
}

class Packer {
  public:
    explicit Packer(QByteArray& bytes) : out_(&bytes, QIODevice::WriteOnly) {
        out_ << quint32{0}; // the length, once it is known
    }

    template <class Type>
    void put(const Type& value) {
        if constexpr (requires { out_ << value; })
            out_ << value;
        else
            std::apply([&](const auto&... members) { (put(members), ...); }, membersOf(value));
    }
    template <class Item>
    void put(const std::vector<Item>& items) {
        out_ << static_cast<quint32>(items.size());
        for (const Item& item : items)
            put(item);
    }
    template <class... Types>
    void put(const std::variant<Types...>& variant) {
        out_ << static_cast<quint8>(variant.index());
        std::visit([&](const auto& value) { put(value); }, variant);
    }

  private:
    QDataStream out_;
};

class Unpacker {
  public:
    explicit Unpacker(const QByteArray& bytes) : in_(bytes) {}

    template <class Type>
    void take(Type& value) {
        if constexpr (requires { in_ >> value; })
            in_ >> value;
        else
            std::apply([&](auto&... members) { (take(members), ...); }, membersOf(value));
    }
    template <class Item>
    void take(std::vector<Item>& items) {
        quint32 count = 0;
        in_ >> count;
        require(count <= mostItems);
        for (quint32 index = 0; index < count; ++index) {
            require(in_.status() == QDataStream::Ok);
            take(items.emplace_back());
        }
    }
    template <class... Types>
    void take(std::variant<Types...>& variant) {
        quint8 index = 0;
        in_ >> index;
        require(index < sizeof...(Types));
        takeAlternative(variant, index, std::index_sequence_for<Types...>());
    }
    void requireEnd() { require(in_.status() == QDataStream::Ok && in_.atEnd()); }

  private:
    static void require(bool holds) {
        if (!holds)
            throw BadMessage();
    }
    template <class Variant, std::size_t... Indexes>
    void takeAlternative(Variant& variant, quint8 wanted, std::index_sequence<Indexes...> /*all*/) {
        ((wanted == Indexes ? take(variant.template emplace<Indexes>()) : void()), ...);
    }

    QDataStream in_;
};

} // namespace

QByteArray packed(const Message& message) {
    QByteArray bytes;
    Packer(bytes).put(message);
    qToBigEndian(static_cast<quint32>(bytes.size() - lengthSize), bytes.data());
    return bytes;
}

std::optional<Message> takeMessage(QByteArray& received) {
    if (received.size() < lengthSize)
        return std::nullopt;
    const auto length = qFromBigEndian<quint32>(received.constData());
    if (length > longestMessage)
        throw BadMessage();
    if (received.size() - lengthSize < static_cast<qsizetype>(length))
        return std::nullopt;
    Message message;
    Unpacker unpacker(
        QByteArray::fromRawData(received.constData() + lengthSize, static_cast<qsizetype>(length)));
    unpacker.take(message);
    unpacker.requireEnd();
    received.remove(0, lengthSize + static_cast<qsizetype>(length));
    return message;
}

} // namespace oldregister
