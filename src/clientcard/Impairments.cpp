#include "clientcard/Impairments.h"

#include "card/TextRules.h"

namespace clientcard {

namespace {

int digitValue(const QString& slot) {
    return slot.toInt();
}

const QString blank = QStringLiteral(" ");

} // namespace

// Reading stops at the first character that is no digit, so that "3 5" has a value and " x3" none.
bool hasImpairment(const QString& stored) {
    for (const QChar c : card::trimBlanks(stored)) {
        if (c < u'0' || c > u'9')
            return false;
        if (c != u'0')
            return true;
    }
    return false;
}

std::span<const QString> impairmentTexts() {
    static const std::array<QString, 9> texts = {
        QStringLiteral("1 ¦ syndróm autizmu"),
        QStringLiteral("2 ¦ mentálne"),
        QStringLiteral("3 ¦ sluchové"),
        QStringLiteral("4 ¦ zrakové"),
        QStringLiteral("5 ¦ rečové"),
        QStringLiteral("6 ¦ telesné"),
        QStringLiteral("7 ¦ špecifické vývinové poruchy správania"),
        QStringLiteral("8 ¦ špecifické vývinové poruchy učenia"),
        QStringLiteral("9 ¦ iné"),
    };
    return texts;
}

QStringList dominantRows() {
    const auto texts = impairmentTexts();
    return QStringList{QStringLiteral("    ŽIADNE POSTIHNUTIE")} +
           QStringList(texts.begin(), texts.end());
}

Impairments::Impairments() {
    fillRows();
}

void Impairments::read(const QString& stored) {
    slots_.fill(QString());
    fillRows();
    if (!hasImpairment(stored))
        return;
    for (qsizetype i = 0; i < qMin<qsizetype>(stored.size(), 9); ++i) {
        slots_[i] = stored.mid(i, 1);
        removeCode(slots_[i]);
    }
}

QString Impairments::joined() const {
    QString whole;
    for (const QString& slot : slots_)
        whole += slot;
    return whole;
}

void Impairments::setDominant(int code) {
    slots_.fill(blank);
    slots_[0] = code == 0 ? QString() : QString::number(code);
    fillRows();
    removeRow(code);
}

void Impairments::addAssociated(const QString& code) {
    for (std::size_t i = 1; i < slots_.size(); ++i) {
        if (digitValue(slots_[i]) == 0) {
            slots_[i] = code;
            return;
        }
    }
}

void Impairments::clearAssociated() {
    std::fill(slots_.begin() + 1, slots_.end(), blank);
    fillRows();
}

void Impairments::resetAssociated() {
    clearAssociated();
    removeRow(digitValue(slots_[0]));
}

void Impairments::removeRow(qsizetype row) {
    if (row > 0 && row < rows_.size())
        rows_.removeAt(row);
}

void Impairments::removeCode(const QString& code) {
    for (qsizetype row = 0; row < rows_.size(); ++row) {
        if (rows_[row].left(1) == code) {
            removeRow(row);
            return;
        }
    }
}

bool Impairments::hasDominant() const {
    return digitValue(slots_[0]) != 0;
}

void Impairments::fillRows() {
    const auto texts = impairmentTexts();
    rows_ = QStringList{QStringLiteral("0 ¦ ŽIADNE POSTIHNUTIE")} +
            QStringList(texts.begin(), texts.end());
}

} // namespace clientcard
