#include "forms/MessageBox.h"
#include "mainwindow/ListRows.h"
#include "store/EngineError.h"

namespace mainwindow {

namespace {

bool nothingToFind(const ListPlace& place, const ListTraits& list) {
    if (!place.sources.datGrid.Recordset().Eof())
        return false;
    forms::showMessage(place.window, {.text = list.noneToFind.toString(),
                                      .title = QStringLiteral("Upozornenie"),
                                      .icon = QMessageBox::Critical});
    return true;
}

/// The input goes into the criterion as it was typed, so that it may carry wild cards.
QString criterion(const QString& input) {
    const qsizetype blank = input.indexOf(u' ');
    const QString surname = (blank < 0 ? input : input.first(blank)).trimmed();
    const QString firstName = blank < 0 ? QString() : input.sliced(blank + 1).trimmed();
    QString result = QStringLiteral("priezv like'") + surname + QStringLiteral("*'");
    if (!firstName.isEmpty())
        result += QStringLiteral("and meno like'") + firstName + QStringLiteral("*'");
    return result;
}

/// A quote in the input spoils the criterion; that counts as nothing found.
bool found(store::Recordset& rows, const QString& input,
           void (store::Recordset::*find)(const QString&) = &store::Recordset::FindFirst) {
    try {
        (rows.*find)(criterion(input));
        return !rows.NoMatch();
    } catch (const store::EngineError&) {
        return false;
    }
}

void tellNotFound(const ListPlace& place, const ListTraits& list, const QString& input) {
    forms::showMessage(place.window, {.text = list.notFound.toString() + input +
                                              QStringLiteral("' nie je v databáze"),
                                      .title = QStringLiteral("Informácia"),
                                      .icon = QMessageBox::Information});
}

} // namespace

std::optional<QString> hladaj(const ListPlace& place, const ListTraits& list) {
    if (nothingToFind(place, list))
        return std::nullopt;
    auto input = forms::askText(place.window, list.findPrompt.toString(),
                                QStringLiteral("Hľadanie podľa priezviska"));
    if (!input || input->isEmpty())
        return std::nullopt;
    store::Recordset& rows = place.sources.datGrid.Recordset();
    rows.MoveFirst();
    const store::RowMark first = rows.Bookmark();
    if (!found(rows, *input)) {
        rows.setBookmark(first);
        tellNotFound(place, list, *input);
    }
    return input;
}

void hladajDalej(const ListPlace& place, const ListTraits& list, const QString& input) {
    if (nothingToFind(place, list))
        return;
    store::Recordset& rows = place.sources.datGrid.Recordset();
    if (!found(rows, input, &store::Recordset::FindNext) && !found(rows, input))
        tellNotFound(place, list, input);
}

} // namespace mainwindow
