#include "report/Layout.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace report {

namespace {

bool sameName(QStringView one, QStringView other) {
    return one.compare(other, Qt::CaseInsensitive) == 0;
}

[[noreturn]] void throwMissing(const char* kind, QStringView wanted) {
    throw std::out_of_range(kind + wanted.toString().toStdString());
}

} // namespace

const Control& Section::control(QStringView wanted) const {
    const auto found = std::find_if(controls.begin(), controls.end(), [wanted](const Control& c) {
        return sameName(c.name, wanted);
    });
    if (found == controls.end())
        throwMissing("no such control: ", wanted);
    return *found;
}

Control& Section::control(QStringView wanted) {
    return const_cast<Control&>(std::as_const(*this).control(wanted));
}

const Section& Layout::section(QStringView wanted) const {
    const std::array all{&reportHeader, &pageHeader, &detail, &pageFooter, &reportFooter};
    const auto found = std::find_if(
        all.begin(), all.end(), [wanted](const Section* s) { return sameName(s->name, wanted); });
    if (found == all.end())
        throwMissing("no such section: ", wanted);
    return **found;
}

Section& Layout::section(QStringView wanted) {
    return const_cast<Section&>(std::as_const(*this).section(wanted));
}

} // namespace report
