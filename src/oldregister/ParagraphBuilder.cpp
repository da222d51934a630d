#include "oldregister/ParagraphBuilder.h"

#include <utility>

namespace oldregister {

namespace {

/// What would be no letter to the editor but a part of its own.
bool isForeign(QChar letter) {
    return letter == QChar::ObjectReplacementCharacter || letter == u'\xfdd0' ||
           letter == u'\xfdd1' || (letter < u' ' && letter != u'\t');
}

bool isLineEnd(QChar letter) {
    return letter == QChar::ParagraphSeparator || letter == u'\n' || letter == u'\r';
}

} // namespace

void ParagraphBuilder::add(QStringView text, const report::Marks& marks) {
    QString letters;
    for (const QChar letter : text) {
        if (isLineEnd(letter))
            letters += QChar::LineSeparator;
        else if (!isForeign(letter))
            letters += letter;
    }
    open_.add(letters, marks);
}

void ParagraphBuilder::endParagraph() {
    paragraphs_.push_back(std::exchange(open_, {}));
}

report::RichParagraphs ParagraphBuilder::take() {
    if (!open_.words.empty())
        endParagraph();
    return std::move(paragraphs_);
}

} // namespace oldregister
