#include "ClientMaker.h"

#include "Calendar.h"
#include "Impairments.h"

#include <algorithm>
#include <stdexcept>

namespace mkdb {

namespace {

constexpr int nameTries = 1000;
constexpr int yearsOfRegister = 6;
constexpr int firstPercent = 50;
constexpr int firstDays = 60;

/// Codes of the health insurers of today, and their shares.
constexpr const char16_t* insurers[] = {u"25", u"24", u"27"};
constexpr int insurerShares[] = {57, 32, 11};

/// Where a client comes from: nationality, citizenship, language outside and at home.
struct Origin {
    int share;
    const char16_t* nationality;
    const char16_t* citizenship;
    const char16_t* language;
    const char16_t* homeLanguage;
};
constexpr Origin origins[] = {
    {820, u"01", u"SK", u"sk", u"sk"}, {50, u"02", u"SK", u"hu", u"hu"},
    {25, u"02", u"SK", u"sk", u"hu"},  {40, u"03", u"SK", u"sk", u"qr"},
    {15, u"03", u"SK", u"sk", u"sk"},  {8, u"04", u"SK", u"sk", u"qs"},
    {12, u"06", u"CZ", u"sk", u"cs"},  {18, u"05", u"UA", u"uk", u"uk"},
    {6, u"19", u"VN", u"sk", u"vi"},   {3, u"08", u"PL", u"sk", u"pl"},
    {3, u"07", u"DE", u"sk", u"de"},
};

const Origin& drawOrigin(Random& random) {
    std::vector<int> shares;
    for (const Origin& origin : origins)
        shares.push_back(origin.share);
    return origins[random.weighted(shares)];
}

QStringList codesOfKind(const std::vector<CodeList>& lists, const QString& kind) {
    const CodeList& list = codeList(lists, u"c_zariad");
    const QStringList codes = list.texts(u"kod");
    const QStringList kinds = list.texts(u"akronym");
    QStringList wanted;
    for (qsizetype index = 0; index < codes.size(); ++index) {
        if (kinds[index] == kind)
            wanted.append(codes[index]);
    }
    return wanted;
}

/// From when a client may be in the register. Many were the centre's clients when it was begun.
Span registrationSpan(const QDate& born, const QDate& today, Random& random) {
    const QDate begun = schoolYearStart(today).addYears(-yearsOfRegister);
    const QDate earliest = std::min(std::max(born.addDays(60), begun), today);
    const QDate soonest = begun.addDays(firstDays);
    return {earliest, earliest < soonest && random.percent(firstPercent) ? soonest : today};
}

} // namespace

ClientMaker::ClientMaker(const Vocabulary& words, const std::vector<CodeList>& lists,
                         const std::vector<Employee>& staff, const QDate& today)
    : today_(today), people_(words), texts_(words), families_(people_),
      placements_(words, codesOfKind(lists, QStringLiteral("TVK"))), records_(texts_, staff) {}

Client ClientMaker::make(const AgeSlot& slot, int number, Random& random) {
    Client client;
    client.girl = slot.girl;
    Surname family;
    name(client, family, random);
    client.catalogueNumber = QString::number(number);
    giveBirth(client, slot, random);
    giveOrigin(client, random);
    giveImpairments(client, slot, random);
    client.since = registrationSpan(client.born, today_, random).drawWorkingDay(random);
    client.referredBy = random.percent(90) ? random.pick(people_.words().referrers) : QString();
    families_.make(client, family, today_, random);
    placements_.make(client, today_, random);
    records_.make(client, slot.counted, today_, random);
    return client;
}

void ClientMaker::name(Client& client, Surname& family, Random& random) {
    for (int left = nameTries; left > 0; --left) {
        family = people_.surname(random);
        client.surname = client.girl ? family.woman : family.man;
        client.firstName = people_.firstName(client.girl, random);
        if (const auto key = keys_.make({client.surname, client.firstName})) {
            client.key = *key;
            return;
        }
    }
    throw std::runtime_error("mená nestačia na toľko klientov");
}

void ClientMaker::giveBirth(Client& client, const AgeSlot& slot, Random& random) {
    client.born = birthdays(slot.age, today_).draw(random);
    client.birthNumber = birthNumbers_.make(client.born, client.girl, random);
    client.bornUnknown = !slot.counted && random.percent(1);
    if (client.bornUnknown)
        client.birthNumber.clear();
    client.address = people_.address(random);
    client.birthPlace = people_.birthPlace(random).name;
}

void ClientMaker::giveOrigin(Client& client, Random& random) const {
    const Origin& origin = drawOrigin(random);
    client.nationality = QString::fromUtf16(origin.nationality);
    client.citizenship = QString::fromUtf16(origin.citizenship);
    client.language = QString::fromUtf16(origin.language);
    client.homeLanguage = QString::fromUtf16(origin.homeLanguage);
    client.insurer = QString::fromUtf16(insurers[random.weighted(insurerShares)]);
}

void ClientMaker::giveImpairments(Client& client, const AgeSlot& slot, Random& random) const {
    client.impairments = slot.counted || random.percent(94) ? drawImpairments(slot.age, random)
                                                            : drawNoImpairment(random);
}

} // namespace mkdb
