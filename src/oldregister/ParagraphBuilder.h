#pragma once

#include "report/StoredText.h"

namespace oldregister {

/// Puts a rich text together, paragraph by paragraph.
class ParagraphBuilder {
  public:
    /// Adds to the open paragraph what are letters to the editor; line ends are its line breaks.
    void add(QStringView text, const report::Marks& marks);
    /// The open paragraph is an item of a list.
    void makeItem() { open_.lead = report::Lead::Bullet; }
    void endParagraph();

    /// All of it. A last paragraph that was not ended counts when it has words.
    report::RichParagraphs take();

  private:
    report::RichParagraphs paragraphs_;
    report::RichParagraph open_;
};

} // namespace oldregister
