#include "clientcard/Registers.h"

#include "mkdb/DatabaseSink.h"
#include "mkdb/Register.h"
#include "store/Recordset.h"
#include "validation/modKontrola.h"

#include <QCoreApplication>
#include <QPushButton>
#include <QTest>

namespace bench {

namespace {

/// Enough that nobody is opened twice: some are renamed.
constexpr qsizetype keyCount = 900;

/// Lets through the clients' own rows; the records that hang on them would take minutes to make.
class CardRows : public mkdb::RowSink {
  public:
    explicit CardRows(mkdb::RowSink& sink) : sink_(sink) {}
    void add(const mkdb::RowShape& shape, const std::vector<store::Value>& values) override {
        const QStringView table(shape.table);
        if (table == u"k_zaklad" || table == u"k_memo" || table == u"k_navstevy")
            sink_.add(shape, values);
    }

  private:
    mkdb::RowSink& sink_;
};

void makeRegister(int clients, store::Database& database) {
    static const auto lists = mkdb::readCodeLists(QStringLiteral(TVK_DATA_FOLDER "/ciselniky"));
    static const auto words = mkdb::readVocabulary(QStringLiteral(TVK_DATA_FOLDER "/ukazka"));
    mkdb::DatabaseSink sink(database);
    for (const mkdb::CodeList& list : lists)
        list.write(sink);
    CardRows rows(sink);
    mkdb::makeRegister({clients, 1, QDate(2026, 11, 23)}, words, lists, rows);
}

} // namespace

Screen::Screen(int clients) {
    engine.CreateDatabase(folder.database());
    database_ = engine.OpenDatabase(folder.database());
    makeRegister(clients, *database_);
    engine.commitPending();
    const auto rows = database_->OpenRecordset(QStringLiteral("select idkod from k_zaklad"));
    for (qsizetype i = 0; i < keyCount; ++i) {
        rows->setAbsolutePosition(i * rows->RecordCount() / keyCount);
        keys_ += rows->Fields(u"idkod").Value().toText();
    }
}

void Screen::openClient() {
    open(2, keys_.at(next_++));
}

void Screen::openNew() {
    open(1, QString());
}

void Screen::open(int mode, const QString& key) {
    card.reset();
    modKontrola::gAkcia = static_cast<quint8>(mode);
    modKontrola::gIdKod = key;
    card.emplace(engine, folder);
    card->show();
    card->activateWindow();
    QCoreApplication::processEvents();
}

forms::EntryField& Screen::field(int element) const {
    return find<forms::EntryField>(QStringLiteral("textKrz(%1)").arg(element));
}

void Screen::click(const char* button) {
    find<QPushButton>(QLatin1String(button)).click();
    engine.commitPending();
}

void Screen::key(int key) const {
    QTest::keyClick(card->focusWidget(), static_cast<Qt::Key>(key));
}

void Screen::goTo(int element) const {
    find<QPushButton>(QStringLiteral("cmdStorno")).setFocus();
    field(element).setFocus();
}

} // namespace bench
