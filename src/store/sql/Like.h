#pragma once

#include "store/sql/TextOrder.h"

#include <string_view>
#include <vector>

namespace store::sql {

/// A pattern of the operator like: "*" any text, "?" one character, "#" one digit, "[a-z]" and
/// "[!a-z]" one character of a set or outside it; all else stands for itself, case aside.
class LikePattern {
  public:
    explicit LikePattern(std::string_view pattern);
    /// False when a bracket is not closed; nothing matches then.
    bool isValid() const { return valid_; }
    bool matches(std::string_view text, const TextOrder& order) const;

  private:
    using Range = std::pair<char32_t, char32_t>;
    struct Item {
        enum class Kind { Sign, AnyText, AnySign, Digit, Set } kind;
        char32_t sign = 0;
        bool negated = false;
        std::vector<Range> ranges = {};
    };
    void addSet(std::u32string_view set);
    static bool meets(const Item& item, char32_t sign, const TextOrder& order);

    std::vector<Item> items_;
    bool valid_ = true;
};

} // namespace store::sql
