#include "oldregister/RtfTokens.h"

#include <algorithm>

namespace oldregister {

namespace {

using Kind = RtfToken::Kind;

constexpr int mostNumber = 100'000'000;

bool isLetter(char16_t sign) {
    return (sign >= u'a' && sign <= u'z') || (sign >= u'A' && sign <= u'Z');
}

bool isDigit(char16_t sign) {
    return sign >= u'0' && sign <= u'9';
}

bool isSign(char16_t sign) {
    return sign == u'\\' || sign == u'{' || sign == u'}' || sign == u'\r' || sign == u'\n';
}

} // namespace

RtfToken RtfTokens::next() {
    while (at_ < rtf_.size() && (current() == u'\r' || current() == u'\n'))
        ++at_;
    if (at_ >= rtf_.size())
        return {};
    switch (current()) {
    case u'{':
        ++at_;
        return {Kind::OpenGroup, {}};
    case u'}':
        ++at_;
        return {Kind::CloseGroup, {}};
    case u'\\':
        ++at_;
        return control();
    default:
        return letters();
    }
}

RtfToken RtfTokens::letters() {
    const qsizetype begin = at_;
    while (at_ < rtf_.size() && !isSign(current()))
        ++at_;
    return {Kind::Text, rtf_.sliced(begin, at_ - begin)};
}

RtfToken RtfTokens::control() {
    if (at_ >= rtf_.size())
        return {};
    if (isLetter(current()))
        return word();
    if (current() == u'\'')
        return byte();
    ++at_;
    return {Kind::Word, rtf_.sliced(at_ - 1, 1)};
}

RtfToken RtfTokens::word() {
    const qsizetype begin = at_;
    while (isLetter(current()))
        ++at_;
    RtfToken token{Kind::Word, rtf_.sliced(begin, at_ - begin)};
    const bool isNegative =
        current() == u'-' && at_ + 1 < rtf_.size() && isDigit(rtf_[at_ + 1].unicode());
    at_ += isNegative ? 1 : 0;
    token.hasNumber = isDigit(current());
    for (; isDigit(current()); ++at_)
        token.number = std::min(mostNumber, token.number * 10 + (current() - u'0'));
    if (isNegative)
        token.number = -token.number;
    if (current() == u' ')
        ++at_;
    return token;
}

RtfToken RtfTokens::byte() {
    bool isByte = false;
    const int value = rtf_.sliced(at_ + 1).left(2).toInt(&isByte, 16);
    if (!isByte || at_ + 3 > rtf_.size()) {
        ++at_;
        return {Kind::Text, rtf_.sliced(at_ - 1, 1)};
    }
    at_ += 3;
    return {Kind::Byte, {}, value};
}

} // namespace oldregister
