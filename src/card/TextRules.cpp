#include "card/TextRules.h"

namespace card {

namespace {

bool isInvisible(QChar letter) {
    return letter.category() == QChar::Other_Control || letter.category() == QChar::Other_Format;
}

QString withFirstUpper(QString text) {
    if (!text.isEmpty())
        text[0] = text[0].toUpper();
    return text;
}

} // namespace

QString trimBlanks(const QString& text) {
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text[first] == u' ')
        ++first;
    while (last > first && text[last - 1] == u' ')
        --last;
    return text.mid(first, last - first);
}

QString tidied(const QString& text) {
    QString visible = text;
    visible.removeIf(isInvisible);
    return visible.trimmed();
}

QString capitalised(const QString& text) {
    return withFirstUpper(tidied(text));
}

QString capitalisedName(const QString& text) {
    const QString name = capitalised(text);
    const qsizetype blank = name.indexOf(u' ');
    if (blank < 0)
        return name;
    return name.left(blank + 1) + withFirstUpper(name.mid(blank + 1));
}

QString withoutAccents(const QString& text) {
    QString plain = text.normalized(QString::NormalizationForm_D);
    plain.removeIf([](QChar c) { return c.category() == QChar::Mark_NonSpacing; });
    return plain;
}

QString ageAtBirth(int childYear, int parentYear) {
    return QString::number(childYear - parentYear).left(2);
}

} // namespace card
