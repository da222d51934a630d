#pragma once

#include "clientcard/SaveCycle.h"
#include "support/TemporaryRegister.h"
#include "validation/modKontrola.h"

namespace cardtest {

inline QString text(const char* utf8) {
    return QString::fromUtf8(utf8);
}

/// Plays the card: typed names, and the binding that carries them into the row at Update.
class PlayedCard : public clientcard::KeyFields {
  public:
    PlayedCard(store::DBEngine& engine, const store::ProgramFolder& folder)
        : data(engine, folder), cycle(data, *this) {
        QObject::connect(&data.datZaklad(), &store::DataSource::aboutToWrite, [this] { put(); });
        QObject::connect(&data.datZaklad(), &store::DataSource::aboutToLeave, [this] {
            if (data.datZaklad().Recordset().EditMode() != store::EditState::None)
                data.datZaklad().Recordset().Update();
        });
    }

    /// As the frame opens a card.
    void open(const QString& client) {
        modKontrola::gAkcia = client.isEmpty() ? 1 : 2;
        modKontrola::gIdKod = client;
        data.otvorZaznamy(client);
        data.otvorCiselniky();
        startRows();
    }
    void startRows() {
        for (store::DataSource* source : {&data.datZaklad(), &data.datMemo()})
            modKontrola::gAkcia == 2 ? source->Recordset().Edit() : source->Recordset().AddNew();
    }
    void type(const char* surname, const char* name, const char* number = "7") {
        typedSurname = text(surname);
        typedName = text(name);
        typedNumber = text(number);
        key.clear();
    }
    /// What the button "Zapíš základné údaje" does behind the cycle.
    void reopenAsNew() {
        for (store::DataSource* source : {&data.datZaklad(), &data.datMemo()}) {
            source->setRecordSource(source == &data.datMemo() ? text("select * from k_memo")
                                                              : text("select * from k_zaklad"));
            source->Refresh();
            source->Recordset().FindFirst(clientcard::keyCriterion(modKontrola::gIdKod));
            source->Recordset().Edit();
        }
    }

    QString firstName() const override { return typedName; }
    QString surname() const override { return typedSurname; }
    QString catalogueNumber() const override { return typedNumber; }
    void setKey(const QString& wanted) override { key = wanted; }
    void zapisPostih() override {}
    void tellMissing(const QString& message) override { told += message; }
    void passOver(const store::EngineError& error) override { passed += error.number(); }

    // The data come last: as they end they still write what is typed.
    QString typedName, typedSurname, typedNumber, key;
    QStringList told;
    QList<store::ErrorNumber> passed;
    clientcard::CardData data;
    clientcard::SaveCycle cycle;

  private:
    void put() {
        auto& row = data.datZaklad().Recordset();
        row.Fields(u"meno").setValue(typedName);
        row.Fields(u"priezv").setValue(typedSurname);
        row.Fields(u"katcis").setValue(typedNumber);
        if (!key.isEmpty())
            row.Fields(u"idkod").setValue(key);
    }
};

} // namespace cardtest
