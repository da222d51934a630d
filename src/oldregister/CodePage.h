#pragma once

#include <QChar>

#include <array>

namespace oldregister {

/// The letters of one-byte code pages.
class CodePage {
  public:
    /// @param number as Windows counts its code pages; 1250 for one that is not known
    explicit CodePage(int number = slovak);

    QChar letter(int byte) const { return letters_[static_cast<std::size_t>(byte) & 0xff]; }
    int number() const { return number_; }

    static constexpr int slovak = 1250;

  private:
    int number_;
    std::array<QChar, 256> letters_;
};

} // namespace oldregister
