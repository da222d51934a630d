#include "statreturn/PersonTexts.h"

#include "statreturn/TableOne.h"

#include <algorithm>

namespace statreturn {

namespace {

/// What an impairment is called, by its code; the code itself where it has no name.
QString impairmentName(QChar code) {
    for (const CountPair& pair : countPairs) {
        if (pair.by == CountedBy::Code && code == QChar(pair.code))
            return QStringLiteral("%1 %2").arg(code).arg(pair.heading).replace(u'\n', u' ');
    }
    return code;
}

QString impairments(const QString& stored) {
    QStringList names;
    for (const QChar code : stored) {
        if (code != u' ')
            names << impairmentName(code);
    }
    return names.join(QStringLiteral(", "));
}

QString placements(const ReturnPeople& people, const ReturnClient& client) {
    QStringList names;
    for (const QString& type : client.openTypes) {
        const auto places = people.places.value(type);
        names << (places.empty()
                      ? type
                      : QStringLiteral("%1 %2").arg(type, people.types[places[0]].title));
    }
    return names.join(QStringLiteral(", "));
}

QString ageText(const ReturnPeople& people, const ReturnClient& client) {
    const QDate birth = client.birth.toDate();
    return birth.isValid() ? QString::number(completedYears(people.today, birth)) : QString();
}

QString nameOf(const Person& person) {
    return QStringLiteral("%1 %2").arg(person.surname, person.firstName).trimmed();
}

} // namespace

std::vector<PeopleColumn> clientColumns() {
    return {{QStringLiteral("Priezvisko a meno"), 190},
            {QStringLiteral("Dátum narodenia"), 125},
            {QStringLiteral("Vek"), 45},
            {QStringLiteral("Postihnutia"), 210},
            {QStringLiteral("Umiestnenia"), 220},
            {QStringLiteral("Prvý záznam"), 100},
            {QStringLiteral("Riadok"), 60}};
}

QStringList clientTexts(const ReturnPeople& people, const NumberGrid& numbers,
                        const Counted& counted) {
    const ReturnClient& client = people.clients[counted.who];
    return {nameOf(client.person),
            client.birth.toText(),
            ageText(people, client),
            impairments(client.counted.post),
            placements(people, client),
            client.firstCare.toString(u"dd.MM.yyyy"),
            numbers.rows[counted.row].text.section(u' ', 0, 0)};
}

std::vector<PeopleColumn> remarkColumns() {
    return {{QStringLiteral("Priezvisko a meno"), 190},
            {QStringLiteral("Dátum narodenia"), 125},
            {QStringLiteral("Tabuľka"), 90},
            {QStringLiteral("Prečo"), 400}};
}

QStringList remarkTexts(const ReturnPeople& people, const LeftOut& leftOut, std::size_t row,
                        const Counted& counted) {
    const Remark& remark = leftOut.remarks[counted.who];
    const bool isEmployee = remark.table == ReturnTable::Three;
    return {nameOf(personOf(people, remark)),
            isEmployee ? QString() : people.clients[remark.who].birth.toText(),
            leftOut.numbers.columns[std::size_t(remark.table)].text,
            row == 0 ? wordsFor(people, remark) : wordsFor(people, remark, Reason(row - 1))};
}

} // namespace statreturn
