#include "Impairments.h"

#include "Calendar.h"

#include <array>

namespace mkdb {

namespace {

constexpr int places = 9;
using Weights = std::array<int, places>;

// Shares of the codes 1 to 9: autism, mental, hearing, sight, speech, bodily, behaviour, learning,
// other.
constexpr Weights beforeSchool{14, 20, 6, 6, 34, 10, 4, 0, 6};
constexpr Weights atSchool{8, 19, 4, 4, 11, 5, 12, 32, 5};
// Shares of 0, 1, 2 … associated impairments.
constexpr std::array<int, 5> associated{60, 26, 10, 3, 1};

QString drawCodes(Weights weights, int count, Random& random) {
    QString codes;
    for (int left = count; left > 0; --left) {
        const int index = random.weighted(weights);
        codes.append(QChar(u'1' + index));
        weights[index] = 0;
    }
    return codes;
}

} // namespace

QString drawImpairments(int age, Random& random) {
    const Weights& weights = age < schoolAge ? beforeSchool : atSchool;
    const QString codes = drawCodes(weights, 1 + random.weighted(associated), random);
    return random.percent(45) ? codes.leftJustified(places) : codes;
}

QString drawNoImpairment(Random& random) {
    return random.percent(30) ? QString(places - 1, u' ') : QString();
}

QString drawRelativesImpairments(Random& random) {
    return random.percent(6) ? drawCodes(atSchool, random.percent(15) ? 2 : 1, random) : QString();
}

} // namespace mkdb
