#include "statreturn/FormFrame.h"

namespace statreturn {

report::Layout landscapeForm(QStringView name, QStringView title) {
    report::Layout layout;
    layout.name = name.toString();
    layout.title = title.toString();
    layout.orientation = report::Orientation::Landscape;
    layout.marginLeft = 1146;
    layout.marginRight = 1146;
    layout.marginTop = 794;
    layout.marginBottom = 794;
    return layout;
}

} // namespace statreturn
