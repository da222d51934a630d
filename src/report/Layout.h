#pragma once

#include <QString>
#include <QStringView>

#include <vector>

namespace report {

enum class Orientation { Portrait, Landscape };
enum class Align { Left, Center, Right };
enum class ControlKind { Label, Field, Line, Box };

/// Type of a text; the family is the program's own, so that print-outs look the same everywhere.
struct TextStyle {
    double points = 8;
    bool bold = false;
    bool italic = false;
    bool underline = false;

    bool operator==(const TextStyle&) const = default;
};

/// One control of a section. Lengths are twips (1/1440 inch), from the section's left top corner.
/// A line runs from (left, top) to (left + width, top + height).
struct Control {
    ControlKind kind = ControlKind::Label;
    QString name{};
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    /// Label: its text, in which "%d" stands for the date of printing. Else unused.
    QString caption{};
    /// Label: its text was typed by somebody, and "%d" in it stands for itself.
    bool asTyped = false;
    /// Field: the column whose value it prints. Else unused.
    QString dataField{};
    Align align = Align::Left;
    TextStyle style{};
    /// Centres the text between the top and the bottom of its box.
    bool middle = false;
    /// Wraps its text and pushes down what begins at its bottom edge or below when the text needs
    /// more height. Lines and boxes that reach past its bottom edge stretch.
    bool canGrow = false;
    /// The text may be HTML: its bold, italic and underlined stretches and its lists are kept, its
    /// sizes and families are not.
    bool rich = false;
};

/// A band of the page. Its height in twips grows with its growing fields.
struct Section {
    QString name{};
    int height = 0;
    std::vector<Control> controls;

    /// The control of that name, whatever its case. @throws std::out_of_range
    Control& control(QStringView wanted);
    const Control& control(QStringView wanted) const;
};

/// A column as which a report's rows can be saved, by what stands over it.
struct SavedColumn {
    QString head;
    QString dataField;
};

/// A report as data. The sections bear the names "Section4" (report header), "Section2" (page
/// header), "Section1" (detail), "Section3" (page footer), "Section5" (report footer). Fields stand
/// in the detail only.
struct Layout {
    QString name{};
    /// Heading of the preview's window.
    QString title;
    Orientation orientation = Orientation::Portrait;
    /// Free space at the page's edges, in twips.
    int marginLeft = 567;
    int marginTop = 567;
    int marginRight = 567;
    int marginBottom = 567;
    Section reportHeader{QStringLiteral("Section4"), 0, {}};
    Section pageHeader{QStringLiteral("Section2"), 0, {}};
    Section detail{QStringLiteral("Section1"), 0, {}};
    Section pageFooter{QStringLiteral("Section3"), 0, {}};
    Section reportFooter{QStringLiteral("Section5"), 0, {}};
    /// The columns of a report that is a plain table; else none.
    std::vector<SavedColumn> savedColumns{};

    /// The section of that name, whatever its case. @throws std::out_of_range
    Section& section(QStringView wanted);
    const Section& section(QStringView wanted) const;
};

} // namespace report
