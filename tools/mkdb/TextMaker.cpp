#include "TextMaker.h"

#include "Calendar.h"

#include <algorithm>

namespace mkdb {

namespace {

constexpr int ownFirstPercent = 60;

QString filledBrace(const QString& inside, const QString& firstName, bool girl) {
    if (inside == QStringLiteral("meno"))
        return firstName;
    const QStringList forms = inside.split(u'|');
    return forms.size() == 2 ? forms[girl ? 1 : 0] : u'{' + inside + u'}';
}

using Choice = std::vector<const Paragraph*>;

Choice suitable(const std::vector<Paragraph>& paragraphs, const QString& impairment, int age) {
    Choice choice;
    for (const Paragraph& paragraph : paragraphs) {
        const bool suits = paragraph.impairment.isEmpty() || paragraph.impairment == impairment;
        if (suits && paragraph.fromAge <= age && age <= paragraph.toAge)
            choice.push_back(&paragraph);
    }
    return choice;
}

void order(Choice& choice, Random& random) {
    random.shuffle(choice);
    if (random.percent(ownFirstPercent))
        std::stable_partition(choice.begin(), choice.end(), [](const Paragraph* paragraph) {
            return !paragraph->impairment.isEmpty();
        });
}

} // namespace

QString fillTemplate(const QString& text, const QString& firstName, bool girl) {
    QString filled;
    qsizetype position = 0;
    while (position < text.size()) {
        const qsizetype open = text.indexOf(u'{', position);
        const qsizetype close = open < 0 ? -1 : text.indexOf(u'}', open);
        if (close < 0)
            break;
        filled += QStringView(text).mid(position, open - position);
        filled += filledBrace(text.mid(open + 1, close - open - 1), firstName, girl);
        position = close + 1;
    }
    return filled + text.mid(position);
}

QString TextMaker::make(const QString& kind, int most, const Client& client, const QDate& day,
                        Random& random) const {
    const auto paragraphs = words_.paragraphs.constFind(kind);
    if (paragraphs == words_.paragraphs.constEnd())
        return {};
    Choice choice = suitable(*paragraphs, client.impairments.left(1), ageAt(client.born, day));
    order(choice, random);
    choice.resize(std::min<std::size_t>(choice.size(), random.between(1, most)));
    QStringList texts;
    for (const Paragraph* paragraph : choice)
        texts.append(fillTemplate(paragraph->text, client.firstName, client.girl));
    return texts.join(u'\n');
}

} // namespace mkdb
