#include "PeopleMaker.h"

#include <algorithm>

namespace mkdb {

namespace {

constexpr int largerTowns = 11;

} // namespace

const QString& PeopleMaker::firstName(bool woman, Random& random) const {
    return random.pick(woman ? words_.girls : words_.boys);
}

const Surname& PeopleMaker::surname(Random& random) const {
    return random.pick(words_.surnames);
}

const Town& PeopleMaker::town(Random& random) const {
    const int count = static_cast<int>(words_.towns.size());
    return words_.towns[std::min(random.below(count), random.below(count))];
}

const Town& PeopleMaker::birthPlace(Random& random) const {
    return words_.towns[random.below(std::min(largerTowns, static_cast<int>(words_.towns.size())))];
}

Address PeopleMaker::address(Random& random) const {
    return addressIn(town(random), random);
}

Address PeopleMaker::addressIn(const Town& town, Random& random) const {
    const QString number = QString::number(random.between(1, 98));
    return {random.pick(words_.streets) + u' ' + number, town.name, town.zip};
}

QString PeopleMaker::phone(Random& random) const {
    // A prefix that no operator has been given.
    return QStringLiteral("0999 %1 %2")
        .arg(random.below(1000), 3, 10, QLatin1Char('0'))
        .arg(random.below(1000), 3, 10, QLatin1Char('0'));
}

Contact PeopleMaker::contact(const QString& firstName, const QString& surname,
                             Random& random) const {
    Contact contact;
    if (random.percent(85))
        contact.phone = phone(random);
    if (random.percent(45))
        contact.mail =
            plainLetters(firstName) + u'.' + plainLetters(surname) + QStringLiteral("@example.com");
    return contact;
}

QString plainLetters(const QString& name) {
    QString plain;
    for (const QChar letter : name.normalized(QString::NormalizationForm_D)) {
        if (letter.unicode() < 128 && letter.isLetter())
            plain.append(letter.toLower());
    }
    return plain;
}

} // namespace mkdb
