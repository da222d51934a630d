#include "statreturn/FormFrame.h"

namespace statreturn {

report::Layout emptyForm(QStringView name, QStringView title, int right,
                         report::Orientation orientation) {
    const int paper = orientation == report::Orientation::Landscape ? 16838 : 11906;
    report::Layout layout;
    layout.name = name.toString();
    layout.title = title.toString();
    layout.orientation = orientation;
    layout.marginLeft = (paper - right) / 2;
    layout.marginRight = layout.marginLeft;
    layout.marginTop = 794;
    layout.marginBottom = 794;
    return layout;
}

void addNumbers(printing::Controls& controls, const ColumnLines& lines, int top, int bottom) {
    constexpr QStringView letters[] = {u"a", u"b"};
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        const QString number = i < 2 ? letters[i].toString() : QString::number(i - 1);
        controls.push_back(
            printing::inCell({lines[i], top, lines[i + 1], bottom}, number, tinyText));
    }
}

void addLinesDown(printing::Controls& controls, const ColumnLines& lines, int top, int bottom) {
    for (const int line : lines)
        controls.push_back(printing::vertical(line, top, bottom));
}

} // namespace statreturn
