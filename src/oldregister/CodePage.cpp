#include "oldregister/CodePage.h"

#include <QByteArray>

#include <unicode/ucnv.h>

#include <algorithm>
#include <memory>

namespace oldregister {

namespace {

using IcuConverter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

IcuConverter open(int number) {
    UErrorCode error = U_ZERO_ERROR;
    IcuConverter converter(
        ucnv_open(QByteArray("windows-" + QByteArray::number(number)).constData(), &error),
        &ucnv_close);
    return U_SUCCESS(error) ? std::move(converter) : IcuConverter(nullptr, &ucnv_close);
}

bool isOneByte(const UConverter* converter) {
    return converter != nullptr && ucnv_getMaxCharSize(converter) == 1;
}

} // namespace

CodePage::CodePage(int number) : number_(number) {
    IcuConverter converter = open(number);
    if (!isOneByte(converter.get())) {
        number_ = slovak;
        converter = open(slovak);
    }
    for (int byte = 0; byte < 256; ++byte) {
        UErrorCode error = U_ZERO_ERROR;
        const char source = static_cast<char>(byte);
        char16_t letter = 0;
        ucnv_toUChars(converter.get(), &letter, 1, &source, 1, &error);
        letters_[static_cast<std::size_t>(byte)] = QChar(letter);
    }
}

} // namespace oldregister
