#pragma once

#include "report/Layout.h"

#include <QString>

#include <vector>

/// How the forms of the print-outs are told: as tables of their parts, which one function makes
/// layouts of. All lengths are twips.
namespace printouts {

/// Free on both sides of the paper.
inline constexpr int margin = 567;
/// Right edge of what stands on upright paper.
inline constexpr int uprightWidth = 11906 - 2 * margin;
inline constexpr int sidewaysWidth = 16838 - 2 * margin;
inline constexpr int rowHeight = 283;

/// What a part of a form is, and how it looks.
enum class Look {
    Caption, ///< Names what stands beside or below it.
    Head,    ///< As Caption, over a list.
    Value,   ///< A column of the row. Wraps in its own place; what stands below gives way.
    Small,   ///< As Value, in a narrow place.
    Cell,    ///< As Value, in a list.
    Words    ///< As Value, a text with bold, italic and underlined words and lists.
};

struct Part {
    Look look = Look::Caption;
    int left = 0;
    int top = 0;
    int width = 0;
    /// The text, or the column that is printed.
    QString text;
    /// What the part may take up before what stands below gives way; 0 for one line.
    int height = 0;
};

struct Form {
    QString name;
    QString title;
    std::vector<Part> detail;
    int detailHeight = rowHeight;
    /// The page header, closed by a line; none if empty.
    std::vector<Part> heads = {};
    /// Heights of the lines across the detail.
    std::vector<int> lines = {};
    report::Orientation orientation = report::Orientation::Portrait;
    /// What is saved of a plain table; nothing of other forms.
    std::vector<report::SavedColumn> saved = {};
};

/// Adds the columns "retaz1" to "retaz9", with the person's letter behind, side by side.
/// @param first where the first one stands, and how large each is
void addImpairments(std::vector<Part>& parts, const Part& first, const QString& person = {});

/// Makes the layout: a head with the title as `lblNadpis`, the client's name as `lblMeno` and the
/// date, the page header and the detail.
report::Layout layoutOf(const Form& form);

} // namespace printouts
