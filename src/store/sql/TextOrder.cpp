#include "store/sql/TextOrder.h"

#include "store/EngineError.h"

#include <unicode/ucol.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace store::sql {

namespace {

/// To be raised when this file changes the order by itself.
constexpr int ownVersion = 1;

std::string_view withoutTrailingBlanks(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

bool isLight(char c) {
    return c == '-' || c == '\'';
}

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// A ligature that counts as its letters, in UTF-8.
struct Ligature {
    std::string_view sign;
    std::string_view letters;
};
constexpr Ligature ligatures[] = {{"ß", "ss"}, {"ẞ", "SS"}, {"æ", "ae"},
                                  {"Æ", "AE"}, {"œ", "oe"}, {"Œ", "OE"}};

const Ligature* ligatureAt(std::string_view text, std::size_t at) {
    for (const Ligature& ligature : ligatures)
        if (text.substr(at, ligature.sign.size()) == ligature.sign)
            return &ligature;
    return nullptr;
}

/// Whether a text holds neither signs of little weight nor ligatures.
bool isPlain(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool mayBeLigature = text[at] == '\xC3' || text[at] == '\xC5' || text[at] == '\xE1';
        if (isLight(text[at]) || (mayBeLigature && ligatureAt(text, at)))
            return false;
    }
    return true;
}

std::string spelledOut(std::string_view text, bool keepLight) {
    std::string result;
    result.reserve(text.size() + 4);
    for (std::size_t at = 0; at < text.size();) {
        const Ligature* ligature = ligatureAt(text, at);
        if (ligature)
            result += ligature->letters;
        else if (keepLight || !isLight(text[at]))
            result += text[at];
        at += ligature ? ligature->sign.size() : 1;
    }
    return result;
}

std::size_t equalBytes(std::string_view left, std::string_view right) {
    constexpr std::size_t step = sizeof(std::uint64_t);
    const std::size_t length = std::min(left.size(), right.size());
    std::size_t at = 0;
    while (at + step <= length && std::memcmp(&left[at], &right[at], step) == 0)
        at += step;
    while (at < length && left[at] == right[at])
        ++at;
    return at;
}

} // namespace

void TextOrder::Close::operator()(UCollator* collator) const {
    ucol_close(collator);
}

TextOrder::TextOrder() {
    UErrorCode status = U_ZERO_ERROR;
    collator_.reset(ucol_open("cs", &status));
    if (U_SUCCESS(status))
        ucol_setAttribute(collator_.get(), UCOL_STRENGTH, UCOL_SECONDARY, &status);
    if (U_FAILURE(status))
        throw EngineError(ErrorNumber::Internal, QStringLiteral("Chýba poradie písmen."),
                          QString::fromLatin1(u_errorName(status)));
    fillRanks();
}

void TextOrder::fillRanks() {
    std::vector<char> signs;
    for (char c = ' '; c < '\x7F'; ++c)
        if (!isLight(c))
            signs.push_back(c);
    const auto order = [this](char left, char right) {
        return collate({&left, 1}, {&right, 1});
    };
    std::ranges::stable_sort(signs, [&](char left, char right) { return order(left, right) < 0; });
    // Two apart, so that there is room for the letter ch behind h.
    std::uint8_t rank = 0;
    for (std::size_t i = 0; i < signs.size(); ++i) {
        if (i == 0 || order(signs[i - 1], signs[i]) != 0)
            rank = static_cast<std::uint8_t>(rank + 2);
        ranks_[static_cast<unsigned char>(signs[i])] = rank;
    }
    loneRanks_ = ranks_;
    loneRanks_['c'] = loneRanks_['C'] = 0;
}

int TextOrder::collate(std::string_view left, std::string_view right) const {
    UErrorCode status = U_ZERO_ERROR;
    return ucol_strcollUTF8(collator_.get(), left.data(), static_cast<int32_t>(left.size()),
                            right.data(), static_cast<int32_t>(right.size()), &status);
}

/// Rank of the letter at a place, which is moved behind it; 0 if it has none by itself.
int TextOrder::rankAt(std::string_view text, std::size_t& at) const {
    const char c = text[at];
    if (!isRanked(text, at) || !isRanked(text, at + 1))
        return 0;
    ++at;
    const bool isCh =
        isLetter(c) && (c | ' ') == 'c' && at < text.size() && (text[at] | ' ') == 'h';
    if (!isCh)
        return ranks_[static_cast<unsigned char>(c)];
    ++at;
    return isRanked(text, at) ? ranks_['h'] + 1 : 0;
}

/// Compares texts of plain signs. @return false when the texts need the collator.
bool TextOrder::compareRanks(std::string_view left, std::string_view right, int& result) const {
    std::size_t l = 0;
    std::size_t r = 0;
    while (l < left.size() && r < right.size()) {
        const int leftRank = rankAt(left, l);
        const int rightRank = rankAt(right, r);
        if (leftRank == 0 || rightRank == 0)
            return false;
        result = leftRank - rightRank;
        if (result != 0)
            return true;
    }
    result = static_cast<int>(l < left.size()) - static_cast<int>(r < right.size());
    // A rest of signs without weight would not make a difference.
    return isRanked(left, l) && isRanked(right, r);
}

int TextOrder::collateSlowly(std::string_view left, std::string_view right) const {
    const int heavy = collate(spelledOut(left, false), spelledOut(right, false));
    if (heavy != 0)
        return heavy;
    const auto count = std::ranges::count_if(left, isLight) - std::ranges::count_if(right, isLight);
    return count != 0 ? static_cast<int>(count)
                      : collate(spelledOut(left, true), spelledOut(right, true));
}

/// Whether signs at a place and behind it weigh the same whatever stands before it.
bool TextOrder::startsAfresh(std::string_view text, std::size_t at) const {
    return at == 0 || loneRank(text, at - 1) != 0;
}

/// What two plain signs make of a place where texts differ, a blank being the least of them; 0
/// where more has to be read.
int TextOrder::differenceAt(std::size_t at, std::string_view left, std::string_view right) const {
    if (at >= left.size() || at >= right.size() || !startsAfresh(left, at))
        return 0;
    const int leftRank = loneRank(left, at);
    const int rightRank = loneRank(right, at);
    const bool decides = leftRank && rightRank && isRanked(left, at + 1) && isRanked(right, at + 1);
    return decides ? leftRank - rightRank : 0;
}

/// Length of a beginning that both texts share and that does not decide.
std::size_t TextOrder::sharedLength(std::string_view left, std::string_view right) const {
    std::size_t at = equalBytes(left, right);
    while (at > 0 && !(isRanked(left, at) && isRanked(right, at) && startsAfresh(left, at)))
        --at;
    return at;
}

/// Compares texts that differ at a place that doesn't decide by itself.
int TextOrder::compareWhole(std::string_view left, std::string_view right) const {
    left = withoutTrailingBlanks(left);
    right = withoutTrailingBlanks(right);
    if (left == right)
        return 0;
    const std::size_t shared = sharedLength(left, right);
    left.remove_prefix(shared);
    right.remove_prefix(shared);
    int result = 0;
    if (compareRanks(left, right, result))
        return result;
    return isPlain(left) && isPlain(right) ? collate(left, right) : collateSlowly(left, right);
}

int TextOrder::compare(std::string_view left, std::string_view right) const {
    const std::size_t equal = equalBytes(left, right);
    if (equal == left.size() && equal == right.size())
        return 0;
    const int difference = differenceAt(equal, left, right);
    return difference != 0 ? difference : compareWhole(left, right);
}

QString TextOrder::version() const {
    UVersionInfo parts;
    ucol_getVersion(collator_.get(), parts);
    char text[U_MAX_VERSION_STRING_LENGTH] = {};
    u_versionToString(parts, text);
    return QStringLiteral("%1/%2").arg(ownVersion).arg(QString::fromLatin1(text));
}

} // namespace store::sql
