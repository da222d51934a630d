#include "card/TextRules.h"

namespace card {

namespace {

QString withFirstUpper(QString text) {
    if (!text.isEmpty())
        text[0] = text[0].toUpper();
    return text;
}

} // namespace

QString tidied(const QString& text) {
    QString visible = text;
    visible.removeIf(forms::isInvisible);
    return visible.trimmed();
}

QString capitalised(const QString& text) {
    return withFirstUpper(tidied(text));
}

QString capitalisedName(const QString& text) {
    QString name = capitalised(text);
    const qsizetype blank = name.indexOf(u' ');
    if (blank < 0)
        return name;
    return name.left(blank + 1) + withFirstUpper(name.mid(blank + 1));
}

QString ageAtBirth(int childYear, int parentYear) {
    return QString::number(childYear - parentYear).left(2);
}

} // namespace card
