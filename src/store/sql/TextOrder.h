#pragma once

#include <QString>

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>

struct UCollator;

namespace store::sql {

/// The order of texts in the engine, on UTF-8: Czech (č after c, ř after r, š after s, ž after z,
/// ch after h, all other accents with their letter), case aside, trailing blanks aside; hyphen and
/// apostrophe weigh only when all else is equal. Not to be used by two threads at once.
class TextOrder {
  public:
    /// @throws EngineError when the order's data are missing.
    TextOrder();

    /// Negative, zero (one and the same text to the engine) or positive.
    int compare(std::string_view left, std::string_view right) const;
    /// Changes whenever the order may have changed.
    QString version() const;

  private:
    struct Close {
        void operator()(UCollator* collator) const;
    };
    /// Position of a plain ASCII character in the order, equal for both cases; 0 for a byte that
    /// only the collator can place.
    using Ranks = std::array<std::uint8_t, 256>;

    bool isRanked(std::string_view text, std::size_t at) const {
        return at >= text.size() || ranks_[static_cast<unsigned char>(text[at])] != 0;
    }
    int loneRank(std::string_view text, std::size_t at) const {
        return loneRanks_[static_cast<unsigned char>(text[at])];
    }
    int rankAt(std::string_view text, std::size_t& at) const;
    bool startsAfresh(std::string_view text, std::size_t at) const;
    int differenceAt(std::size_t at, std::string_view left, std::string_view right) const;
    std::size_t sharedLength(std::string_view left, std::string_view right) const;
    bool compareRanks(std::string_view left, std::string_view right, int& result) const;
    int compareWhole(std::string_view left, std::string_view right) const;
    int collate(std::string_view left, std::string_view right) const;
    int collateSlowly(std::string_view left, std::string_view right) const;
    void fillRanks();

    std::unique_ptr<UCollator, Close> collator_;
    Ranks ranks_{};
    /// The same of the signs that make no letter with the next one: without c.
    Ranks loneRanks_{};
};

} // namespace store::sql
