// Any text at all becomes a text that the editor stores and reads as the same, and a text without
// braces and backslashes behind the head of an RTF loses no letter.

#include "oldregister/Rtf.h"
#include "report/StoredText.h"

#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds) {
    if (!holds)
        std::abort();
}

QString lettersOf(const QString& stored) {
    QString letters;
    for (const auto& paragraph : report::readStored(stored))
        for (const auto& words : paragraph.words)
            letters += words.text;
    return letters;
}

bool isPlainLetter(QChar letter) {
    return letter.isLetterOrNumber() && letter.unicode() < 0xd800;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    for (const QString& rtf : {text, QStringLiteral("{\\rtf1\\ansi ") + text + u'}'}) {
        const QString stored = oldregister::htmlOfRtf(rtf);
        require(report::storedText(report::readStored(stored)) == stored);
        require(!oldregister::toStoredText(rtf).isEmpty() || rtf.isEmpty() || stored.isEmpty());
    }
    QString letters;
    for (const QChar letter : text)
        if (isPlainLetter(letter))
            letters += letter;
    require(lettersOf(oldregister::htmlOfRtf(QStringLiteral("{\\rtf1\\b ") + letters + u'}')) ==
            letters);
    return 0;
}
