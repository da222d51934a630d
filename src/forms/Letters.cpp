#include "forms/Letters.h"

namespace forms {

bool isInvisible(QChar letter) {
    return letter.category() == QChar::Other_Control || letter.category() == QChar::Other_Format ||
           letter == QChar::ObjectReplacementCharacter;
}

QString trimBlanks(const QString& text) {
    QStringView left(text);
    while (left.startsWith(u' '))
        left = left.mid(1);
    while (left.endsWith(u' '))
        left.chop(1);
    return left.toString();
}

QString withoutAccents(const QString& text) {
    QString plain = text.normalized(QString::NormalizationForm_D);
    return plain.removeIf([](QChar c) { return c.category() == QChar::Mark_NonSpacing; });
}

} // namespace forms
