#include "oldregister/FittedValue.h"

#include "oldregister/Rtf.h"
#include "store/Schema.h"

#include <QLocale>

#include <cmath>

namespace oldregister {

namespace {

using store::ColumnType;
using store::Value;

const QDate dayZero(1899, 12, 30);

FittedValue ofWrongType() {
    return {{}, QStringLiteral("hodnota je iného typu ako stĺpec a nepreniesla sa")};
}

bool isText(ColumnType type) {
    return type == ColumnType::Text || type == ColumnType::Memo;
}

bool isWhole(double number) {
    constexpr double limit = 2147483648.0;
    return std::nearbyint(number) == number && number >= -limit && number < limit;
}

QString timeText(const QTime& time) {
    return time.toString(time.second() == 0 ? u"hh:mm" : u"hh:mm:ss");
}

/// As the old program showed a date: the time alone on its day zero, no time at midnight.
QString dateText(const store::DateTime& date) {
    const bool isMidnight = date.time == QTime(0, 0);
    if (date.date == dayZero && !isMidnight)
        return timeText(date.time);
    const QString day = date.date.toString(u"dd.MM.yyyy");
    return isMidnight ? day : day + u' ' + timeText(date.time);
}

FittedValue fitText(const QString& text, const store::ColumnDef& column) {
    if (!text.isValidUtf16())
        return {text, QStringLiteral("v texte je neúplný znak, nahradí ho náhradný")};
    if (column.type == ColumnType::Memo)
        return {toStoredText(text)};
    if (column.width == 0 || text.size() <= column.width)
        return {text};
    return {text.left(column.width),
            QStringLiteral("text je dlhší ako %1 znakov; preniesol sa jeho začiatok")
                .arg(column.width)};
}

class Fitter {
  public:
    explicit Fitter(const store::ColumnDef& column) : column_(column) {}

    FittedValue operator()(std::monostate /*null*/) const { return {}; }
    FittedValue operator()(Unreadable /*value*/) const {
        return {{}, QStringLiteral("hodnota sa v súbore nedá prečítať")};
    }
    FittedValue operator()(bool flag) const {
        if (column_.type == ColumnType::Boolean)
            return {flag};
        return (*this)(qint64{flag ? -1 : 0});
    }
    FittedValue operator()(qint64 number) const { return (*this)(static_cast<double>(number)); }
    FittedValue operator()(double number) const {
        switch (column_.type) {
        case ColumnType::Boolean:
            return {number != 0};
        case ColumnType::Whole:
            return isWhole(number) ? FittedValue{static_cast<qint64>(number)} : ofWrongType();
        case ColumnType::Number:
            return std::isfinite(number) ? FittedValue{number} : ofWrongType();
        case ColumnType::Text:
        case ColumnType::Memo:
            return fitText(shown(number), column_);
        case ColumnType::Date:
            break;
        }
        return ofWrongType();
    }
    FittedValue operator()(const QString& text) const {
        if (isText(column_.type))
            return fitText(text, column_);
        if (column_.type == ColumnType::Date)
            return text.trimmed().isEmpty() ? ofWrongType() : FittedValue{text};
        bool isNumber = false;
        const double number = text.trimmed().replace(u',', u'.').toDouble(&isNumber);
        return isNumber ? (*this)(number) : ofWrongType();
    }
    FittedValue operator()(RawDate raw) const {
        const auto date = toDateTime(raw);
        if (column_.type == ColumnType::Date && !date)
            return {{}, QStringLiteral("dátum je mimo rokov 100 až 9999")};
        if (column_.type == ColumnType::Date)
            return {*date};
        return isText(column_.type) ? fitText(shown(raw), column_) : ofWrongType();
    }

  private:
    const store::ColumnDef& column_;
};

struct Shower {
    QString operator()(std::monostate /*null*/) const { return {}; }
    QString operator()(Unreadable /*value*/) const { return QStringLiteral("(nečitateľné)"); }
    QString operator()(bool flag) const {
        return flag ? QStringLiteral("áno") : QStringLiteral("nie");
    }
    QString operator()(qint64 number) const { return QString::number(number); }
    QString operator()(double number) const {
        return QString::number(number, 'g', QLocale::FloatingPointShortest);
    }
    QString operator()(const QString& text) const { return text; }
    QString operator()(RawDate raw) const {
        const auto date = toDateTime(raw);
        return date ? dateText(*date) : (*this)(raw.days);
    }
};

} // namespace

FittedValue fit(const OldValue& old, const store::ColumnDef& column) {
    return std::visit(Fitter(column), old);
}

QString shown(const OldValue& value) {
    return std::visit(Shower(), value);
}

} // namespace oldregister
