#pragma once

#include "CodeLists.h"
#include "Rows.h"
#include "Vocabulary.h"

#include <QDate>

namespace mkdb {

struct RegisterPlan {
    int clients = 300;
    std::uint64_t seed = 1;
    /// The day at which ages hold and records end.
    QDate today;
};

/// Writes an invented register, all but its code-lists. The same plan, words and lists give the
/// same rows. @throws std::runtime_error when the names or birth numbers do not suffice
void makeRegister(const RegisterPlan& plan, const Vocabulary& words,
                  const std::vector<CodeList>& lists, RowSink& sink);

} // namespace mkdb
