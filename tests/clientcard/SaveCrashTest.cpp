#include "CardScreen.h"
#include "store/KillEverywhere.h"

using cardtest::text;

namespace {

class SaveCrashTest : public cardtest::CardTest {
  protected:
    SaveCrashTest() {
        insertClient("NOVAKJA00", "meno = 'Jan', priezv = 'Novak'");
        insertRecords("NOVAKJA00");
        reg.letGo();
        reg.engine.commitPending();
    }
    /// Kills the saving of what was entered.
    /// @return the rows in the end
    QStringList killSaving(const std::function<void()>& entry) {
        const auto outcome = faults::killEverywhere(reg.folder.database(), [&] {
            entry();
            click("CmdZap");
            reg.engine.commitPending();
        });
        EXPECT_GT(outcome.kills, 8);
        EXPECT_GT(outcome.before, 1);
        return outcome.after;
    }
};

} // namespace

TEST_F(SaveCrashTest, AKeyChangesInAllTablesWithTheTextOrInNone) {
    const QStringList after = killSaving([this] {
        open(text("NOVAKJA00"));
        enterInto(1, "Malik");
        typeNote("pozn");
    });
    EXPECT_EQ(after.filter(text("MALIKJA00")).size(), 8);
    EXPECT_EQ(after.filter(text("<p>pozn</p>")).size(), 1);
}

TEST_F(SaveCrashTest, ANewClientHasBothRowsOrNone) {
    const QStringList after = killSaving([this] { enterClient("Jan", "Malik"); });
    EXPECT_EQ(after.filter(text("MALIKJA00")).size(), 2);
}
