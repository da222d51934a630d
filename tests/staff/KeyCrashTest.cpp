#include "EmployeeScreen.h"
#include "store/KillEverywhere.h"

using cardtest::text;
using KeyCrashTest = cardtest::EmployeeScreen;

TEST_F(KeyCrashTest, AKeyChangesInAllTablesOrInNone) {
    reg.letGo();
    reg.engine.commitPending();
    const auto outcome = faults::killEverywhere(reg.folder.database(), [&] {
        open(text("NOVOTNEV00"));
        typeName(1, "Mala");
        click("cmdZap");
        reg.engine.commitPending();
    });
    EXPECT_GT(outcome.kills, 4);
    EXPECT_GT(outcome.before, 1);
    EXPECT_EQ(outcome.after.filter(text("MALAEV00")).size(), 4);
    EXPECT_EQ(outcome.after.filter(text("NOVOTNEV00")).size(), 0);
}
