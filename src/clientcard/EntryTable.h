#pragma once

#include "card/FieldTable.h"

#include <span>

/// The elements of `textKrz` by name: the column that each is bound to, or whose impairment it
/// takes.
namespace krz {
enum Element {
    meno,
    priezv,
    mienar,
    rodcis,
    datnar,
    pohlav,
    katcis,
    zdrpoi,
    narodn,
    stprisl,
    jazyk,
    jaz_doma,
    ulica,
    obec,
    psc,
    skola,
    odporu,
    datevi,
    dominantK,
    associatedK,
    matka,
    matnar,
    matvek,
    matvzd,
    matuli,
    matobe,
    matpsc,
    mattel,
    matmail,
    matzam,
    mataza,
    mattza,
    matchor,
    dominantM,
    associatedM,
    otec,
    otenar,
    otevek,
    otevzd,
    oteuli,
    oteobe,
    otepsc,
    otetel,
    otemail,
    otezam,
    oteaza,
    otetza,
    otechor,
    dominantO,
    associatedO,
    kon_meno,
    kon_pomer,
    kon_obe,
    kon_uli,
    kon_psc,
    kon_tel,
    kon_mail,
    count
};
} // namespace krz

namespace clientcard {

/// The check that the card itself adds to an element.
enum class Own {
    None,
    NameLookUp,
    CodeLookUp,
    BirthNumber,
    CatalogueNumber,
    ParentYear,
    Dominant,
    Associated
};

/// An element of `textKrz`: the entry fields of the tabs "Základné údaje" and "Rodičia".
struct EntryRow {
    krz::Element element;
    card::FieldRow field;
    Own own = Own::None;
    /// The `dbcvolby` picker that serves the field, -1 for none.
    int picker = -1;
};

/// Characters of a municipality that a field takes; the longest name of today has 31.
inline constexpr int municipalityWidth = 40;

/// The elements in their order.
std::span<const EntryRow> entryTable();

/// What the array has of its own.
extern const card::FieldSet entrySet;

} // namespace clientcard
