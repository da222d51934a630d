#pragma once

#include "words/Kept.h"

namespace store {
class Database;
class Recordset;
} // namespace store

/// What the register holds of words that were kept.
namespace words {

/// A short text that tells whether a row is what it was.
QByteArray printOf(store::Recordset& row, QStringView table);
/// The same of all rows that the words belong to: those of the key, or of the whole tables when the
/// words have no owner. Empty for somebody new. @throws store::EngineError
QByteArray printOfRows(store::Database& data, const Kept& kept);

/// The same of the owner's row, without its key and what the words are for; empty for somebody new
/// and a screen of nobody. @throws store::EngineError
QByteArray printOfRest(store::Database& data, const Kept& kept);

enum class Fit {
    Stored,  ///< A row holds all of them: the end came between the writing and their removal.
    Fits,    ///< The row is as it was when they were typed, or they are for a new one.
    Changed, ///< The row is another one now.
    Gone     ///< Nobody has the key.
};
/// @throws store::EngineError
Fit fitOf(store::Database& data, const Kept& kept);

} // namespace words
