#include "validation/Validators.h"

#include "forms/DropDown.h"
#include "forms/EntryField.h"
#include "forms/FocusGuard.h"
#include "forms/Letters.h"
#include "forms/MessageBox.h"
#include "store/DataSource.h"
#include "store/Sql.h"
#include "validation/modKontrola.h"

#include <algorithm>
#include <limits>

namespace modKontrola {

namespace {

using forms::EntryField;
using forms::trimBlanks;

/// How much of a name is looked for.
constexpr qsizetype soughtCharacters = 30;
constexpr auto errorTitle = u"Chybová správa";
constexpr auto retryCancel = QMessageBox::Retry | QMessageBox::Cancel;
constexpr auto abortRetryIgnore = QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;

/// Shows the refusal of a field's value. Retry keeps the focus, Ignore lets the value stand, any
/// other answer empties the field.
bool refuse(EntryField& field, const QString& text, QMessageBox::StandardButtons buttons,
            QMessageBox::StandardButton byDefault) {
    const auto answer = forms::showMessage(&field, {.text = text,
                                                    .title = QString::fromUtf16(errorTitle),
                                                    .icon = QMessageBox::Warning,
                                                    .buttons = buttons,
                                                    .defaultButton = byDefault});
    if (answer != QMessageBox::Retry && answer != QMessageBox::Ignore)
        field.setText(QString());
    return answer == QMessageBox::Retry;
}

bool isNumeric(const QString& text) {
    return !text.isEmpty() &&
           std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

/// Cuts the text before the first dot off `rest`. Empty unless it is a number of one or two digits
/// from 1 to `greatest`.
QString cutDatePart(QString& rest, qint64 greatest) {
    const qsizetype dot = rest.indexOf(u'.');
    if (dot != 1 && dot != 2)
        return {};
    const QString part = rest.left(dot);
    rest.remove(0, dot + 1);
    const bool isPart = isNumeric(part) && Val(part) > 0 && Val(part) <= greatest;
    return isPart ? part : QString();
}

/// The year in four digits, empty for a wrong one. Two digits reach from 1971 to 2070.
QString fullYear(const QString& year) {
    if (!isNumeric(year) || (year.size() != 2 && year.size() != 4))
        return {};
    if (year.size() == 4)
        return year;
    return (Val(year) <= 70 ? QStringLiteral("20") : QStringLiteral("19")) + year;
}

/// The month of a woman's birth number without its 50.
QString womansMonth(const QString& month) {
    const QString plain = QString::number(Val(month) - 50);
    return plain.size() == 1 ? u'0' + plain : plain;
}

bool findsName(const QString& name, store::DataSource& source, const QString& table,
               const QString& column) {
    source.setRecordSource(QStringLiteral("select * from %1 order by %2").arg(table, column));
    source.Refresh();
    const QString sought = trimBlanks(name.left(soughtCharacters));
    source.Recordset().FindFirst(column + u'=' + store::quoted(sought));
    // A longer name is found by the characters that are sought of it.
    if (source.Recordset().NoMatch() && sought.size() == soughtCharacters)
        source.Recordset().FindFirst(QStringLiteral("left(%1, %2) = %3")
                                         .arg(column)
                                         .arg(soughtCharacters)
                                         .arg(store::quoted(sought)));
    return !source.Recordset().NoMatch();
}

bool findsCode(const QString& code, store::DataSource& source, const QString& column) {
    source.Recordset().FindFirst(column + QStringLiteral(" =") + store::quoted(code));
    return !source.Recordset().NoMatch();
}

} // namespace

qint64 Val(QStringView text) {
    constexpr qint64 greatest = std::numeric_limits<qint64>::max();
    const auto isBlank = [](QChar c) {
        return c == u' ';
    };
    qint64 number = 0;
    for (auto at = std::ranges::find_if_not(text, isBlank); at != text.end(); ++at) {
        const int digit = at->unicode() - u'0';
        if (digit < 0 || digit > 9)
            break;
        if (number > (greatest - digit) / 10)
            return greatest;
        number = number * 10 + digit;
    }
    return number;
}

bool opravit(QWidget* parent, const QString& message) {
    // A mouse button that was held down when the question came needs no letting go here: the
    // window's focus guard swallows the rest of a press during which a box stood open.
    return forms::showMessage(parent, {.text = message + QStringLiteral(" Opraviť ?"),
                                       .title = QStringLiteral("Chyba !"),
                                       .icon = QMessageBox::Critical,
                                       .buttons = QMessageBox::Yes | QMessageBox::No,
                                       .defaultButton = QMessageBox::Yes}) == QMessageBox::Yes;
}

void enterNaTab(int& key) {
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return;
    key = 0;
    forms::pressTab();
}

bool kontrolaRodCis(EntryField& number, EntryField& sex, forms::DropDown& sexHolder,
                    EntryField& date) {
    const QString text = number.text();
    if (text.isEmpty() || !number.dataChanged())
        return false;
    if (text.size() < 10 || Val(text) % 11 != 0)
        return refuse(number, QStringLiteral("Nesprávne rodné číslo ,opraviť ?"), abortRetryIgnore,
                      QMessageBox::Abort);
    const QString month = text.mid(2, 2);
    const bool isWoman = month > QStringView(u"12");
    sexHolder.setText(isWoman ? QStringLiteral("Z") : QStringLiteral("M"));
    sex.setText(sexHolder.text());
    if (!date.text().isEmpty())
        return false;
    const QString century = text.front() > u'4' ? QStringLiteral("19") : QStringLiteral("20");
    date.setText(text.mid(4, 2) + u'.' + (isWoman ? womansMonth(month) : month) + u'.' + century +
                 text.left(2));
    return false;
}

bool kontrolaDatum(EntryField& date) {
    QString rest = date.text().remove(u' ');
    if (rest != date.text())
        date.setText(rest);
    if (rest.isEmpty())
        return false;
    const QString day = cutDatePart(rest, 31);
    const QString month = day.isEmpty() ? QString() : cutDatePart(rest, 12);
    const QString year = month.isEmpty() ? QString() : fullYear(rest);
    if (year.isEmpty())
        return refuse(date, QStringLiteral("Chybný dátum, zadaj v tvare dd.mm.rrrr!"), retryCancel,
                      QMessageBox::Retry);
    date.setText(day + u'.' + month + u'.' + year);
    return false;
}

bool kontrolaCiselnik(forms::DropDown& list, EntryField& field, store::DataSource& source,
                      bool podlaNazvu, const QString& table, const QString& codeColumn,
                      const QString& nameColumn) {
    if (!field.isEnabled())
        return false;
    if (const store::RowMark pick = list.selectedItem(); pick.isValid()) {
        if (std::exchange(gZVyberu, false))
            return false;
        source.Recordset().setBookmark(pick);
        field.setText(
            source.Recordset().Fields(podlaNazvu ? nameColumn : codeColumn).Value().toText());
        return false;
    }
    const QString text = trimBlanks(field.text());
    if (field.text().isEmpty())
        return false;
    if (podlaNazvu)
        return !findsName(field.text(), source, table, nameColumn) &&
               refuse(field, QStringLiteral("Zadaný reťazec :%1 nie je v číselníku").arg(text),
                      abortRetryIgnore, QMessageBox::Retry);
    return !findsCode(text, source, codeColumn) &&
           refuse(field, QStringLiteral("Zadaný kód :%1 sa nenašiel v číselníku").arg(text),
                  retryCancel, QMessageBox::Cancel);
}

bool kontrolaPohlavie(EntryField& sex) {
    if (!sex.dataChanged())
        return false;
    const QString letter = sex.text().left(1).toUpper();
    if (letter.isEmpty() || letter == u"M" || letter == u"Z") {
        sex.setText(letter);
        return false;
    }
    return refuse(sex, QStringLiteral("Pohlavie môže nadobudnúť len hodnotu M alebo Z!"),
                  retryCancel, QMessageBox::Cancel);
}

bool kontrolaPostih(EntryField& code, bool kontrolovatDuplicity, const QStringList& taken) {
    const QString text = trimBlanks(code.text());
    if (!code.dataChanged() || !kontrolovatDuplicity || Val(text) == 0 || !taken.contains(text))
        return false;
    return refuse(code,
                  QStringLiteral("Postihnutie môže nadobudnúť len hodnotu 1 až 9 bez duplicít !"),
                  retryCancel, QMessageBox::Cancel);
}

} // namespace modKontrola
