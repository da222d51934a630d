#pragma once

#include "card/Key.h"
#include "store/DataSource.h"

#include <QString>
#include <QStringView>

#include <functional>
#include <initializer_list>
#include <span>

namespace card {

/// What the making of a key asks of a screen.
class KeyField {
  public:
    virtual ~KeyField() = default;
    /// The names as they stand in the fields.
    virtual Names typed() const = 0;
    /// Says that a mandatory field is empty.
    virtual void tellMissing(const QString& message) = 0;
    /// The key reaches the row through the field that is bound to its column.
    virtual void setKey(const QString& key) = 0;
    /// Keeps an error that a save passes over, for the user to be told after it.
    virtual void passOver(const store::EngineError& error) = 0;
};

struct Mandatory {
    QString text;
    QString message;
};
/// Tells of the first mandatory field that is empty; the names are the first two.
/// @return its place, counted from 1; 0 when all are filled
int missing(KeyField& field, std::initializer_list<Mandatory> others = {});

/// How an Update ended that does not stop a save.
enum class Written { Yes, KeyTaken, Refused };

/// The open row of a client or an employee, whose column `idkod` is its key.
class KeyedRow {
  public:
    /// @param source, field must outlive it
    KeyedRow(store::DataSource& source, KeyField& field) : source_(source), field_(field) {}

    /// The key and the names as they are stored.
    QString key() const { return text(u"idkod"); }
    Names names() const { return {text(u"priezv"), text(u"meno")}; }

    /// Writes the row under a key. The engine's refusal of the row is passed over.
    /// @throws store::EngineError when the medium refuses
    Written updateUnder(const QString& key);

    struct Result {
        QString key;
        bool isWritten;
    };
    /// Writes the row under the first key of a base that is free.
    /// @throws store::EngineError when the medium refuses, and 3022 when no key is left that fits
    /// the column
    Result updateUnderFreeKey(const QString& base);

  private:
    QString text(QStringView column) const;

    store::DataSource& source_;
    KeyField& field_;
};

/// A table whose rows carry the key of somebody, and the data source that changes them.
struct Dependent {
    QStringView source;
    QStringView table;
    QStringView column;
};
using Sources = std::function<store::DataSource&(QStringView name)>;

/// @throws store::EngineError
void refreshDependents(std::span<const Dependent> dependents, const Sources& sources);
/// Puts the new key in the place of the old one in all rows that carry it. Rows without a key are
/// nobody's.
/// @throws store::EngineError
void moveDependents(std::span<const Dependent> dependents, const Sources& sources,
                    const QString& oldKey, const QString& newKey);

} // namespace card
