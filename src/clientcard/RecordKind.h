#pragma once

#include "clientcard/RecordTable.h"
#include "forms/Words.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

class QBoxLayout;
class QWidget;

namespace forms {
class DropDown;
class EntryField;
} // namespace forms

namespace store {
class DataSource;
class Recordset;
} // namespace store

namespace clientcard {

class CardFrame;

/// What a kind of record finds on its tab when it is made.
struct RecordParts {
    CardFrame& frame;
    const RecordRow& row;
    store::DataSource& source;
    /// The entry fields by index.
    const std::vector<forms::EntryField*>& fields;
    /// Parent of the kind's own controls until they are laid out.
    QWidget* workshop;
    /// Shows the rows of the source as they are now, with no record open.
    std::function<void()> browse;
};

/// What a kind of record adds to the machine of the tabs: its own controls, checks and columns.
class RecordKind {
  public:
    virtual ~RecordKind() = default;

    /// The drop-down that belongs to a field; null for a field without one.
    virtual forms::DropDown* pickOf(int /*field*/) const { return nullptr; }
    /// Lays out what stands above list and record.
    virtual void layOutAbove(QBoxLayout& /*page*/) {}
    /// Lays out what stands in the record's frame below its fields.
    virtual void layOutBelow(QBoxLayout& /*frame*/) {}

    /// The fields are opened or closed.
    virtual void enableInput(bool /*enabled*/) {}
    /// A record goes into edit, or is written or dropped.
    virtual void setEditing(bool /*editing*/) {}
    /// An existing record is about to be edited.
    virtual void editBegins() {}
    /// Another row is current, or its edit was opened, written or dropped.
    virtual void rowShown(store::Recordset& /*rows*/) {}

    /// A field was left unchecked: towards a pick, or because a key has checked it before.
    virtual void leftUnchecked(int /*field*/) {}
    /// Checks a field whose check is the kind's own. @return true to keep the focus
    virtual bool holds(int /*field*/) { return false; }
    /// What is entered that no field is bound to.
    virtual forms::Words typedWords() const { return {}; }
    /// Shows it again in the open record.
    virtual void enterWords(const forms::Words& /*words*/) {}
    /// What tells among which records a new one was begun.
    virtual forms::Words begunAmong() const { return {}; }
    /// Shows those records.
    virtual void showAmong(const forms::Words& /*words*/) {}
    /// The open record was filled with words that had been kept, as if each field had been left.
    virtual void wasFilled() {}
    /// Puts what no field is bound to into the open record. @throws store::EngineError
    virtual void complete(store::Recordset& /*rows*/) {}
    /// Where the client's records are read from after a new one was written.
    virtual QString recordSource(const QString& key) const = 0;
};

std::unique_ptr<RecordKind> makeDatedKind(const RecordParts& parts);
std::unique_ptr<RecordKind> makePlacementKind(const RecordParts& parts);
std::unique_ptr<RecordKind> makeSiblingKind(const RecordParts& parts);

} // namespace clientcard
