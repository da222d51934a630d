#include "RecordScreen.h"
#include "forms/RichText.h"
#include "store/KillEverywhere.h"

#include <QClipboard>
#include <QRegularExpression>

using cardtest::Record;
using cardtest::text;

namespace {

class RecordCrashTest : public cardtest::RecordTest {
  protected:
    /// A text in two styles that does not fit a page of the file.
    void pasteLongText() {
        if (card->findChild<forms::RichText*>(text(m->opensOn)) == nullptr)
            return;
        type("Priebeh ");
        key(Qt::Key_B, Qt::ControlModifier);
        QApplication::clipboard()->setText(QString(6000, u'x'));
        key(Qt::Key_V, Qt::ControlModifier);
    }
    void openNew(const Record& record) {
        press("Novy");
        pasteLongText();
        fill(record);
    }
    void openFirst() {
        press("Opr");
        pasteLongText();
        fill({m->second.front()});
    }
    void remove() {
        // The list of facilities, by which the question names one, stands on its first.
        expectDeletion(QMessageBox::Yes, "Trieda");
        press("Vym");
    }
};

} // namespace

TEST_F(RecordCrashTest, ARecordIsWrittenOrDeletedWhollyOrNotAtAll) {
    struct Action {
        const char* name;
        std::function<void()> run;
        /// How many records the action leaves where there was one.
        int records;
    };
    const std::vector<Action> actions = {
        {"Zápis of a new record", [this] { openNew(m->second), press("Zap"); }, 2},
        {"Zápis of an edit", [this] { openFirst(), press("Zap"); }, 1},
        {"Zápis+nový", [this] { openNew(m->second), press("ZapNew"); }, 2},
        {"Výmaz", [this] { remove(); }, 0},
    };
    // This process must show no window: the threads that painted it would be missing in the next.
    for (const auto& [tab, first] :
         {std::pair{10, "k_vysetrenie (idkod, datum, idkod_p) values ('NOVOTNEV00', "
                        "datevalue('1.9.2005'), 'NOVAKJA00')"},
          {9, "k_zariad (idkod, akronym, nazzar, vzar_od, vzar_do) values ('NOVOTNEV00', 'VYCH', "
              "'05', datevalue('1.9.2005'), datevalue('30.6.2006'))"},
          {2, "k_surodenci (idkod, meno, roknar) values ('NOVOTNEV00', 'Adam Mal', '1999')"}}) {
        m = &*std::ranges::find(cardtest::members, tab, &cardtest::Member::tab);
        insert(first);
        reg.letGo();
        reg.engine.commitPending();
        for (const Action& action : actions) {
            SCOPED_TRACE(text("%1: %2").arg(text(m->table), text(action.name)).toStdString());
            const auto outcome = faults::killEverywhere(reg.folder.database(), [&] {
                open(text("NOVOTNEV00"));
                tabs().setCurrentRow(m->tab);
                action.run();
                reg.engine.commitPending();
            });
            EXPECT_GT(outcome.kills, 15);
            EXPECT_GT(outcome.before, 1);
            EXPECT_EQ(outcome.after.filter(QRegularExpression(u'^' + text(m->table))).size(),
                      action.records);
        }
    }
}
