#pragma once

#include "oldregister/CodePage.h"
#include "oldregister/ParagraphBuilder.h"
#include "oldregister/RtfTokens.h"

#include <map>

namespace oldregister {

/// Reads an RTF text token by token into paragraphs.
class RtfReader {
  public:
    explicit RtfReader(QStringView rtf) : tokens_(rtf) { groups_.emplace_back(); }
    report::RichParagraphs read();

  private:
    /// Where the text of a group goes.
    enum class Goal { Text, Nowhere, Fonts, Bullet };
    struct Group {
        Goal goal = Goal::Text;
        report::Marks marks;
        int font = -1;
        /// Letters that stand for a \u in programs that don't know it.
        int substitutes = 1;
    };

    struct ControlWord;
    static const ControlWord controlWords[];

    void take(const RtfToken& token);
    void openGroup();
    void closeGroup();
    void takeWord(const RtfToken& word);
    void takeByte(int byte);
    void addLetter(QChar letter);
    void addText(QStringView text);
    void endBullet();
    bool isSubstitute();
    const CodePage& codePage();

    void endParagraph(const RtfToken& word);
    template <bool report::Marks::*which>
    void mark(const RtfToken& word);
    void endUnderlined(const RtfToken& word);
    void endMarks(const RtfToken& word);
    void takeFont(const RtfToken& word);
    void takeCharacterSet(const RtfToken& word);
    void takeDocumentPage(const RtfToken& word);
    void takeUnicode(const RtfToken& word);
    void takeSubstitutes(const RtfToken& word);
    void skipBinary(const RtfToken& word);
    void makeOptional(const RtfToken& word);
    template <Goal goal>
    void enter(const RtfToken& word);

    RtfTokens tokens_;
    ParagraphBuilder paragraphs_;
    std::vector<Group> groups_;
    /// Substitutes of the last \u that are still to come.
    int toSkip_ = 0;
    /// A destination that those may pass over who don't know it.
    bool isOptional_ = false;
    int documentPage_ = CodePage::slovak;
    std::map<int, int> pageOfFont_;
    std::map<int, CodePage> pages_;
    QString bullet_;
};

} // namespace oldregister
