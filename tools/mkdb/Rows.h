#pragma once

#include "store/Value.h"

#include <span>
#include <vector>

namespace mkdb {

/// Which columns of which table a row fills; the others stay Null.
struct RowShape {
    const char16_t* table;
    std::vector<const char16_t*> columns;
};

/// Takes rows. A shape handed over must outlive the sink.
class RowSink {
  public:
    virtual ~RowSink() = default;
    /// @param values in the order of the shape's columns
    virtual void add(const RowShape& shape, const std::vector<store::Value>& values) = 0;
};

/// How one kind of item becomes a row of its table.
template <class Item>
class TableOf {
  public:
    struct Column {
        const char16_t* name;
        store::Value (*value)(const Item&);
    };

    /// @param columns must outlive the table
    TableOf(const char16_t* table, std::span<const Column> columns) : columns_(columns) {
        shape_.table = table;
        for (const Column& column : columns_)
            shape_.columns.push_back(column.name);
    }

    const RowShape& shape() const { return shape_; }

    void write(const Item& item, RowSink& sink) const {
        std::vector<store::Value> values;
        values.reserve(columns_.size());
        for (const Column& column : columns_)
            values.push_back(column.value(item));
        sink.add(shape_, values);
    }

    void writeAll(const std::vector<Item>& items, RowSink& sink) const {
        for (const Item& item : items)
            write(item, sink);
    }

  private:
    RowShape shape_;
    std::span<const Column> columns_;
};

} // namespace mkdb
