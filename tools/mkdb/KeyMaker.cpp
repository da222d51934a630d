#include "KeyMaker.h"

namespace mkdb {

namespace {

constexpr int keyWidth = 10;

} // namespace

std::optional<QString> KeyMaker::make(const card::Names& names) {
    const QString base = card::keyBase(names);
    int& number = next_[base];
    const QString key = base + card::keySequence(number);
    if (key.size() > keyWidth)
        return std::nullopt;
    ++number;
    return key;
}

} // namespace mkdb
