#include "store/sql/TextOrder.h"

#include <gtest/gtest.h>
#include <unicode/ucol.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

using store::sql::TextOrder;

namespace {

int sign(int value) {
    return (value > 0) - (value < 0);
}

TEST(TextOrder, PutsTextsInOrder) {
    const TextOrder order;
    // Each is less than all behind it.
    const std::vector<std::string> texts = {
        "",   " a", "0",  "10", "2", "a", "á",  "ä", "ab", "a-b", "á-b", "abc", "b", "c", "cz", "č",
        "čz", "d",  "ď",  "dz", "e", "é", "ez", "h", "hz", "ch",  "chz", "i",   "í", "l", "ĺ",  "ľ",
        "lz", "n",  "ň",  "nz", "o", "ó", "ô",  "ö", "oz", "r",   "ŕ",   "rz",  "ř", "s", "sz", "š",
        "t",  "ť",  "tz", "u",  "ú", "ů", "uz", "y", "ý",  "yz",  "z",   "zz",  "ž", "žž"};
    for (std::size_t i = 0; i < texts.size(); ++i)
        for (std::size_t k = 0; k < texts.size(); ++k)
            EXPECT_EQ(sign(order.compare(texts[i], texts[k])), sign(int(i) - int(k)))
                << texts[i] << " and " << texts[k];
}

TEST(TextOrder, TellsSignsFromBlanks) {
    const TextOrder order;
    EXPECT_NE(order.compare("a\t", "a"), 0);
    EXPECT_NE(order.compare("a\u00A0", "a"), 0);
}

std::string randomText(std::mt19937& random, const std::vector<std::string>& signs) {
    std::string text;
    for (auto length = random() % 6; length > 0; --length)
        text += signs[random() % signs.size()];
    return text;
}

/// Plain texts are compared without the collator, and must come out as it would put them.
TEST(TextOrder, ComparesPlainTextsAsTheCollatorDoes) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UCollator, void (*)(UCollator*)> collator(ucol_open("cs", &status),
                                                                    ucol_close);
    ucol_setAttribute(collator.get(), UCOL_STRENGTH, UCOL_SECONDARY, &status);
    ASSERT_TRUE(U_SUCCESS(status));
    const std::vector<std::string> signs = {"a", "C", "c", "h", "H", "i", "z",      " ",     "0",
                                            "9", ".", "_", "/", "á", "č", "\u030C", "\u0001"};
    const TextOrder order;
    std::mt19937 random(5);
    for (int i = 0; i < 100'000; ++i) {
        // A sign that is no blank ends them: trailing blanks are not the collator's business.
        const std::string left = randomText(random, signs) + "x";
        const std::string right = randomText(random, signs) + "x";
        const auto expected = ucol_strcollUTF8(collator.get(), left.data(), int(left.size()),
                                               right.data(), int(right.size()), &status);
        ASSERT_EQ(sign(order.compare(left, right)), sign(expected)) << left << " and " << right;
    }
}

/// An index needs an order: of three texts none may be before and behind another at once.
TEST(TextOrder, IsTransitive) {
    const std::vector<std::string> signs = {"a", "C", "c", "h",      "-",      "'",    " ", "æ",
                                            "ß", "s", "č", "\u030C", "\u0001", "\xC3", "1"};
    const TextOrder order;
    std::mt19937 random(7);
    for (int i = 0; i < 20'000; ++i) {
        const std::string a = randomText(random, signs);
        const std::string b = randomText(random, signs);
        const std::string c = randomText(random, signs);
        const int ab = sign(order.compare(a, b));
        const int bc = sign(order.compare(b, c));
        ASSERT_EQ(ab, -sign(order.compare(b, a)));
        if (ab == bc || ab == 0 || bc == 0) {
            ASSERT_EQ(sign(order.compare(a, c)), ab != 0 ? ab : bc) << a << "|" << b << "|" << c;
        }
    }
}

} // namespace
