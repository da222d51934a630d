#include "oldregister/Conversion.h"

#include "Sample.h"
#include "oldregister/CsvExport.h"
#include "oldregister/FittedValue.h"
#include "oldregister/OldReader.h"
#include "oldregister/TableWriter.h"
#include "store/Database.h"
#include "store/EngineError.h"
#include "store/FileBytes.h"
#include "store/Recordset.h"
#include "store/Schema.h"

#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

#include <random>

using namespace oldregister;
using namespace Qt::StringLiterals;

namespace {

/// Bytes that some page holds, in the letters of the old format's narrow or wide texts.
QByteArray narrow(const QString& text) {
    return text.toLatin1();
}
QByteArray wide(const QString& text) {
    return {reinterpret_cast<const char*>(text.utf16()), text.size() * 2};
}

constexpr qsizetype pageSize = 4096;

QByteArray withByte(QByteArray file, qsizetype at, char value) {
    file[at] = value;
    return file;
}

/// Where the table with that column is described.
qsizetype definitionIn(const QByteArray& file, const QString& column) {
    for (qsizetype page = pageSize; page < file.size(); page += pageSize)
        if (file[page] == 2 && file.mid(page, pageSize).contains(wide(column)))
            return page;
    return 0;
}

/// The map of the clients' pages lists one more, which is none of the file.
QByteArray withPageBehindEnd(QByteArray file) {
    const auto numberAt = [&](qsizetype at) {
        return qsizetype{qFromLittleEndian<quint32>(file.constData() + at)};
    };
    const qsizetype rows = (numberAt(definitionIn(file, u"kon_pomer"_s) + 0x37) >> 8) * pageSize;
    const qsizetype firstRow = rows + (numberAt(rows + 14) & 0x1fff);
    const qsizetype map = numberAt(firstRow + 1) * pageSize;
    return withByte(file, map + 4 + 480 / 8, 1);
}

/// Empties the first page of a kind that belongs to the table with that column, or describes it.
QByteArray withoutPage(QByteArray file, char kind, const QString& column = u"kon_pomer"_s) {
    const qsizetype definition = definitionIn(file, column);
    for (qsizetype page = pageSize; page < file.size(); page += pageSize) {
        const bool isOwn =
            kind == 2 ? page == definition
                      : file[page] == kind && qFromLittleEndian<quint32>(file.data() + page + 4) ==
                                                  definition / pageSize;
        if (isOwn)
            return file.replace(page, pageSize, QByteArray(pageSize, '\0'));
    }
    return file;
}

QByteArray withFlips(QByteArray file, unsigned seed) {
    std::minstd_rand random(seed + 1);
    for (int count = 0; count < 200; ++count)
        file[static_cast<qsizetype>(random() % file.size())] ^=
            static_cast<char>(1U << (random() % 8));
    return file;
}

class Conversion : public testing::Test {
  protected:
    /// @return what the conversion says against it, or what it could not keep
    QString converted(const QByteArray& bytes) {
        files::write(oldFile, bytes);
        QString words;
        try {
            words = convert(oldFile, newFile).text();
            EXPECT_NO_THROW(readThrough(oldFile));
        } catch (const store::EngineError& error) {
            words = error.description();
            EXPECT_FALSE(QFile::exists(newFile));
            EXPECT_THROW(readThrough(oldFile), store::EngineError);
        }
        EXPECT_EQ(files::read(oldFile), bytes);
        QFile::remove(newFile);
        EXPECT_EQ(files::namesIn(folder.path()), QStringList{u"stary.mdb"_s});
        return words;
    }

    QTemporaryDir folder;
    const QString oldFile = folder.filePath(u"stary.mdb"_s);
    const QString newFile = folder.filePath(u"novy.mdb"_s);
};

} // namespace

TEST_F(Conversion, TakesEveryRowOver) {
    const QByteArray whole = sample::bytes();
    const QByteArray locked = sample::withPassword(whole);
    const std::pair<QByteArray, const char*> cases[] = {
        {whole, ""},
        {locked, "Pôvodný súbor má heslo"},
        {sample::encoded(whole), "Pôvodný súbor je zakódovaný"},
        {sample::encoded(locked), "Pôvodný súbor má heslo a je zakódovaný"}};
    for (const auto& [bytes, protection] : cases) {
        files::write(oldFile, bytes);
        QFile::remove(newFile);
        const ConversionReport report = convert(oldFile, newFile);
        EXPECT_EQ(report.rowsWritten(), 536);
        EXPECT_EQ(report.protection.section(u'.', 0, 0).toStdString(), protection);
        EXPECT_TRUE(report.text().contains(report.protection));
        EXPECT_EQ(files::read(oldFile), bytes);
        EXPECT_EQ(files::namesIn(folder.path()).size(), 2);
        const QTemporaryDir out;
        store::DBEngine engine;
        store::Database database = engine.OpenDatabase(newFile);
        exportCsv(database, out.path());
        sample::expectTables(out.path());
    }
}

TEST_F(Conversion, TellsWhatIsWrongWithAFileAndChangesNothing) {
    const QByteArray whole = sample::bytes();
    struct Case {
        const char* name;
        QByteArray bytes;
        const char16_t* words;
    };
    QByteArray repeatedKey = whole;
    repeatedKey.replace(narrow(u"NOVÁKJÁ01"_s), narrow(u"NOVÁKJÁ00"_s));
    QByteArray otherColumn = whole;
    otherColumn.replace(wide(u"kon_pomer"_s), wide(u"kon_pomor"_s));
    const Case cases[] = {
        {"empty", {}, u"Súbor je prázdny."},
        {"foreign", "no register at all", u"Súbor nie je v pôvodnom formáte"},
        {"older", withByte(whole, 0x14, 0), u"staršej verzii"},
        {"newer", withByte(whole, 0x14, 2), u"novšej verzii"},
        {"cut within a page", whole.first(whole.size() - 1), u"Súbor je neúplný"},
        {"cut between pages", whole.first(whole.size() / 2), u"Súbor je neúplný"},
        {"cut before the last tables", whole.first(205 * pageSize), u"Súbor je neúplný"},
        {"rows behind the end", withoutPage(withPageBehindEnd(whole), 1), u"Súbor je neúplný"},
        {"header alone", whole.first(pageSize), u"Súbor je"},
        {"no catalogue", QByteArray(whole).replace(2 * pageSize, pageSize, QByteArray(pageSize, 0)),
         u"Súbor je poškodený"},
        {"a page behind the end", withPageBehindEnd(whole),
         u"k_zaklad): strana 480 súboru je poškodená"},
        {"no description of clients", withoutPage(whole, 2), u"tabuľka klientov sa nedá prečítať"},
        {"a page of clients lost", withoutPage(whole, 1),
         u"súbor hovorí o 40 riadkoch, čitateľných je"},
        {"a page of texts lost", withoutPage(whole, 1, u"u_dolezite"_s),
         u"k_memo): klient nemá riadok textov, doplnil sa prázdny"},
        {"a repeated key", repeatedKey,
         u"Klienti (k_zaklad): kľúč sa opakuje, riadok sa nezapísal\n   Osoba: NOVÁKJÁ00 (Ján "
         u"Novák)\n   "
         u"Obsah: idkod=NOVÁKJÁ00; "},
        {"a renamed column", otherColumn, u"stĺpec kon_pomor register nepozná"}};
    for (const auto& [name, bytes, words] : cases) {
        SCOPED_TRACE(name);
        const QString told = converted(bytes);
        EXPECT_TRUE(told.contains(QStringView(words))) << told.left(3000).toStdString();
    }
    for (unsigned seed = 0; seed < 15; ++seed)
        EXPECT_FALSE(converted(withFlips(whole, seed)).isEmpty());
}

TEST_F(Conversion, KeepsOfAValueWhatItsColumnCanHold) {
    const auto wrong = u"iného typu"_s;
    struct Case {
        const char* name;
        const char16_t* column;
        OldValue old;
        QString stored;
        QString problem;
    };
    const Case cases[] = {{"long text", u"psc", u"811 68"_s, u"811 6"_s, u"dlhší"_s},
                          {"number in text", u"matvek", qint64{40}, u"40"_s, {}},
                          {"fraction in text", u"katcis", 7.25, u"7.25"_s, {}},
                          {"date in text", u"skola", RawDate{38718}, u"01.01.2006"_s, {}},
                          {"time in text", u"skola", RawDate{0.5}, u"12:00"_s, {}},
                          {"fraction in whole", u"vek", 7.5, {}, wrong},
                          {"text in whole", u"vek", u"7 rokov"_s, {}, wrong},
                          {"number as text", u"vek", u" 7 "_s, u"7"_s, {}},
                          {"too large", u"vek", 3e9, {}, wrong},
                          {"date as text", u"datnar", u"1.2.2003"_s, u"1.2.2003"_s, {}},
                          {"no date as text", u"datnar", u"jar 2003"_s, u"jar 2003"_s, {}},
                          {"number in date", u"datnar", qint64{7}, {}, wrong},
                          {"date of no year", u"datnar", RawDate{1e9}, {}, u"mimo rokov"_s},
                          {"unreadable", u"meno", Unreadable{}, {}, u"nedá prečítať"_s}};
    for (const auto& [name, columnName, old, stored, problem] : cases) {
        SCOPED_TRACE(name);
        const store::ColumnDef& column = *store::findTable(u"k_zaklad")->column(columnName);
        const FittedValue fitted = fit(old, column);
        EXPECT_EQ(fitted.value.toText().toStdString(), stored.toStdString());
        EXPECT_EQ(fitted.problem.isEmpty(), problem.isEmpty());
        EXPECT_TRUE(fitted.problem.contains(problem)) << fitted.problem.toStdString();
    }
}

TEST_F(Conversion, BringsTheLinesOfTheFormInOrderAgain) {
    store::DBEngine engine;
    engine.CreateDatabase(newFile);
    store::Database database = engine.OpenDatabase(newFile);
    std::vector<Finding> findings;
    {
        TableWriter writer(database, {u"OdbStar"_s, 2, {{u"C_RIA"_s, OldType::Text}}}, findings);
        for (const auto* code : {u"0510", u"0502", u"0501"})
            writer.add({QString::fromUtf16(code)});
        writer.finish();
    }
    const auto rows = database.OpenRecordset(u"odbstar"_s);
    EXPECT_EQ(rows->Fields(u"c_ria"_s).Value().toText(), u"0501"_s);
    EXPECT_TRUE(findings.back().what.contains(u"poradie"));
}
