#include "oldregister/Protection.h"

#include <QFile>
#include <QtEndian>

#include <array>
#include <cmath>
#include <numeric>

namespace oldregister {

namespace {

// The header from here on is scrambled with a key that is the same for all files.
constexpr qsizetype scrambledFrom = 0x18;
constexpr qsizetype scrambledLength = 128;
constexpr std::array<uchar, 4> headerKey{0xc7, 0xda, 0x39, 0x6b};
// Places behind the beginning of the scrambled part.
constexpr qsizetype encodingKeyAt = 0x3e - scrambledFrom;
constexpr qsizetype passwordAt = 0x42 - scrambledFrom;
constexpr qsizetype passwordLength = 40;
constexpr qsizetype creationAt = 0x72 - scrambledFrom;

/// Turns RC4 back, or does it.
QByteArray unscrambled(QByteArray bytes) {
    std::array<uchar, 256> state{};
    std::iota(state.begin(), state.end(), uchar{0});
    uchar other = 0;
    for (std::size_t index = 0; index < state.size(); ++index) {
        other = static_cast<uchar>(other + state[index] + headerKey[index % headerKey.size()]);
        std::swap(state[index], state[other]);
    }
    uchar one = 0;
    other = 0;
    for (char& byte : bytes) {
        other = static_cast<uchar>(other + state[++one]);
        std::swap(state[one], state[other]);
        const auto mask = state[static_cast<uchar>(state[one] + state[other])];
        byte = static_cast<char>(static_cast<uchar>(byte) ^ mask);
    }
    return bytes;
}

/// The password lies under the day on which the file was made, again and again.
bool hasPassword(const QByteArray& header) {
    const auto created = qFromLittleEndian<double>(header.constData() + creationAt);
    const qint32 day = std::fabs(created) < 1e9 ? static_cast<qint32>(created) : 0;
    for (qsizetype at = passwordAt; at < passwordAt + passwordLength; at += sizeof(day))
        if (qFromLittleEndian<qint32>(header.constData() + at) != day)
            return true;
    return false;
}

QString protectionIn(const QByteArray& header) {
    QStringList protections;
    if (hasPassword(header))
        protections += QStringLiteral("má heslo");
    if (qFromLittleEndian<quint32>(header.constData() + encodingKeyAt) != 0)
        protections += QStringLiteral("je zakódovaný");
    if (protections.isEmpty())
        return {};
    return QStringLiteral("Pôvodný súbor %1. V jeho formáte to nič nezamyká: údaje prečíta každý, "
                          "kto súbor má, aj bez hesla. Ani nový register heslo nemá.")
        .arg(protections.join(QStringLiteral(" a ")));
}

} // namespace

QString protectionOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(scrambledFrom))
        return {};
    const QByteArray header = file.read(scrambledLength);
    return header.size() == scrambledLength ? protectionIn(unscrambled(header)) : QString();
}

} // namespace oldregister
