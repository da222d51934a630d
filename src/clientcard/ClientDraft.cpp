#include "clientcard/ClientDraft.h"

#include "validation/modKontrola.h"

#include <algorithm>

namespace clientcard {

void ClientDraft::otvorKlienta() {
    data_.otvorZaznamy(modKontrola::gIdKod);
    // The row that is opened shows what its codes mean.
    data_.otvorCiselniky();
    if (modKontrola::gAkcia == 2)
        openExisting();
    else
        openNew();
}

void ClientDraft::openExisting() {
    // The source stands on somebody else's row when the client has gone since the list was read.
    if (data_.datZaklad().Recordset().NoMatch()) {
        data_.leaveClient();
        throw store::EngineError(
            store::ErrorNumber::NoCurrentRecord,
            QStringLiteral("Klient s kľúčom „%1“ už v databáze nie je.").arg(modKontrola::gIdKod));
    }
    data_.datZaklad().Recordset().Edit();
    if (!data_.datMemo().Recordset().Eof())
        data_.datMemo().Recordset().Edit();
}

void ClientDraft::openNew() {
    data_.datZaklad().Recordset().AddNew();
    data_.datMemo().Recordset().AddNew();
}

void ClientDraft::openWritten() {
    CardData::reopenOn(data_.datZaklad(),
                       QStringLiteral("select * from k_zaklad  order by priezv,meno"),
                       modKontrola::gIdKod);
    CardData::reopenOn(data_.datMemo(), QStringLiteral("select * from k_memo order by idkod"),
                       modKontrola::gIdKod);
    for (store::DataSource* source : {&data_.datZaklad(), &data_.datMemo()}) {
        if (!source->Recordset().NoMatch())
            source->Recordset().Edit();
    }
}

bool ClientDraft::isNew() const {
    return isOwed() ? kept_.isNew
                    : data_.datZaklad().isOpen() &&
                          data_.datZaklad().Recordset().EditMode() == store::EditState::Add;
}

bool ClientDraft::isChanged() const {
    return isOwed() ||
           std::ranges::any_of(families_, [](const auto& family) { return family->isChanged(); });
}

/// @param afterwards what is written and opened behind the cycle
SaveResult ClientDraft::save(const std::function<void()>& afterwards) {
    if (isOwed())
        draft_.openOwed(typed());
    keep();
    auto result = SaveResult::Saved;
    const auto write = [&] {
        result = cycle_.zapisZaklad();
        if (result == SaveResult::Saved)
            afterwards();
    };
    actions_.write(write, [this] { resume(); });
    return result;
}

SaveResult ClientDraft::saveOnTheWay() {
    const SaveResult result = save([this] { openWritten(); });
    if (data_.datZaklad().Recordset().EditMode() == store::EditState::None)
        resume();
    return result;
}

SaveResult ClientDraft::saveAndLeave() {
    return save([this] { data_.leaveClient(); });
}

SaveResult ClientDraft::saveForNext() {
    return save([this] {
        modKontrola::gIdKod.clear();
        modKontrola::gMenoKlienta.clear();
        data_.otvorZaznamy(QString());
        openNew();
        modKontrola::gAkcia = 1;
    });
}

void ClientDraft::keep() {
    kept_ = {modKontrola::gAkcia, modKontrola::gIdKod, modKontrola::gMenoKlienta, isNew()};
    draft_.keep([this] { openKept(); }, typed());
}

card::Draft::Typed ClientDraft::typed() const {
    return {[this, words = typedWords()] {
        enterWords(words);
    }};
}

forms::Words ClientDraft::typedWords() const {
    forms::Words all;
    for (const auto& family : families_) {
        const forms::Words words = family->typedWords();
        all.insert(all.end(), words.begin(), words.end());
    }
    return all;
}

void ClientDraft::enterWords(const forms::Words& words) const {
    for (const auto& family : families_)
        family->enterWords(words);
}

void ClientDraft::resume() {
    modKontrola::gAkcia = kept_.akcia;
    modKontrola::gIdKod = kept_.idKod;
    modKontrola::gMenoKlienta = kept_.menoKlienta;
    draft_.resume();
}

void ClientDraft::openKept() {
    data_.dropClient();
    data_.otvorZaznamy(kept_.idKod);
    if (kept_.isNew)
        openNew();
    else
        openExisting();
}

} // namespace clientcard
