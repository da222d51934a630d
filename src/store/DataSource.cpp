#include "store/DataSource.h"

#include "store/EngineError.h"

namespace store {

namespace {

[[noreturn]] void refuseClosed() {
    throw EngineError(ErrorNumber::NoCurrentRecord,
                      QStringLiteral("Zdroj dát nie je otvorený (Refresh)."));
}

} // namespace

DataSource::DataSource(DBEngine& engine, QObject* parent) : QObject(parent), engine_(engine) {}

DataSource::~DataSource() {
    leave();
}

void DataSource::leave() {
    if (!recordset_)
        return;
    // The signals of the leaving still find the recordset in place.
    recordset_->Close();
    recordset_.reset();
}

void DataSource::Refresh() {
    leave();
    auto database = engine_.OpenDatabase(databaseName_);
    auto recordset = database.OpenRecordset(recordSource_);
    database_.emplace(std::move(database));
    recordset_ = std::move(recordset);
    recordset_->addObserver(this);
    Q_EMIT refreshed();
    Q_EMIT repositioned();
}

store::Recordset& DataSource::Recordset() {
    if (!recordset_)
        refuseClosed();
    return *recordset_;
}

store::Database& DataSource::Database() {
    if (!database_)
        refuseClosed();
    return *database_;
}

} // namespace store
