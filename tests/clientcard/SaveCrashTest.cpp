#include "PlayedCard.h"
#include "store/KillEverywhere.h"

#include <gtest/gtest.h>

using cardtest::PlayedCard;
using cardtest::text;

namespace {

/// Kills an action on the card; the register holds a client with a row in every table.
/// @return the rows in the end
QStringList kill(const std::function<void(PlayedCard&)>& action) {
    support::TemporaryRegister file;
    file.execute(
        {text("insert into k_zaklad (idkod, meno, priezv) values ('NOVAKJA00', 'Jan', 'Novak')")});
    for (const char* table : {"k_memo", "k_navstevy", "k_surodenci", "k_vysetrenie", "k_zariad",
                              "k_zaznam_spc", "k_zaznam_zmeny"})
        file.execute({text("insert into %1 (idkod) values ('NOVAKJA00')").arg(text(table))});
    file.letGo();
    file.engine.commitPending();
    const auto outcome = faults::killEverywhere(file.folder.database(), [&] {
        store::DBEngine engine;
        PlayedCard card(engine, file.folder);
        action(card);
        engine.commitPending();
    });
    EXPECT_GT(outcome.kills, 8);
    EXPECT_GT(outcome.before, 1);
    return outcome.after;
}

/// The same for the saving of a client, found or new, under the name Jan Malík.
QStringList killSaving(const char* client) {
    return kill([client](PlayedCard& card) {
        card.open(text(client));
        card.type("Malik", "Jan");
        card.cycle.zapisZaklad();
    });
}

} // namespace

TEST(SaveCrash, AKeyChangesInAllTablesOrInNone) {
    EXPECT_EQ(killSaving("NOVAKJA00").filter(text("MALIKJA00")).size(), 8);
}

TEST(SaveCrash, ANewClientHasBothRowsOrNone) {
    EXPECT_EQ(killSaving("").filter(text("MALIKJA00")).size(), 2);
}

TEST(SaveCrash, AClientsRowAndTextAreSavedBothOrNeither) {
    const QStringList after = kill([](PlayedCard& card) {
        card.open(text("NOVAKJA00"));
        card.type("Novak", "Jan", "9");
        card.data.datMemo().Recordset().Fields(u"poznamky").setValue(text("<p>9</p>"));
        card.cycle.zapisZaklad();
        // As the button that closes the card does it.
        card.data.datZaklad().Refresh();
        card.data.datMemo().Recordset().Update();
    });
    EXPECT_EQ(after.filter(text("NOVAKJA00")).size(), 8);
    EXPECT_EQ(after.filter(text("<p>9</p>")).size(), 1);
}
