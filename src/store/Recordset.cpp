#include "store/Recordset.h"

#include "store/Connection.h"
#include "store/EngineError.h"
#include "store/Rowset.h"
#include "store/StoredValue.h"

#include <algorithm>

namespace store {

namespace {

[[noreturn]] void refuseNoRow() {
    throw EngineError(ErrorNumber::NoCurrentRecord,
                      QStringLiteral("Nie je žiadny aktuálny záznam."));
}

[[noreturn]] void refuseNoEdit() {
    throw EngineError(ErrorNumber::NoOpenEdit,
                      QStringLiteral("Záznam nie je otvorený na zmenu (AddNew alebo Edit)."));
}

} // namespace

class Recordset::Impl {
  public:
    explicit Impl(std::shared_ptr<Rowset> rows) : rows_(std::move(rows)) {}

    Rowset& rows() const;
    const std::shared_ptr<Rowset>& sharedRows() const { return rows_; }
    void close() { rows_.reset(); }
    bool isClosed() const { return rows_ == nullptr; }

    bool hasRow() const { return place_ == Place::OnRow; }
    bool isAtEnd() const { return place_ == Place::End; }
    /// The key of the current row. @throws EngineError 3021
    const RowKey& key() const;
    std::optional<qint64> index() const;
    void goTo(qint64 index);
    void goTo(RowKey key);
    void goToNext();
    void goToGap();

    Value value(int column);
    void setValue(int column, const Value& value);

    EditState editState() const { return edit_; }
    void open(EditState state);
    void drop();
    /// The changes of the open edit that differ from the row.
    Changes realChanges();
    void write();
    void erase();

    void setNoMatch(bool noMatch) { noMatch_ = noMatch; }
    bool noMatch() const { return noMatch_; }

    std::vector<RecordsetObserver*>& observers() { return observers_; }
    void tell(void (RecordsetObserver::*event)());
    /// Tells of the leaving and drops an edit that is open then.
    void leave();

  private:
    enum class Place {
        Nowhere,
        OnRow,
        /// Where a row was deleted; index_ is that of the row behind it.
        Gap,
        End
    };

    RowView currentRow();
    /// The current row with a column read.
    RowView currentRow(int column);
    const Cell* pending(int column) const;

    std::shared_ptr<Rowset> rows_;
    Place place_ = Place::Nowhere;
    RowKey key_;
    /// Where the row stood at a version of the keyset; nothing after a find.
    mutable std::optional<qint64> index_;
    mutable quint64 indexVersion_ = 0;

    /// The current row as it was read at a stamp, and where it is put that is not in memory yet.
    std::optional<RowView> row_;
    std::optional<quint64> rowStamp_;
    RowBlock room_;

    EditState edit_ = EditState::None;
    Changes changes_;
    bool noMatch_ = false;
    std::vector<RecordsetObserver*> observers_;
};

Rowset& Recordset::Impl::rows() const {
    if (!rows_)
        refuseNoRow();
    return *rows_;
}

const RowKey& Recordset::Impl::key() const {
    if (!hasRow())
        refuseNoRow();
    return key_;
}

std::optional<qint64> Recordset::Impl::index() const {
    Keyset& keys = rows().keys();
    if (!index_ || indexVersion_ != keys.version()) {
        if (const auto found = keys.indexOf(key_))
            index_ = found;
        indexVersion_ = keys.version();
    }
    return index_;
}

void Recordset::Impl::goTo(qint64 index) {
    rowStamp_.reset();
    Keyset& keys = rows().keys();
    place_ = keys.has(index) ? Place::OnRow : Place::End;
    if (place_ == Place::End)
        return;
    const RowKeyView key = keys.at(index);
    key_.assign(key.begin(), key.end());
    index_ = index;
    indexVersion_ = keys.version();
}

void Recordset::Impl::goTo(RowKey key) {
    rowStamp_.reset();
    place_ = Place::OnRow;
    key_ = std::move(key);
    index_.reset();
}

void Recordset::Impl::goToNext() {
    if (place_ == Place::Nowhere || place_ == Place::End)
        refuseNoRow();
    if (place_ == Place::Gap)
        return goTo(index_.value_or(0));
    // A row that a clone deleted leaves its place to the one behind it.
    const qint64 here = index().value_or(0);
    Keyset& keys = rows().keys();
    const bool isHere = keys.has(here) && std::ranges::equal(keys.at(here), key_);
    goTo(isHere ? here + 1 : here);
}

void Recordset::Impl::goToGap() {
    place_ = Place::Gap;
    rowStamp_.reset();
}

RowView Recordset::Impl::currentRow() {
    Rowset& rows = this->rows();
    const quint64 stamp = rows.connection().changeStamp();
    if (rowStamp_ != stamp) {
        rowStamp_.reset();
        const bool isIndexed = index_ && indexVersion_ == rows.keys().version();
        row_ = rows.read(key(), isIndexed ? index_ : std::nullopt, room_);
        if (!row_)
            refuseDeleted();
        rowStamp_ = stamp;
    }
    return *row_;
}

RowView Recordset::Impl::currentRow(int column) {
    rows().ask(column);
    if (!currentRow().has(column))
        rowStamp_.reset();
    return currentRow();
}

const Cell* Recordset::Impl::pending(int column) const {
    const auto found = std::ranges::find(changes_, column, &Changes::value_type::first);
    return found == changes_.end() ? nullptr : &found->second;
}

Value Recordset::Impl::value(int column) {
    const auto type = rows().plan().columns[static_cast<size_t>(column)].type;
    if (const Cell* cell = pending(column))
        return toValue(*cell, type);
    if (edit_ == EditState::Add)
        return type == ColumnType::Boolean ? Value(false) : Value();
    return readValue(currentRow(column), column, type);
}

void Recordset::Impl::setValue(int column, const Value& value) {
    if (edit_ == EditState::None)
        refuseNoEdit();
    const OutputColumn& target = rows().plan().columns[static_cast<size_t>(column)];
    if (target.source < 0 || !rows().plan().updatable)
        throw EngineError(ErrorNumber::NotUpdatable,
                          QStringLiteral("Stĺpec %1 sa nedá meniť.").arg(target.name), target.name);
    Cell cell = toCell(value, target);
    const auto known = std::ranges::find(changes_, column, &Changes::value_type::first);
    if (known != changes_.end())
        known->second = std::move(cell);
    else
        changes_.emplace_back(column, std::move(cell));
}

void Recordset::Impl::open(EditState state) {
    if (state == EditState::Edit)
        currentRow();
    changes_.clear();
    edit_ = state;
}

void Recordset::Impl::drop() {
    changes_.clear();
    edit_ = EditState::None;
}

Changes Recordset::Impl::realChanges() {
    if (edit_ != EditState::Edit)
        return changes_;
    Changes real;
    std::ranges::copy_if(changes_, std::back_inserter(real), [&](const auto& change) {
        return !currentRow(change.first).equals(change.first, change.second);
    });
    return real;
}

void Recordset::Impl::write() {
    if (edit_ == EditState::None)
        refuseNoEdit();
    if (edit_ == EditState::Add)
        rows().insert(changes_);
    else
        rows().update(key(), realChanges());
    drop();
}

void Recordset::Impl::erase() {
    rows().erase(key());
    goToGap();
}

void Recordset::Impl::tell(void (RecordsetObserver::*event)()) {
    const auto told = observers_;
    for (RecordsetObserver* observer : told)
        if (std::ranges::find(observers_, observer) != observers_.end())
            (observer->*event)();
}

void Recordset::Impl::leave() {
    if (hasRow() || edit_ != EditState::None)
        tell(&RecordsetObserver::aboutToLeave);
    drop();
}

store::Value Field::Value() const {
    return owner_->impl_->value(column_);
}

void Field::setValue(const store::Value& value) {
    owner_->impl_->setValue(column_, value);
}

const OutputColumn& Field::column() const {
    return owner_->columns()[static_cast<size_t>(column_)];
}

Recordset::Recordset(std::shared_ptr<Connection> connection, const QString& source)
    : impl_(std::make_unique<Impl>(std::make_shared<Rowset>(std::move(connection), source))) {
    impl_->goTo(0);
}

Recordset::Recordset(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}

Recordset::~Recordset() {
    Close();
}

bool Recordset::Eof() const {
    return impl_->isAtEnd() || !impl_->rows().keys().has(0);
}

void Recordset::MoveFirst() {
    if (!impl_->rows().keys().has(0))
        refuseNoRow();
    impl_->leave();
    impl_->goTo(0);
    impl_->tell(&RecordsetObserver::repositioned);
}

void Recordset::MoveNext() {
    impl_->leave();
    impl_->goToNext();
    impl_->tell(&RecordsetObserver::repositioned);
}

Field Recordset::Fields(QStringView name) {
    return {*this, impl_->rows().columnIndex(name)};
}

const std::vector<OutputColumn>& Recordset::columns() const {
    return impl_->rows().plan().columns;
}

void Recordset::AddNew() {
    impl_->rows();
    impl_->leave();
    impl_->open(EditState::Add);
    impl_->tell(&RecordsetObserver::repositioned);
}

void Recordset::Edit() {
    impl_->key();
    if (impl_->editState() != EditState::None)
        impl_->leave();
    impl_->open(EditState::Edit);
    impl_->tell(&RecordsetObserver::repositioned);
}

void Recordset::Update() {
    if (impl_->editState() == EditState::None)
        refuseNoEdit();
    impl_->tell(&RecordsetObserver::aboutToWrite);
    impl_->write();
    impl_->tell(&RecordsetObserver::repositioned);
}

void Recordset::CancelUpdate() {
    if (impl_->editState() == EditState::None)
        return;
    impl_->drop();
    impl_->tell(&RecordsetObserver::repositioned);
}

EditState Recordset::EditMode() const {
    return impl_->editState();
}

bool Recordset::dataChanged() const {
    return impl_->editState() == EditState::Add || !impl_->realChanges().empty();
}

void Recordset::Delete() {
    impl_->key();
    impl_->drop();
    impl_->erase();
    impl_->tell(&RecordsetObserver::repositioned);
}

void Recordset::FindFirst(const QString& criterion) {
    takeFound(impl_->rows().find(criterion));
}

void Recordset::FindNext(const QString& criterion) {
    takeFound(impl_->rows().findBehind(criterion, AbsolutePosition()));
}

void Recordset::takeFound(std::optional<RowKey> found) {
    impl_->setNoMatch(!found);
    if (!found)
        return;
    impl_->leave();
    impl_->goTo(std::move(*found));
    impl_->tell(&RecordsetObserver::repositioned);
}

const std::shared_ptr<Rowset>& Recordset::rowset() const {
    impl_->rows();
    return impl_->sharedRows();
}

bool Recordset::NoMatch() const {
    return impl_->noMatch();
}

RowMark Recordset::Bookmark() const {
    RowMark mark;
    mark.keys_ = impl_->key();
    return mark;
}

void Recordset::setBookmark(const RowMark& mark) {
    if (!impl_->rows().holds(mark.keys_))
        refuseNoRow();
    impl_->leave();
    impl_->goTo(mark.keys_);
    impl_->tell(&RecordsetObserver::repositioned);
}

qint64 Recordset::AbsolutePosition() const {
    return impl_->hasRow() ? impl_->index().value_or(-1) : -1;
}

void Recordset::setAbsolutePosition(qint64 position) {
    if (!impl_->rows().keys().has(position))
        refuseNoRow();
    impl_->leave();
    impl_->goTo(position);
    impl_->tell(&RecordsetObserver::repositioned);
}

qint64 Recordset::RecordCount() const {
    return impl_->rows().keys().size();
}

std::unique_ptr<Recordset> Recordset::Clone() const {
    impl_->rows();
    return std::unique_ptr<Recordset>(new Recordset(std::make_unique<Impl>(impl_->sharedRows())));
}

void Recordset::Close() {
    if (impl_->isClosed())
        return;
    impl_->leave();
    impl_->drop();
    impl_->goToGap();
    impl_->close();
}

void Recordset::addObserver(RecordsetObserver* observer) {
    impl_->observers().push_back(observer);
}

} // namespace store
