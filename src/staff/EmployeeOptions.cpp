#include "staff/EmployeeOptions.h"

#include "card/FieldKeys.h"
#include "forms/FocusGuard.h"
#include "store/Recordset.h"
#include "validation/Validators.h"

#include <QGroupBox>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace staff {

namespace {

struct OptionRow {
    const char16_t* name;
    const char16_t* caption;
    const char16_t* code;
};

struct PairRow {
    const char16_t* title;
    const char16_t* column;
    std::array<OptionRow, 2> options;
};

constexpr std::array<PairRow, 3> pairs = {{
    {u"interný/externý",
     u"int-ext",
     {{{u"optZamInt", u"interný zamestnanec", u"i"},
       {u"optZamExt", u"externý zamestnanec", u"e"}}}},
    {u"pohlavie", u"pohlavie", {{{u"optZamMuz", u"muž", u"m"}, {u"optZamZena", u"žena", u"z"}}}},
    {u"kvalifikácia",
     u"kvalifikacia",
     {{{u"optZamMaKva", u"má požadovanú kvalifikáciu", u"a"},
       {u"optZamNeKva", u"nemá požadovanú kvalifikáciu", u"n"}}}},
}};

} // namespace

EmployeeOptions::EmployeeOptions(QWidget& window, forms::FocusGuard& guard) : window_(window) {
    for (const PairRow& pair : pairs) {
        auto* frame = frames_.emplace_back(new QGroupBox(QString::fromUtf16(pair.title), &window));
        auto* lines = new QVBoxLayout(frame);
        for (const OptionRow& row : pair.options) {
            auto* option =
                options_.emplace_back(new QRadioButton(QString::fromUtf16(row.caption), frame));
            guard.watch(option, QString::fromUtf16(row.name), -1, *this);
            lines->addWidget(option);
        }
    }
}

void EmployeeOptions::show(store::Recordset& employee) {
    auto option = options_.begin();
    for (const PairRow& pair : pairs) {
        const QString code = employee.Fields(pair.column).Value().toText();
        for (const OptionRow& row : pair.options) {
            if (code == row.code)
                (*option)->setChecked(true);
            ++option;
        }
    }
}

void EmployeeOptions::volbyDoZaznamu(store::Recordset& employee) const {
    const QStringList codes = chosen();
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        if (const QString& code = codes[qsizetype(i)]; !code.isEmpty())
            employee.Fields(pairs[i].column).setValue(code);
    }
}

QStringList EmployeeOptions::chosen() const {
    QStringList codes;
    auto option = options_.begin();
    for (const PairRow& pair : pairs) {
        QString code;
        for (const OptionRow& row : pair.options) {
            if ((*option++)->isChecked())
                code = QString::fromUtf16(row.code);
        }
        codes << code;
    }
    return codes;
}

forms::Words EmployeeOptions::typed(const QStringList& before) const {
    forms::Words words;
    const QStringList codes = chosen();
    for (qsizetype i = 0; i < codes.size(); ++i) {
        const PairRow& pair = pairs[std::size_t(i)];
        if (codes[i] != before.value(i))
            words.push_back({.field = QString::fromUtf16(pair.column),
                             .column = QString::fromUtf16(pair.column),
                             .text = codes[i],
                             .caption = QString::fromUtf16(pair.title)});
    }
    return words;
}

void EmployeeOptions::enter(const forms::Words& words) {
    auto option = options_.begin();
    for (const PairRow& pair : pairs) {
        const auto word =
            std::ranges::find(words, QString::fromUtf16(pair.column), &forms::Word::field);
        for (const OptionRow& row : pair.options) {
            if (word != words.end() && word->text == QStringView(row.code))
                (*option)->setChecked(true);
            ++option;
        }
    }
}

/// The blank chooses the option in focus, an arrow that of its side. Enter walks on to the next
/// pair.
void EmployeeOptions::keyDown(const forms::Control& control, int& key,
                              Qt::KeyboardModifiers /*modifiers*/) {
    if (card::leadsToButton(window_, QStringLiteral("cmdZap"), key))
        return;
    const auto place = std::ranges::find(options_, control.widget()) - options_.begin();
    QRadioButton* first = options_[std::size_t(place - place % 2)];
    QRadioButton* second = options_[std::size_t(place - place % 2 + 1)];
    const bool isForth = key == Qt::Key_Down || key == Qt::Key_Right;
    if (isForth || key == Qt::Key_Up || key == Qt::Key_Left) {
        key = 0;
        QRadioButton* option = isForth ? second : first;
        option->setChecked(true);
        option->setFocus();
    } else if (key == Qt::Key_Return) {
        // Without a choice both are stations of Tab.
        if (!first->isChecked())
            second->setFocus();
        modKontrola::enterNaTab(key);
    }
}

} // namespace staff
