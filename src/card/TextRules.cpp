#include "card/TextRules.h"

namespace card {

QString trimBlanks(const QString& text) {
    qsizetype first = 0;
    qsizetype last = text.size();
    while (first < last && text[first] == u' ')
        ++first;
    while (last > first && text[last - 1] == u' ')
        --last;
    return text.mid(first, last - first);
}

QString capitalised(const QString& text) {
    return text.left(1).toUpper() + text.mid(1);
}

QString capitalisedName(const QString& text) {
    const QString name = capitalised(text);
    const qsizetype blank = name.indexOf(u' ');
    if (blank < 0)
        return name;
    return name.left(blank + 1) + capitalised(name.mid(blank + 1));
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
