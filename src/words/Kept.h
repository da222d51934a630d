#pragma once

#include "forms/Words.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace words {

/// The part of a screen that is the screen itself, and no record in it.
inline constexpr int wholeScreen = -1;

/// Words that were typed into one part of a screen and are in no row.
struct Kept {
    QString id;
    /// The screen's objectName, and the part of it that they were typed into.
    QString screen;
    int part = wholeScreen;
    /// What the user calls the part; empty for the whole screen.
    QString title;
    /// Whose they are: the key in the table `owner`, empty for somebody new, and the name to be
    /// shown. A screen of nobody has no owner.
    QString owner;
    QString key;
    QString who;
    /// The tables whose columns would have taken them.
    QStringList tables;
    /// What the row was when they were typed (see Rows.h); empty for a new row.
    QByteArray basis;
    /// What the row was beside its key and the columns that the words are for: by it the row is
    /// known when the words have changed its key.
    QByteArray rest;
    QDateTime when;
    /// Given up by Storno, to be had back once.
    bool isDropped = false;
    forms::Words words;

    bool isNew() const { return !owner.isEmpty() && key.isEmpty(); }
    bool operator==(const Kept& other) const = default;
};

using KeptWords = std::vector<Kept>;

/// The contents of the file: a line with the format's number and a sum of the rest, then JSON.
QByteArray toFile(const KeptWords& kept);
/// @return nothing when it is damaged, or of a format that is not known here
std::optional<KeptWords> fromFile(const QByteArray& bytes);

/// "Eva Novotná, Záznam o starostlivosti (23.11.2026 17:40)".
QString titleOf(const Kept& kept);
/// Their fields by name, each once, as many as a line has room for.
QString fieldsOf(const Kept& kept);

} // namespace words
