#include "spelling/Dictionary.h"

#include <QFile>

#include <hunspell/hunspell.hxx>

#include <algorithm>

namespace spelling {

namespace {

/// Hunspell itself takes what it can't read for a dictionary without words. The first line is how
/// many there are.
bool hasWords(const QString& dic) {
    QFile file(dic);
    return file.open(QIODevice::ReadOnly) && file.readLine(64).trimmed().toLongLong() > 0;
}

/// The letters without their accents.
QString bare(const QString& word) {
    QString letters = word.normalized(QString::NormalizationForm_D);
    letters.removeIf([](QChar c) { return c.isMark(); });
    return letters;
}

} // namespace

Dictionary::Dictionary(const QStringList& folders) {
    for (const QString& folder : folders) {
        const QString aff = folder + QStringLiteral("/sk_SK.aff");
        const QString dic = folder + QStringLiteral("/sk_SK.dic");
        if (!QFile::exists(aff) || !QFile::exists(dic))
            continue;
        path_ = dic;
        state_ = read(aff) ? State::Read : State::Damaged;
        return;
    }
}

Dictionary::~Dictionary() = default;

bool Dictionary::read(const QString& aff) {
    if (!hasWords(path_) || !QFile(aff).open(QIODevice::ReadOnly))
        return false;
    auto read = std::make_unique<Hunspell>(QFile::encodeName(aff).constData(),
                                           QFile::encodeName(path_).constData());
    encode_ = QStringEncoder(read->get_dict_encoding().c_str());
    decode_ = QStringDecoder(read->get_dict_encoding().c_str());
    if (!encode_.isValid() || !decode_.isValid())
        return false;
    hunspell_ = std::move(read);
    return true;
}

/// Empty for a word with letters that the dictionary's encoding has not.
std::string Dictionary::encoded(const QString& word) {
    const QByteArray bytes = encode_.encode(word);
    const bool isWhole = !encode_.hasError();
    encode_.resetState();
    return isWhole ? bytes.toStdString() : std::string();
}

bool Dictionary::knowsWhole(const QString& word) {
    const std::string bytes = encoded(word);
    return !bytes.empty() && hunspell_->spell(bytes);
}

bool Dictionary::knowsFirstPart(const QString& part) {
    return knowsWhole(part) || (part.endsWith(u'o') && knowsWhole(part.chopped(1) + u'ý'));
}

bool Dictionary::knows(const QString& word) {
    if (hunspell_ == nullptr)
        return false;
    if (knowsWhole(word))
        return true;
    const QStringList parts = word.split(u'-');
    return parts.size() > 1 && knowsWhole(parts.back()) &&
           std::all_of(parts.begin(), parts.end() - 1,
                       [this](const QString& part) { return knowsFirstPart(part); });
}

QStringList Dictionary::suggestions(const QString& word) {
    QStringList found;
    const std::string bytes = hunspell_ != nullptr ? encoded(word) : std::string();
    if (bytes.empty())
        return found;
    for (const std::string& other : hunspell_->suggest(bytes))
        found.append(decode_.decode(QByteArray::fromStdString(other)));
    std::ranges::stable_partition(found,
                                  [&](const QString& other) { return bare(other) == bare(word); });
    return found;
}

void Dictionary::add(const QString& word) {
    const std::string bytes = hunspell_ != nullptr ? encoded(word) : std::string();
    if (!bytes.empty())
        hunspell_->add(bytes);
}

} // namespace spelling
