#include "store/sql/TextOrder.h"

#include "support/Lists.h"

#include <unicode/ucol.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

using store::sql::TextOrder;
using namespace Qt::StringLiterals;

namespace {

int sign(int value) {
    return (value > 0) - (value < 0);
}

/// Each text of the list is less than all behind it.
TEST(TextOrder, PutsTextsInOrder) {
    const TextOrder order;
    const QStringList texts = support::linesOf(u"order.tsv"_s).first();
    for (qsizetype i = 0; i < texts.size(); ++i)
        for (qsizetype k = 0; k < texts.size(); ++k)
            EXPECT_EQ(sign(order.compare(texts[i].toStdString(), texts[k].toStdString())),
                      sign(int(i - k)))
                << texts[i].toStdString() << " and " << texts[k].toStdString();
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
