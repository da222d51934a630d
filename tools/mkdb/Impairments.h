#pragma once

#include "Random.h"

#include <QString>

namespace mkdb {

/// Codes of impairments, dominant first, as the card writes them: either padded with blanks to nine
/// places, or bare, as a row has them that was loaded and saved again.
/// @param age which impairments are likely depends on it: those of learning show at school
QString drawImpairments(int age, Random& random);

/// What a client without an impairment carries: nothing, or the blanks that a choice of "none" in
/// the card leaves.
QString drawNoImpairment(Random& random);

/// Empty for most people.
QString drawRelativesImpairments(Random& random);

} // namespace mkdb
