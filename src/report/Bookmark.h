#pragma once

#include <QString>

#include <cstddef>

namespace report {

/// An entry of a document's contents, and the index of the page it leads to.
struct Bookmark {
    QString title;
    std::size_t page = 0;
};

} // namespace report
