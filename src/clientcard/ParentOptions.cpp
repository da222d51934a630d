#include "clientcard/ParentOptions.h"

#include "clientcard/EntryFields.h"
#include "forms/FieldEvents.h"
#include "store/Recordset.h"

#include <QButtonGroup>
#include <QRadioButton>

#include <algorithm>

namespace clientcard {

namespace {

struct OptionRow {
    const char16_t* caption;
    int group;
    /// What the choice is called outside its group, and what its column holds then.
    const char16_t* meaning;
    const char16_t* column;
    const char16_t* stored;
};

constexpr std::array<OptionRow, ParentOptions::count> optionTable = {{
    {u"vlastná", 0, u"Vlastná matka", u"matvla", u"áno"},
    {u"nevlastná", 0, u"Vlastná matka", u"matvla", u"nie"},
    {u"vlastný", 1, u"Vlastný otec", u"otevla", u"áno"},
    {u"nevlastný", 1, u"Vlastný otec", u"otevla", u"nie"},
    {u"matka", 2, u"Zákonný zástupca", u"", u"matka"},
    {u"otec", 2, u"Zákonný zástupca", u"", u"otec"},
    {u"iný", 2, u"Zákonný zástupca", u"", u"iný"},
}};

constexpr int ownMother = 0;
constexpr int ownFather = 2;
constexpr int fromMother = 4;
constexpr int fromFather = 5;

/// A field of the representative and where each option takes it from; -1 empties it.
struct FillRow {
    krz::Element target;
    std::array<int, 3> sources;
};

// Somebody else keeps the father's telephone and e-mail; users know the card that way.
constexpr std::array<FillRow, 6> fillTable = {{
    {krz::kon_meno, {krz::matka, krz::otec, -1}},
    {krz::kon_obe, {krz::matobe, krz::oteobe, -1}},
    {krz::kon_uli, {krz::matuli, krz::oteuli, -1}},
    {krz::kon_psc, {krz::matpsc, krz::otepsc, -1}},
    {krz::kon_tel, {krz::mattel, krz::otetel, krz::otetel}},
    {krz::kon_mail, {krz::matmail, krz::otemail, krz::otemail}},
}};

} // namespace

ParentOptions::ParentOptions(EntryFields& fields, QWidget* parent) : fields_(fields) {
    std::array<QButtonGroup*, 3> groups = {new QButtonGroup(parent), new QButtonGroup(parent),
                                           new QButtonGroup(parent)};
    for (int i = 0; i < count; ++i) {
        const OptionRow& row = optionTable[std::size_t(i)];
        auto* made = new QRadioButton(QString::fromUtf16(row.caption), parent);
        made->setObjectName(forms::elementName(QStringLiteral("optKrz"), i));
        groups[std::size_t(row.group)]->addButton(made);
        if (i >= fromMother)
            QObject::connect(made, &QRadioButton::clicked, parent,
                             [this, i] { fillRepresentative(i); });
        options_[std::size_t(i)] = made;
    }
}

void ParentOptions::fillRepresentative(int option) {
    for (const FillRow& row : fillTable) {
        const int source = row.sources[std::size_t(option - fromMother)];
        fields_.field(row.target).setText(source < 0 ? QString() : fields_.text(source));
    }
    const QString who = option == fromMother   ? QStringLiteral("matka")
                        : option == fromFather ? QStringLiteral("otec")
                                               : QString();
    fields_.field(krz::kon_pomer).setText(who);
}

void ParentOptions::nastavVolby(store::Recordset& client) {
    const auto set = [&](QStringView column, int own) {
        const bool isOwn = client.Fields(column).Value().toBool();
        option(isOwn ? own : own + 1)->setChecked(true);
    };
    set(u"matvla", ownMother);
    set(u"otevla", ownFather);
    const QString who = client.Fields(u"kon_pomer").Value().toText();
    if (who == u"matka")
        option(fromMother)->setChecked(true);
    else if (who == u"otec")
        option(fromFather)->setChecked(true);
    else
        forgetRepresentative();
    std::ranges::transform(options_, before_.begin(), &QRadioButton::isChecked);
}

void ParentOptions::addTyped(forms::Words& words) const {
    for (std::size_t i = 0; i < options_.size(); ++i) {
        if (!options_[i]->isChecked() || before_[i])
            continue;
        const OptionRow& row = optionTable[i];
        words.push_back({.field = options_[i]->objectName(),
                         .column = QString::fromUtf16(row.column),
                         .text = QString::fromUtf16(row.stored),
                         .caption = QString::fromUtf16(row.meaning)});
    }
}

void ParentOptions::enter(const forms::Words& words) {
    for (QRadioButton* option : options_) {
        if (std::ranges::find(words, option->objectName(), &forms::Word::field) != words.end())
            option->setChecked(true);
    }
}

void ParentOptions::forgetRepresentative() {
    QButtonGroup* group = option(fromMother)->group();
    group->setExclusive(false);
    for (int i = fromMother; i < count; ++i)
        option(i)->setChecked(false);
    group->setExclusive(true);
}

bool ParentOptions::differ(store::Recordset& client) const {
    return client.Fields(u"matvla").Value().toBool() != option(ownMother)->isChecked() ||
           client.Fields(u"otevla").Value().toBool() != option(ownFather)->isChecked();
}

void ParentOptions::put(store::Recordset& client) const {
    client.Fields(u"matvla").setValue(option(ownMother)->isChecked());
    client.Fields(u"otevla").setValue(option(ownFather)->isChecked());
}

} // namespace clientcard
