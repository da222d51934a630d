#include "statreturn/LeftOut.h"

#include "statreturn/TableOne.h"

#include <array>

namespace statreturn {

namespace {

using Reasons = std::bitset<reasonCount>;

void set(Reasons& reasons, Reason reason, bool holds) {
    reasons.set(std::size_t(reason), reasons.test(std::size_t(reason)) || holds);
}

/// What the list of reasons calls them, in their order.
constexpr std::array<QStringView, reasonCount> captions{
    u"Bez záznamu o starostlivosti v školskom roku",
    u"Chýba dátum narodenia",
    u"Dátum narodenia nie je v kalendári",
    u"Dátum narodenia je v budúcnosti",
    u"Chýba postihnutie",
    u"Bez otvoreného umiestnenia",
    u"Umiestnenie 16 alebo 23",
    u"Druh umiestnenia nie je v číselníku",
    u"Funkcia mimo 1 až 8",
    u"Neurčené, či interný alebo externý",
    u"Započítaný viackrát: viac otvorených umiestnení",
    u"Započítaný, pohlavie nie je M ani Z",
    u"Externý riaditeľ: započítaný len v súčte",
};
constexpr std::size_t firstOfCounted = std::size_t(Reason::CountedMoreThanOnce);

Reasons birthReasons(const ReturnPeople& people, const ReturnClient& client) {
    const QDate birth = client.birth.toDate();
    const bool missing = client.birth.toText().trimmed().isEmpty();
    Reasons reasons;
    set(reasons, Reason::NoBirth, missing);
    set(reasons, Reason::NoBirthDate, !missing && !birth.isValid());
    set(reasons, Reason::FutureBirth, birth.isValid() && ageOn(people.today, birth) < 0);
    return reasons;
}

bool isSexUnknown(const ReturnClient& client) {
    return client.counted.pohl != u"M" && !isGirl(client.counted);
}

Reasons reasonsOne(const ReturnPeople& people, const ReturnClient& client) {
    Reasons reasons;
    set(reasons, Reason::NoCare, !client.firstCare.isValid());
    if (reasons.any())
        return reasons;
    reasons = birthReasons(people, client);
    set(reasons, Reason::NoImpairment, !client.impaired);
    set(reasons, Reason::UnknownSex, client.ageRow.has_value() && isSexUnknown(client));
    return reasons;
}

Reasons placementReasons(const ReturnPeople& people, const ReturnClient& client) {
    Reasons reasons;
    set(reasons, Reason::NoPlacement, client.openTypes.isEmpty());
    for (const QString& type : client.openTypes) {
        const auto places = people.places.value(type);
        set(reasons, Reason::UnknownType, places.empty());
        for (const std::size_t place : places) {
            const bool counted = people.types[place].isCounted();
            if (counted)
                return {};
            set(reasons, Reason::TypeNotCounted, true);
        }
    }
    return reasons;
}

Reasons reasonsTwo(const ReturnPeople& people, const ReturnClient& client) {
    Reasons reasons;
    set(reasons, Reason::NoCare, !client.firstCare.isValid());
    if (reasons.any())
        return reasons;
    reasons = placementReasons(people, client);
    set(reasons, Reason::NoImpairment, !client.impaired);
    set(reasons, Reason::CountedMoreThanOnce, client.educationRows.size() > 1);
    set(reasons, Reason::UnknownSex, !client.educationRows.empty() && isSexUnknown(client));
    return reasons;
}

Reasons reasonsThree(const ReturnEmployee& employee) {
    Reasons reasons;
    set(reasons, Reason::UnknownFunction, !employee.row);
    set(reasons, Reason::NoEmployment, !employee.employment);
    if (reasons.any())
        return reasons;
    set(reasons, Reason::ExternalDirector,
        employee.row == directorRow && employee.employment == Employment::External);
    const bool isMan = employee.sex.toText().compare(u"m", Qt::CaseInsensitive) == 0;
    set(reasons, Reason::UnknownSex, !isMan && !isWoman(employee.sex));
    return reasons;
}

std::vector<NumberHead> reasonRows() {
    std::vector<NumberHead> heads{
        {QStringLiteral("Nezapočítaní spolu"), QStringLiteral("nezapočítaní spolu")}};
    for (const QStringView caption : captions)
        heads.push_back({caption.toString(), caption.toString()});
    return heads;
}

std::vector<NumberHead> tableColumns() {
    std::vector<NumberHead> heads;
    for (const QStringView name : {u"Tabuľka I", u"Tabuľka II", u"Tabuľka III"})
        heads.push_back({name.toString(), name.toString()});
    return heads;
}

std::vector<Remark> remarksOf(const ReturnPeople& people) {
    std::vector<Remark> remarks;
    const auto add = [&remarks](ReturnTable table, std::size_t who, const Reasons& reasons) {
        if (reasons.any())
            remarks.push_back({table, who, reasons});
    };
    for (std::size_t who = 0; who < people.clients.size(); ++who)
        add(ReturnTable::One, who, reasonsOne(people, people.clients[who]));
    for (std::size_t who = 0; who < people.clients.size(); ++who)
        add(ReturnTable::Two, who, reasonsTwo(people, people.clients[who]));
    for (std::size_t who = 0; who < people.employees.size(); ++who)
        add(ReturnTable::Three, who, reasonsThree(people.employees[who]));
    return remarks;
}

// ---- Words ----

/// The open placements for which a condition of their places in the table holds.
template <class Condition>
QStringList openTypesOf(const ReturnPeople& people, const ReturnClient& client,
                        const Condition& holds) {
    QStringList words;
    for (const QString& type : client.openTypes) {
        const auto places = people.places.value(type);
        if (holds(places))
            words << (places.empty()
                          ? QStringLiteral("„%1“").arg(type)
                          : QStringLiteral("%1 %2").arg(type, people.types[places[0]].title));
    }
    words.removeDuplicates();
    return words;
}

/// Of the types of school whose rows count clients, or of the others.
QString knownTypes(const ReturnPeople& people, const ReturnClient& client, bool counted) {
    return openTypesOf(people, client,
                       [&](const std::vector<std::size_t>& places) {
                           return !places.empty() && people.types[places[0]].isCounted() == counted;
                       })
        .join(QStringLiteral(", "));
}

QString unknownTypes(const ReturnPeople& people, const ReturnClient& client) {
    return openTypesOf(people, client, [](const auto& places) { return places.empty(); })
        .join(QStringLiteral(", "));
}

QString sexWords(const QString& stored, QStringView woman) {
    const QString sex = stored.trimmed();
    if (sex.isEmpty())
        return QStringLiteral("Chýba pohlavie: započítaný, nie však ako %1.").arg(woman);
    if (sex == u"z")
        return QStringLiteral("Pohlavie je malé „z“: započítaný, nie však ako %1.").arg(woman);
    return QStringLiteral("Pohlavie je „%1“: započítaný, nie však ako %2.").arg(sex, woman);
}

QString countedWords(const ReturnPeople& people, const ReturnClient& client) {
    QStringList rows;
    for (const std::size_t place : client.educationRows)
        rows << educationRowAt(place).c_riad.toString();
    return QStringLiteral("Započítaný %1-krát, v riadkoch %2: má viac otvorených umiestnení (%3).")
        .arg(rows.size())
        .arg(rows.join(QStringLiteral(" a ")), knownTypes(people, client, true));
}

QString impairmentWords(const ReturnClient& client) {
    const QString& stored = client.counted.post;
    if (stored.trimmed().isEmpty())
        return QStringLiteral("Chýba postihnutie.");
    return QStringLiteral("Postihnutie „%1“ nezačína číslicou 1 až 9.").arg(stored);
}

QString employeeWords(const ReturnEmployee& employee, Reason reason) {
    switch (reason) {
    case Reason::UnknownFunction:
        return employee.function.isNull()
                   ? QStringLiteral("Chýba funkcia.")
                   : QStringLiteral("Funkcia %1 nie je 1 až 8.").arg(employee.function.toText());
    case Reason::NoEmployment:
        return QStringLiteral("Nie je určené, či je interný alebo externý.");
    case Reason::ExternalDirector:
        return QStringLiteral("Externý riaditeľ: v riadku 0301 je x, započítaný je len v súčte.");
    default:
        return sexWords(employee.sex.toText(), u"žena");
    }
}

QString clientWords(const ReturnPeople& people, const ReturnClient& client, Reason reason) {
    switch (reason) {
    case Reason::NoCare:
        return QStringLiteral("V školskom roku %1 nemá záznam o starostlivosti.")
            .arg(people.schoolYear);
    case Reason::NoBirth:
        return QStringLiteral("Chýba dátum narodenia.");
    case Reason::NoBirthDate:
        return QStringLiteral("Dátum narodenia „%1“ nie je v kalendári.")
            .arg(client.birth.toText());
    case Reason::FutureBirth:
        return QStringLiteral("Dátum narodenia %1 je v budúcnosti.").arg(client.birth.toText());
    case Reason::NoImpairment:
        return impairmentWords(client);
    case Reason::NoPlacement:
        return QStringLiteral("Nemá otvorené umiestnenie vo výchove a vzdelávaní.");
    case Reason::TypeNotCounted:
        return QStringLiteral("Umiestnenie %1: v jeho riadku je x, klienti sa v ňom nepočítajú.")
            .arg(knownTypes(people, client, false));
    case Reason::UnknownType:
        return QStringLiteral("Druh umiestnenia %1 nie je v číselníku.")
            .arg(unknownTypes(people, client));
    case Reason::CountedMoreThanOnce:
        return countedWords(people, client);
    default:
        return sexWords(client.counted.pohl, u"dievča");
    }
}

} // namespace

bool Remark::leavesOut() const {
    return (reasons << (reasonCount - firstOfCounted)).any();
}

LeftOut::LeftOut(const ReturnPeople& people)
    : remarks(remarksOf(people)),
      numbers(QStringLiteral("Kto chýba a prečo"), reasonRows(), tableColumns()) {
    for (std::size_t i = 0; i < remarks.size(); ++i) {
        const Remark& remark = remarks[i];
        const auto column = std::size_t(remark.table);
        const auto add = [&](std::size_t row) {
            numbers.add(row, column, {std::uint32_t(i), std::uint32_t(row)});
        };
        if (remark.leavesOut())
            add(0);
        for (std::size_t reason = 0; reason < reasonCount; ++reason) {
            if (remark.reasons.test(reason))
                add(reason + 1);
        }
    }
}

const Person& personOf(const ReturnPeople& people, const Remark& remark) {
    return remark.table == ReturnTable::Three ? people.employees[remark.who].person
                                              : people.clients[remark.who].person;
}

QString wordsFor(const ReturnPeople& people, const Remark& remark, Reason reason) {
    return remark.table == ReturnTable::Three
               ? employeeWords(people.employees[remark.who], reason)
               : clientWords(people, people.clients[remark.who], reason);
}

QString wordsFor(const ReturnPeople& people, const Remark& remark) {
    QStringList words;
    for (std::size_t reason = 0; reason < reasonCount; ++reason) {
        if (remark.reasons.test(reason))
            words << wordsFor(people, remark, Reason(reason));
    }
    return words.join(u' ');
}

} // namespace statreturn
