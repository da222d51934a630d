#include "FamilyMaker.h"

#include "Impairments.h"

#include <algorithm>
#include <array>

namespace mkdb {

namespace {

constexpr std::array<int, 5> siblingShares{30, 40, 20, 7, 3};
constexpr int widestGap = 9;
constexpr int youngestMother = 16;

const QString& nameOf(const Surname& surname, bool woman) {
    return woman ? surname.woman : surname.man;
}

} // namespace

void FamilyMaker::make(Client& client, const Surname& family, const QDate& today,
                       Random& random) const {
    const Surname& maiden = people_.surname(random);
    client.mother =
        makeParent(client, true, random.percent(80) ? family.woman : maiden.woman, random);
    if (random.percent(92))
        client.father = makeParent(client, false, family.man, random);
    client.representative = makeRepresentative(client, family, random);
    client.siblings = makeSiblings(client, family, today, random);
}

Parent FamilyMaker::makeParent(const Client& client, bool mother, const QString& surname,
                               Random& random) const {
    const Vocabulary& words = people_.words();
    const QString& firstName = people_.firstName(mother, random);
    Parent parent;
    parent.name = firstName + u' ' + surname;
    parent.own = random.percent(mother ? 98 : 93);
    parent.ageAtBirth = mother ? random.between(18, 42) : random.between(20, 50);
    parent.bornYear = client.born.year() - parent.ageAtBirth;
    parent.education = random.pick(words.educations);
    parent.address = random.percent(mother ? 95 : 85) ? client.address : people_.address(random);
    parent.contact = people_.contact(firstName, surname, random);
    parent.occupation = random.pick(mother ? words.womensOccupations : words.mensOccupations);
    if (random.percent(60)) {
        parent.employer = random.pick(words.employers);
        parent.employerPhone = people_.phone(random);
    }
    if (random.percent(12))
        parent.illness = random.pick(words.illnesses);
    parent.impairments = drawRelativesImpairments(random);
    return parent;
}

Representative FamilyMaker::makeRepresentative(const Client& client, const Surname& family,
                                               Random& random) const {
    if (random.percent(50))
        return random.percent(75) || client.father.name.isEmpty() ? ofParent(client.mother, true)
                                                                  : ofParent(client.father, false);
    if (random.percent(84))
        return {};
    const Relation& relation = random.pick(people_.words().relations);
    const QString& firstName = people_.firstName(relation.woman, random);
    const QString& surname =
        nameOf(random.percent(50) ? family : people_.surname(random), relation.woman);
    return {firstName + u' ' + surname, relation.name,
            random.percent(70) ? client.address : people_.address(random),
            people_.contact(firstName, surname, random)};
}

Representative FamilyMaker::ofParent(const Parent& parent, bool mother) const {
    return {parent.name, mother ? QStringLiteral("matka") : QStringLiteral("otec"), parent.address,
            parent.contact};
}

std::vector<Sibling> FamilyMaker::makeSiblings(const Client& client, const Surname& family,
                                               const QDate& today, Random& random) const {
    QStringList taken{client.firstName};
    std::vector<Sibling> siblings;
    for (int left = random.weighted(siblingShares); left > 0; --left) {
        Sibling sibling;
        sibling.owner = client.key;
        sibling.girl = random.percent(50);
        const QString& firstName = people_.firstName(sibling.girl, random);
        if (taken.contains(firstName))
            continue;
        taken.append(firstName);
        sibling.name = firstName + u' ' + nameOf(family, sibling.girl);
        sibling.bornYear = std::clamp(client.born.year() + random.between(-widestGap, widestGap),
                                      client.mother.bornYear + youngestMother, today.year());
        if (random.percent(15))
            sibling.illness = random.pick(people_.words().illnesses);
        if (random.percent(12))
            sibling.impairments = drawImpairments(today.year() - sibling.bornYear, random);
        siblings.push_back(sibling);
    }
    return siblings;
}

} // namespace mkdb
