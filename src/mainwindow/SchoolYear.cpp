#include "mainwindow/SchoolYear.h"

#include "forms/MessageBox.h"

#include <QRegularExpression>

namespace mainwindow {

namespace {

QString complete(const QString& twoDigits) {
    const int year = twoDigits.toInt();
    return (year > 80 && year <= 99 ? QStringLiteral("19") : QStringLiteral("20")) + twoDigits;
}

void complain(QWidget* parent, SchoolYearFault fault) {
    const QString text = fault == SchoolYearFault::Length
                             ? QStringLiteral("Chybna dlzka vstupu, zadaj v tvare rok/rok+1")
                             : QStringLiteral("Chybne zadany datum,zadaj v tvare rok/rok+1");
    forms::showMessage(
        parent,
        {.text = text, .title = QStringLiteral("Chybová správa"), .icon = QMessageBox::Warning});
}

} // namespace

QString defaultSchoolYear(const QDate& today) {
    const int first = today.month() > 9 ? today.year() : today.year() - 1;
    return QStringLiteral("%1/%2").arg(first).arg(first + 1);
}

std::variant<QString, SchoolYearFault> readSchoolYear(const QString& typed) {
    if (typed.size() != 5 && typed.size() != 9)
        return SchoolYearFault::Length;
    static const QRegularExpression form(QStringLiteral("^(?:..)?([0-9]{2})/(?:..)?([0-9]{2})$"));
    const auto match = form.match(typed);
    const int first = match.captured(1).toInt();
    const int second = match.captured(2).toInt();
    if (!match.hasMatch() || second != (first + 1) % 100)
        return SchoolYearFault::Date;
    return complete(match.captured(1)) + u'/' + complete(match.captured(2));
}

std::optional<QString> askSchoolYear(QWidget* parent, const QDate& today) {
    const QString usual = defaultSchoolYear(today);
    const QString prompt =
        QStringLiteral("Aktuálny školský rok je: '%1' zadaj iný,ak nevyhovuje ").arg(usual);
    for (;;) {
        const auto answer = forms::askText(parent, prompt, QStringLiteral("Školský rok"), usual);
        const QString typed = answer.value_or(QString()).trimmed();
        if (typed.isEmpty())
            return std::nullopt;
        if (typed == usual)
            return usual;
        const auto reading = readSchoolYear(typed);
        if (const QString* year = std::get_if<QString>(&reading))
            return *year;
        complain(parent, std::get<SchoolYearFault>(reading));
    }
}

} // namespace mainwindow
