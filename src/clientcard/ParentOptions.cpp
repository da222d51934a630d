#include "clientcard/ParentOptions.h"

#include "clientcard/EntryFields.h"
#include "forms/FieldEvents.h"
#include "store/Recordset.h"

#include <QButtonGroup>
#include <QRadioButton>

#include <algorithm>
#include <iterator>
#include <vector>

namespace clientcard {

namespace {

struct OptionRow {
    const char16_t* caption;
    int group;
};

constexpr std::array<OptionRow, ParentOptions::count> optionTable = {{
    {u"vlastná", 0},
    {u"nevlastná", 0},
    {u"vlastný", 1},
    {u"nevlastný", 1},
    {u"matka", 2},
    {u"otec", 2},
    {u"iný", 2},
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
}

std::function<void()> ParentOptions::keepChosen() const {
    std::vector<QRadioButton*> chosen;
    std::ranges::copy_if(options_, std::back_inserter(chosen), &QRadioButton::isChecked);
    return [chosen = std::move(chosen)] {
        for (QRadioButton* option : chosen)
            option->setChecked(true);
    };
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
