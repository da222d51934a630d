#include "RecordMaker.h"

#include <algorithm>

namespace mkdb {

namespace {

constexpr int goesOnPercent = 86;

/// A day for the next visit on which there was none.
QDate nextVisit(const QDate& date, const std::vector<QDate>& taken, Random& random) {
    QDate next = date.addDays(random.between(14, 60));
    while (next.dayOfWeek() > 5 || std::find(taken.begin(), taken.end(), next) != taken.end())
        next = next.addDays(1);
    return next;
}

} // namespace

void RecordMaker::make(Client& client, bool counted, const QDate& today, Random& random) const {
    const Span span{client.since, today};
    addAllCare(client, counted || random.percent(goesOnPercent), today, random);
    client.examinations =
        makeNotes(client, QStringLiteral("vysetrenie"), span, random.between(1, 3), random);
    client.changes = makeNotes(client, QStringLiteral("zmeny"), span, random.between(0, 2), random);
    addVisits(client, span, random.between(0, 4), random);
    client.memo = makeMemo(client, today, random);
}

void RecordMaker::addAllCare(Client& client, bool goesOn, const QDate& today,
                             Random& random) const {
    const QDate thisYear = schoolYearStart(today);
    QDate first = client.since;
    while (first < thisYear) {
        const QDate last = schoolYearEnd(first);
        addCare(client, {first, last}, random.between(1, 4), random);
        first = last.addDays(1);
    }
    if (goesOn)
        addCare(client, {first, today}, random.between(1, 4), random);
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

std::vector<Note> RecordMaker::makeNotes(const Client& client, const QString& kind,
                                         const Span& span, int count, Random& random) const {
    std::vector<Note> notes;
    for (const QDate& day : drawDays(span, count, random))
        notes.push_back(
            {client.key, day, worker(random), texts_.make(kind, 1, client, day, random)});
    return notes;
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
