// The keeping of words, killed at each of its calls to the system, or finding the disk full there.
#include "clientcard/CardScreen.h"
#include "store/FileBytes.h"
#include "support/CallFaults.h"
#include "words/Keeper.h"

using cardtest::text;

namespace {

/// Spares the waiting for the disk: no computer fails here.
const bool liesInMemory = qputenv("TMPDIR", "/dev/shm");

class WordsMishapsTest : public cardtest::CardTest {
  protected:
    WordsMishapsTest() {
        insertClient("NOVOTNEV00");
        reg.letGo();
        reg.engine.commitPending();
        bytes_ = files::read(reg.folder.database());
    }
    QString wordsFile() { return words::Book::fileOf(reg.folder); }
    QString saidFile() { return reg.folder.path(u"povedane"); }
    words::Keeper& keeper() { return *card->findChild<words::Keeper*>(); }
    void reset() {
        for (const QString& name : files::namesIn(reg.directory.path()))
            QFile::remove(reg.directory.filePath(name));
        files::write(reg.folder.database(), bytes_);
    }
    /// Types a surname, and notes when it is kept.
    void typeSurname() {
        open(text("NOVOTNEV00"));
        enterInto(1, "Nova");
        keeper().keep();
        if (QTest::qWaitFor([this] { return holds(text("Nova")); }, 300))
            QFile(saidFile()).open(QIODevice::WriteOnly);
    }
    bool holds(const QString& word) {
        const auto kept = words::fromFile(files::read(wordsFile()));
        return kept && std::ranges::any_of(*kept, [&](const words::Kept& each) {
                   return std::ranges::find(each.words, word, &forms::Word::text) !=
                          each.words.end();
               });
    }
    /// What the next start finds is whole, and of what was said to be kept nothing is missing.
    void expectWhole(bool diskFull) {
        const bool wasSaid = QFile::exists(saidFile());
        store::DBEngine engine;
        engine.OpenDatabase(reg.folder.database()).Close();
        EXPECT_NO_THROW(store::DBEngine::verifyDatabase(reg.folder.database()));
        auto data = engine.OpenDatabase(reg.folder.database());
        const QString surname =
            data.OpenRecordset(text("k_zaklad"))->Fields(u"priezv").Value().toText();
        EXPECT_TRUE(surname == text("Novotna") || surname == text("Nova"));
        EXPECT_EQ(words::Book(reg.folder).fault(), QString()) << "half a file";
        EXPECT_TRUE(!wasSaid || surname == text("Nova") || holds(text("Nova")));
        if (surname == text("Nova") && !diskFull) {
            EXPECT_EQ(words::foundWords(engine, reg.folder), QString()) << "stored already";
        }
    }
    /// Strikes an action at its first call, its second and so on until it gets through.
    int strikeEverywhere(calls::Fault fault, const std::function<void()>& action) {
        int calls = 0;
        for (bool struck = true; struck; ++calls) {
            SCOPED_TRACE(calls + 1);
            reset();
            struck = calls::strike(fault, calls + 1, action);
            expectWhole(fault == calls::Fault::DiskFull);
            if (HasFailure())
                break;
        }
        return calls - 1;
    }

  private:
    QByteArray bytes_;
};

} // namespace

TEST_F(WordsMishapsTest, AtNoCallAreWordsLostThatWereKept) {
    const auto typeRecord = [this] {
        typeSurname();
        turnTabs(13);
        click("cmdNavNovy");
        enter({"1.9.2005", "8.9.2005"});
        keeper().keep();
    };
    const auto saves = [this](const char* button) {
        click(button);
        reg.engine.commitPending();
        card.reset();
    };
    struct Action {
        const char* name;
        bool fillsDisk;
        std::function<void()> run;
    };
    const Action actions[] = {
        {"keeping", true,
         [this] {
             typeSurname();
             enterInto(12, "Dlha");
             keeper().keep();
             card.reset();
         }},
        {"save", false,
         [&] {
             typeSurname();
             saves("CmdZap");
         }},
        {"save of a record", false,
         [&] {
             typeRecord();
             saves("cmdNavZap");
         }},
        {"Storno of a record, and of the card", true,
         [&] {
             typeRecord();
             click("cmdNavSto");
             saves("cmdStorno");
             QFile::remove(saidFile());
             words::forgetDropped(reg.folder);
         }},
        {"start and taking back", true,
         [this] {
             typeSurname();
             card.reset();
             words::foundWords(reg.engine, reg.folder);
             open(text("NOVOTNEV00"));
             takeWordsBack();
             card.reset();
         }},
    };
    for (const Action& action : actions) {
        SCOPED_TRACE(action.name);
        EXPECT_GT(strikeEverywhere(calls::Fault::Kill, action.run), 8);
        if (action.fillsDisk)
            strikeEverywhere(calls::Fault::DiskFull, action.run);
    }
}
