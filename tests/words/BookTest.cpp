// The file of kept words: damage, rights, other registers; and what start and exit do with it.
#include "mainwindow/MainWindow.h"
#include "store/FileBytes.h"
#include "store/PlainUser.h"
#include "words/FrmSlova.h"
#include "words/Keeper.h"

#include <QClipboard>
#include <QLabel>
#include <QListWidget>
#include <QTemporaryDir>

namespace {

using namespace Qt::StringLiterals;

words::Kept wordsOf(const QString& key, const QString& text) {
    words::Kept kept;
    kept.id = key + text;
    kept.screen = u"frmKlientUdaj"_s;
    kept.owner = u"k_zaklad"_s;
    kept.key = key;
    kept.who = u"Eva Nová"_s;
    kept.tables = QStringList{u"k_zaklad"_s};
    kept.when = QDateTime(QDate(2026, 11, 23), QTime(17, 40));
    kept.words = {{u"textKrz(12)"_s, u"ulica"_s, text, u"Ulica"_s}};
    return kept;
}

/// Keeps words as a run does that ends badly.
void keep(const store::ProgramFolder& folder, const words::Kept& kept) {
    words::Book(folder).put(kept);
}

class FoundWordsTest : public MainWindow {
  protected:
    QString line() {
        return find<QFrame>("fraSlova").isVisible() ? find<QLabel>("lblSlova").text() : QString();
    }
};

} // namespace

TEST(BookTest, DamagedAndNewerFilesArePutAsideAndNeverOverwritten) {
    const QTemporaryDir directory;
    const store::ProgramFolder folder(directory.path());
    const QString path = words::Book::fileOf(folder);
    keep(folder, wordsOf(u"A"_s, u"Dlhá"_s));
    const QByteArray sound = files::read(path);
    EXPECT_EQ(QFile::permissions(path) & QFile::Permissions(0x0077), QFile::Permissions());
    QByteArray flipped = sound;
    flipped[sound.size() - 9] ^= 1;
    const QByteArray damaged[] = {flipped, sound.first(sound.size() / 2), QByteArray(),
                                  QByteArray(sound).replace("slova 1", "slova 2")};
    int aside = 0;
    for (const QByteArray& bytes : damaged) {
        files::write(path, bytes);
        {
            words::Book book(folder);
            EXPECT_TRUE(book.all().empty());
            EXPECT_TRUE(book.fault().contains(u"odložil sa"_s)) << qPrintable(book.fault());
            book.put(wordsOf(u"A"_s, u"Krátka"_s));
        }
        EXPECT_EQ(words::Book(folder).all().front().words.front().text, u"Krátka"_s);
        ++aside;
        const QString name = path + (aside == 1 ? u".chybny"_s : u".chybny_%1"_s.arg(aside));
        EXPECT_EQ(files::read(name), bytes);
    }
}

TEST(BookTest, WhereNothingCanBeWrittenThatIsToldAndNothingElseHappens) {
    const QTemporaryDir directory;
    const store::ProgramFolder folder(directory.path());
    keep(folder, wordsOf(u"A"_s, u"Dlhá"_s));
    const QByteArray before = files::read(words::Book::fileOf(folder));
    for (const mode_t rights : {0555, 0777}) {
        chmod(qPrintable(directory.path()), rights);
        const PlainUser user;
        words::Book book(folder);
        EXPECT_TRUE(book.fault().contains(u"nedá prečítať ani odložiť"_s)) << "root's own";
        book.put(wordsOf(u"B"_s, u"Iná"_s));
    }
    EXPECT_EQ(files::read(words::Book::fileOf(folder)), before);
    {
        chmod(qPrintable(directory.path()), 0555);
        chmod(qPrintable(words::Book::fileOf(folder)), 0644);
        const PlainUser rights;
        words::Book book(folder);
        EXPECT_EQ(book.all().size(), 1U);
        book.put(wordsOf(u"B"_s, u"Iná"_s));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !book.fault().isEmpty(); }));
    }
    EXPECT_EQ(files::read(words::Book::fileOf(folder)), before);
    chmod(qPrintable(directory.path()), 0755);
}

TEST_F(FoundWordsTest, TheStartSaysWhoseWordsItFoundAndTheMenuShowsThem) {
    reg.add(u"k_zaklad"_s, {{u"idkod", u"A"_s}, {u"priezv", u"Nová"_s}});
    reg.add(u"k_zaklad"_s, {{u"idkod", u"C"_s}, {u"ulica", u"Zapísaná"_s}});
    open();
    EXPECT_EQ(line(), QString());
    window->zavri();
    words::Kept dropped = wordsOf(u"A"_s, u"Zahodená"_s);
    dropped.isDropped = true;
    {
        words::Book book(reg.folder);
        book.put(wordsOf(u"A"_s, u"Dlhá"_s));
        book.put(wordsOf(u"B"_s, u"Iná"_s));
        book.put(wordsOf(u"C"_s, u"Zapísaná"_s));
        book.put(dropped);
    }
    open();
    EXPECT_EQ(line(), u"Našli sa rozpísané slová, ktoré nie sú zapísané: Eva Nová (23.11.2026 "
                      "17:40); Eva Nová (23.11.2026 17:40) – v registri už nie je. Ponúkne ich "
                      "karta alebo formulár, všetky ukáže Servis, Rozpísané slová…"_s);
    window->close();
    words::Book book(reg.folder);
    EXPECT_EQ(book.all().size(), 2U) << "what is stored or was given up is gone";
    words::FrmSlova form(book);
    form.show();
    form.findChild<QListWidget*>(u"lstSlova"_s)->setCurrentRow(1);
    form.findChild<QPushButton*>(u"cmdKopirovat"_s)->click();
    EXPECT_EQ(QApplication::clipboard()->text(), u"Ulica\nIná"_s);
    form.findChild<QPushButton*>(u"cmdZahodit"_s)->click();
    EXPECT_EQ(book.all().size(), 1U);
    EXPECT_EQ(book.all().front().key, u"A"_s);
}
