#pragma once

#include <QString>

namespace oldregister {

/// A piece of an RTF text.
struct RtfToken {
    enum class Kind { Text, Word, Byte, OpenGroup, CloseGroup, End };
    Kind kind = Kind::End;
    /// Text: the letters. Word: the control word, or the sign of a control symbol.
    QStringView text;
    /// Word: its number. Byte: its value.
    int number = 0;
    bool hasNumber = false;
};

/// Takes an RTF text apart; any text at all is taken apart to its end.
class RtfTokens {
  public:
    /// @param rtf must outlive the tokens
    explicit RtfTokens(QStringView rtf) : rtf_(rtf) {}
    RtfToken next();
    /// Leaves out so many letters, which hold a picture.
    void skip(qsizetype letters) {
        at_ = std::min(rtf_.size(), at_ + std::max<qsizetype>(letters, 0));
    }

  private:
    RtfToken control();
    RtfToken word();
    RtfToken byte();
    RtfToken letters();
    char16_t current() const { return at_ < rtf_.size() ? rtf_[at_].unicode() : u'\0'; }

    QStringView rtf_;
    qsizetype at_ = 0;
};

} // namespace oldregister
