#include "PlacementMaker.h"

#include "Calendar.h"

#include <array>
#include <span>

namespace mkdb {

namespace {

/// How much of an ordinary school a dominant impairment lets a child manage.
enum Need { Slight, Bodily, Grave, needs };

/// By the codes 1 to 9: autism and mental, hearing, sight and bodily, and the others. No code is
/// slight.
Need needOf(const QString& impairments) {
    const QChar dominant = impairments.isEmpty() ? QChar(u' ') : impairments[0];
    if (dominant == u'1' || dominant == u'2')
        return Grave;
    return dominant == u'3' || dominant == u'4' || dominant == u'6' ? Bodily : Slight;
}

/// A kind of placement and its share within its stage, by need.
struct Kind {
    const char16_t* code;
    std::array<int, needs> shares;
};

constexpr Kind atHome[] = {{u"04", {75, 70, 60}}, {u"03", {25, 30, 40}}};
constexpr Kind kindergarten[] = {
    {u"01", {86, 50, 30}}, {u"02", {6, 40, 52}}, {u"03", {2, 4, 8}}, {u"04", {6, 6, 10}}};
constexpr Kind postponed[] = {{u"08", {92, 90, 85}}, {u"11", {8, 10, 15}}};
constexpr Kind elementary[] = {{u"05", {90, 54, 12}}, {u"06", {10, 12, 27}}, {u"07", {0, 28, 36}},
                               {u"14", {0, 0, 16}},   {u"09", {0, 3, 2}},    {u"10", {0, 2, 4}},
                               {u"11", {0, 1, 3}}};
constexpr Kind secondary[] = {
    {u"12", {84, 52, 4}}, {u"13", {12, 38, 42}}, {u"15", {0, 2, 44}}, {u"16", {4, 8, 10}}};

/// From the school year in which the child reaches `age` at its beginning.
struct Stage {
    int age;
    std::span<const Kind> kinds;
};
constexpr Stage stages[] = {{0, atHome}, {3, kindergarten}, {6, elementary}, {15, secondary}};
constexpr Stage lateStages[] = {
    {0, atHome}, {3, kindergarten}, {6, postponed}, {7, elementary}, {16, secondary}};

constexpr int postponedPercent = 15;

QString drawCode(std::span<const Kind> kinds, Need need, Random& random) {
    std::vector<int> shares;
    for (const Kind& kind : kinds)
        shares.push_back(kind.shares[need]);
    return QString::fromUtf16(kinds[random.weighted(shares)].code);
}

/// First day of the first school year that begins when the child is of that age.
QDate stageBegin(const QDate& born, int age) {
    const QDate birthday = born.addYears(age);
    const QDate begin = schoolYearStart(birthday);
    return age == 0 ? born : begin < birthday ? begin.addYears(1) : begin;
}

QString nameAndAddress(const Facility& facility) {
    return facility.address.isEmpty() ? facility.name
                                      : facility.name + QStringLiteral(", ") + facility.address;
}

} // namespace

void PlacementMaker::make(Client& client, const QDate& today, Random& random) const {
    addSchools(client, today, random);
    if (!counsellingCodes_.isEmpty() && random.percent(24))
        addCounselling(client, today, random);
}

void PlacementMaker::addSchools(Client& client, const QDate& today, Random& random) const {
    const std::span<const Stage> course = random.percent(postponedPercent)
                                              ? std::span<const Stage>(lateStages)
                                              : std::span<const Stage>(stages);
    for (std::size_t index = 0; index < course.size(); ++index) {
        const QDate from = stageBegin(client.born, course[index].age);
        const bool last = index + 1 == course.size();
        const QDate next = last ? QDate() : stageBegin(client.born, course[index + 1].age);
        const bool lasts = last || next > today;
        if (from <= today && (lasts || next > client.since))
            addSchool(client, drawCode(course[index].kinds, needOf(client.impairments), random),
                      {from, lasts ? QDate() : next.addDays(-1)}, random);
    }
}

void PlacementMaker::addSchool(Client& client, const QString& code, const Span& span,
                               Random& random) const {
    Placement placement{client.key, QStringLiteral("VYCH"), code, {}, span.first, span.last};
    if (const Facility* facility = drawFacility(code, random)) {
        placement.address = nameAndAddress(*facility);
        if (!span.last.isValid() && !facility->address.isEmpty())
            client.school = placement.address;
    }
    client.placements.push_back(placement);
}

void PlacementMaker::addCounselling(Client& client, const QDate& today, Random& random) const {
    Placement placement;
    placement.owner = client.key;
    placement.kind = QStringLiteral("TVK");
    placement.code = random.pick(counsellingCodes_);
    if (const Facility* facility = drawFacility(placement.code, random))
        placement.address = nameAndAddress(*facility);
    placement.from = Span{client.born, client.since}.drawWorkingDay(random);
    if (!random.percent(70))
        placement.to = Span{placement.from, today}.drawWorkingDay(random);
    client.placements.push_back(placement);
}

const Facility* PlacementMaker::drawFacility(const QString& code, Random& random) const {
    std::vector<const Facility*> fitting;
    for (const Facility& facility : words_.facilities) {
        if (facility.code == code)
            fitting.push_back(&facility);
    }
    return fitting.empty() ? nullptr : random.pick(fitting);
}

} // namespace mkdb
