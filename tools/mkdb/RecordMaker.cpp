#include "RecordMaker.h"

#include <algorithm>

namespace mkdb {

namespace {

/// How many of the clients in care stay for the next school year.
constexpr int goesOnPercent = 85;
/// Records of care within a whole school year.
constexpr int mostCare = 6;
constexpr int fewestCare = 2;
constexpr int mostVisits = 3;
constexpr int examinedPercent = 60;
constexpr int changedPercent = 40;
constexpr int schoolDays = 304;

/// The part of what a whole school year brings that falls into a span of it.
int partOf(const Span& span, int ofYear, Random& random) {
    const auto days = static_cast<int>(span.first.daysTo(span.last)) + 1;
    const int hundredths = std::min(ofYear * days * 100 / schoolDays, ofYear * 100);
    return hundredths / 100 + (random.percent(hundredths % 100) ? 1 : 0);
}

/// The school years in which a client is in care, the first and the last of them cut off.
std::vector<Span> yearsOfCare(const QDate& since, bool toTheEnd, const QDate& today,
                              Random& random) {
    std::vector<Span> years;
    QDate first = since;
    do {
        const QDate last = std::min(schoolYearEnd(first), today);
        years.push_back({first, last});
        first = last.addDays(1);
    } while (first <= today && (toTheEnd || random.percent(goesOnPercent)));
    return years;
}

/// A day for the next visit on which there was none.
QDate nextVisit(const QDate& date, const std::vector<QDate>& taken, Random& random) {
    QDate next = date.addDays(random.between(14, 60));
    while (next.dayOfWeek() > 5 || std::find(taken.begin(), taken.end(), next) != taken.end())
        next = next.addDays(1);
    return next;
}

} // namespace

RecordMaker::RecordMaker(const TextMaker& texts, const std::vector<Employee>& staff)
    : texts_(texts) {
    for (const Employee& employee : staff) {
        if (employee.keepsRecords)
            workers_.push_back(employee.key);
    }
}

void RecordMaker::make(Client& client, bool counted, const QDate& today, Random& random) const {
    for (const Span& year : yearsOfCare(client.since, counted, today, random))
        addYear(client, year, counted && year.last == today ? 1 : 0, random);
    client.memo = makeMemo(client, today, random);
}
void RecordMaker::addYear(Client& client, const Span& year, int leastCare, Random& random) const {
    const int care = partOf(year, random.between(fewestCare, mostCare), random);
    addCare(client, year, std::max(leastCare, care), random);
    addNotes(client.examinations, client, QStringLiteral("vysetrenie"), year,
             random.percent(examinedPercent) ? partOf(year, 1, random) : 0, random);
    addNotes(client.changes, client, QStringLiteral("zmeny"), year,
             random.percent(changedPercent) ? partOf(year, 1, random) : 0, random);
    addVisits(client, year, partOf(year, random.between(0, mostVisits), random), random);
}

void RecordMaker::addCare(Client& client, const Span& span, int count, Random& random) const {
    for (const QDate& day : drawDays(span, count, random)) {
        CareRecord record;
        record.owner = client.key;
        record.date = day;
        record.fromHour = random.between(7, 14);
        record.toHour = record.fromHour + random.between(1, 2);
        record.worker = worker(random);
        record.text = texts_.make(QStringLiteral("cinnost"), 2, client, day, random);
        client.care.push_back(record);
    }
}

void RecordMaker::addNotes(std::vector<Note>& notes, const Client& client, const QString& kind,
                           const Span& span, int count, Random& random) const {
    for (const QDate& day : drawDays(span, count, random))
        notes.push_back(
            {client.key, day, worker(random), texts_.make(kind, 1, client, day, random)});
}

void RecordMaker::addVisits(Client& client, const Span& span, int count, Random& random) const {
    const std::vector<QDate> days = drawDays(span, count, random);
    for (const QDate& day : days)
        client.visits.push_back({client.key, day, nextVisit(day, days, random)});
}

Memo RecordMaker::makeMemo(const Client& client, const QDate& today, Random& random) const {
    const auto text = [&](const char16_t* kind, int most, int chance) {
        return random.percent(chance)
                   ? texts_.make(QString::fromUtf16(kind), most, client, today, random)
                   : QString();
    };
    const bool pupil = ageAt(client.born, today) >= schoolAge;
    Memo memo;
    memo.owner = client.key;
    memo.important = text(u"u_dolezite", 2, 50);
    memo.notes = text(u"poznamky", 2, 40);
    memo.plan = text(u"ip_tvkz", 2, 55);
    memo.child = text(u"u_dieta", 3, pupil ? 35 : 90);
    memo.pupil = text(u"u_ziak", 3, pupil ? 85 : 0);
    memo.summary = text(u"u_zhrn", 1, 60);
    return memo;
}

} // namespace mkdb
