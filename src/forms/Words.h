#pragma once

#include <QString>

#include <vector>

namespace forms {

/// What a field shows that the row does not hold, told by names, so that it can outlive its window.
struct Word {
    /// The field's objectName, or what its screen calls it.
    QString field;
    /// The column that will take it; empty when no column holds it as it is.
    QString column;
    /// Of a Boolean column "áno" or "nie".
    QString text;
    /// What the user calls the field.
    QString caption = {};
    /// The text is the stored form of a rich text.
    bool isRich = false;
    /// Place of the row among those of its table, -1 where the key tells it.
    int row = -1;

    bool operator==(const Word& other) const = default;
};

using Words = std::vector<Word>;

} // namespace forms
