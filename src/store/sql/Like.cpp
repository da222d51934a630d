#include "store/sql/Like.h"

#include <unicode/uchar.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <string>

namespace store::sql {

namespace {

char32_t folded(UChar32 sign) {
    if (sign < 0)
        return U'\uFFFD';
    if (sign < 128)
        return static_cast<char32_t>(sign >= 'A' && sign <= 'Z' ? sign | ' ' : sign);
    return static_cast<char32_t>(u_foldCase(sign, U_FOLD_CASE_DEFAULT));
}

/// The sign at a place, folded; the place is moved behind it.
char32_t nextSign(std::string_view text, int32_t& at) {
    const auto* bytes = text.data();
    const auto size = static_cast<int32_t>(text.size());
    UChar32 sign = 0;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
    U8_NEXT(bytes, at, size, sign);
#pragma GCC diagnostic pop
    return folded(sign);
}

std::u32string foldedSigns(std::string_view text) {
    std::u32string signs;
    for (int32_t at = 0; at < static_cast<int32_t>(text.size());)
        signs += nextSign(text, at);
    return signs;
}

std::string utf8(char32_t sign) {
    char bytes[U8_MAX_LENGTH];
    int32_t size = 0;
    U8_APPEND_UNSAFE(bytes, size, static_cast<UChar32>(sign));
    return {bytes, static_cast<std::size_t>(size)};
}

bool isBetween(char32_t sign, char32_t first, char32_t last, const TextOrder& order) {
    const auto isSimple = [](char32_t c) {
        return (c >= U'a' && c <= U'z') || (c >= U'0' && c <= U'9');
    };
    if (first == last)
        return sign == first;
    if (isSimple(sign) && isSimple(first) && isSimple(last))
        return first <= sign && sign <= last;
    return order.compare(utf8(first), utf8(sign)) <= 0 &&
           order.compare(utf8(sign), utf8(last)) <= 0;
}

} // namespace

LikePattern::LikePattern(std::string_view pattern) {
    const std::u32string signs = foldedSigns(pattern);
    for (std::size_t at = 0; at < signs.size(); ++at) {
        switch (signs[at]) {
        case U'*':
            items_.push_back({Item::Kind::AnyText});
            break;
        case U'?':
            items_.push_back({Item::Kind::AnySign});
            break;
        case U'#':
            items_.push_back({Item::Kind::Digit});
            break;
        case U'[': {
            const std::size_t end = signs.find(U']', at);
            valid_ = valid_ && end != std::u32string::npos;
            if (!valid_)
                return;
            addSet(std::u32string_view(signs).substr(at + 1, end - at - 1));
            at = end;
            break;
        }
        default:
            items_.push_back({Item::Kind::Sign, signs[at]});
        }
    }
}

void LikePattern::addSet(std::u32string_view set) {
    Item item{Item::Kind::Set};
    item.negated = set.size() > 1 && set.front() == U'!';
    if (item.negated)
        set.remove_prefix(1);
    for (std::size_t at = 0; at < set.size(); ++at) {
        const bool isRange = at + 2 < set.size() && set[at + 1] == U'-';
        item.ranges.emplace_back(set[at], isRange ? set[at + 2] : set[at]);
        at += isRange ? 2 : 0;
    }
    if (!item.ranges.empty())
        items_.push_back(std::move(item));
}

bool LikePattern::meets(const Item& item, char32_t sign, const TextOrder& order) {
    switch (item.kind) {
    case Item::Kind::Sign:
        return sign == item.sign;
    case Item::Kind::AnySign:
        return true;
    case Item::Kind::Digit:
        return sign >= U'0' && sign <= U'9';
    case Item::Kind::Set:
        return item.negated != std::ranges::any_of(item.ranges, [&](const Range& range) {
                   return isBetween(sign, range.first, range.second, order);
               });
    case Item::Kind::AnyText:
        return false;
    }
    return false;
}

bool LikePattern::matches(std::string_view text, const TextOrder& order) const {
    if (!valid_)
        return false;
    constexpr auto none = static_cast<std::size_t>(-1);
    const auto end = static_cast<int32_t>(text.size());
    std::size_t item = 0;
    int32_t at = 0;
    // Where to go on when the last "*" has to take one sign more.
    std::size_t starItem = none;
    int32_t starAt = 0;
    while (at < end || item < items_.size()) {
        if (item < items_.size() && items_[item].kind == Item::Kind::AnyText) {
            starItem = ++item;
            starAt = at;
            continue;
        }
        int32_t next = at;
        if (at < end && item < items_.size() && meets(items_[item], nextSign(text, next), order)) {
            at = next;
            ++item;
            continue;
        }
        if (starItem == none || starAt >= end)
            return false;
        nextSign(text, starAt);
        at = starAt;
        item = starItem;
    }
    return true;
}

} // namespace store::sql
