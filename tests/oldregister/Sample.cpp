#include "Sample.h"

#include "store/FileBytes.h"

#include <QtEndian>

#include <gtest/gtest.h>

#include <array>
#include <numeric>

namespace sample {

namespace {

constexpr qsizetype pageSize = 4096;
// What the header itself is scrambled with, and where what lies in it.
constexpr std::array<uchar, 4> headerKey{0xc7, 0xda, 0x39, 0x6b};
constexpr qsizetype scrambledFrom = 0x18;
constexpr qsizetype scrambledLength = 128;
constexpr qsizetype keyAt = 0x3e;
constexpr qsizetype passwordAt = 0x42;

void rc4(std::span<const uchar> key, char* bytes, qsizetype length) {
    std::array<uchar, 256> state{};
    std::iota(state.begin(), state.end(), uchar{0});
    uchar mixed = 0;
    for (std::size_t index = 0; index < state.size(); ++index) {
        mixed = static_cast<uchar>(mixed + state[index] + key[index % key.size()]);
        std::swap(state[index], state[mixed]);
    }
    uchar left = 0;
    uchar right = 0;
    for (qsizetype at = 0; at < length; ++at) {
        left = static_cast<uchar>(left + 1);
        right = static_cast<uchar>(right + state[left]);
        std::swap(state[left], state[right]);
        bytes[at] =
            static_cast<char>(bytes[at] ^ state[static_cast<uchar>(state[left] + state[right])]);
    }
}

void scrambleHeader(QByteArray& file) {
    rc4(headerKey, file.data() + scrambledFrom, scrambledLength);
}

} // namespace

QByteArray bytes() {
    return files::read(path);
}

void expectTables(const QString& folder) {
    const QStringList names = files::namesIn(tables);
    EXPECT_EQ(files::namesIn(folder), names);
    for (const QString& name : names)
        // Whole tables are too long to be read in a message.
        EXPECT_TRUE(files::read(folder + u'/' + name) == files::read(tables + u'/' + name))
            << name.toStdString();
}

QByteArray encoded(QByteArray file) {
    constexpr quint32 key = 0x5eb10d1e;
    scrambleHeader(file);
    qToLittleEndian(key, file.data() + keyAt);
    scrambleHeader(file);
    for (qsizetype page = 1; page * pageSize < file.size(); ++page) {
        std::array<uchar, 4> ofPage{};
        qToLittleEndian(key ^ static_cast<quint32>(page), ofPage.data());
        rc4(ofPage, file.data() + page * pageSize, pageSize);
    }
    return file;
}

QByteArray withPassword(QByteArray file) {
    scrambleHeader(file);
    for (qsizetype at = passwordAt; at < passwordAt + 20; ++at)
        file[at] = static_cast<char>(file[at] ^ static_cast<char>(at));
    scrambleHeader(file);
    return file;
}

} // namespace sample
