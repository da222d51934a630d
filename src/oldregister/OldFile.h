#pragma once

#include "oldregister/OldValue.h"

#include <mdbtools.h>

#include <memory>
#include <span>

namespace oldregister {

/// A file of the old format, read by the library. Only for the reading process: on damaged files
/// the library may read where it should not, or end its process.
class OldFile {
  public:
    /// Nothing is open when the file can't be read; see isOpen.
    explicit OldFile(const QByteArray& path);

    bool isOpen() const { return handle_ != nullptr; }
    /// What the file's catalogue lists; empty when it can't be read.
    std::span<MdbCatalogEntry* const> catalogue();

  private:
    struct Closer {
        void operator()(MdbHandle* handle) const { mdb_close(handle); }
    };
    std::unique_ptr<MdbHandle, Closer> handle_;
};

/// A table of such a file.
class OldTableReader {
  public:
    /// @param entry of the file's catalogue
    explicit OldTableReader(MdbCatalogEntry& entry);

    /// False when its description can't be read.
    bool isOpen() const { return definition_ != nullptr; }
    OldTable describe() const;
    MdbTableDef& definition() const { return *definition_; }
    std::span<MdbColumn* const> columns() const;

  private:
    struct Closer {
        void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
    };
    std::unique_ptr<MdbTableDef, Closer> definition_;
};

} // namespace oldregister
