#include "spelling/Dictionary.h"

#include <QFile>
#include <QHash>

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

/// How many accents are looked for, and among how many words that would have them.
constexpr int mostAccents = 4;
constexpr int mostTries = 3000;

/// What a letter may be without its accent.
QString accented(QChar letter) {
    static const QHash<QChar, QString> table = {
        {u'a', QStringLiteral("áä")}, {u'c', QStringLiteral("č")},  {u'd', QStringLiteral("ď")},
        {u'e', QStringLiteral("é")},  {u'i', QStringLiteral("í")},  {u'l', QStringLiteral("ľĺ")},
        {u'n', QStringLiteral("ň")},  {u'o', QStringLiteral("óô")}, {u'r', QStringLiteral("ŕ")},
        {u's', QStringLiteral("š")},  {u't', QStringLiteral("ť")},  {u'u', QStringLiteral("ú")},
        {u'y', QStringLiteral("ý")},  {u'z', QStringLiteral("ž")},
    };
    const QString letters = table.value(letter.toLower());
    return letter.isUpper() ? letters.toUpper() : letters;
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

/// Known words that have so many accents more, from a place on.
void Dictionary::findAccented(QString word, qsizetype from, int accents, Found& found) {
    if (accents == 0) {
        if (--found.triesLeft >= 0 && knowsWhole(word))
            found.words.append(word);
        return;
    }
    for (qsizetype place = from; place < word.size() && found.triesLeft > 0; ++place) {
        const QChar plain = word[place];
        for (const QChar letter : accented(plain)) {
            word[place] = letter;
            findAccented(word, place + 1, accents - 1, found);
        }
        word[place] = plain;
    }
}

QStringList Dictionary::suggestions(const QString& word) {
    const std::string bytes = hunspell_ != nullptr ? encoded(word) : std::string();
    if (bytes.empty())
        return {};
    Found found{.words = {}, .triesLeft = mostTries};
    for (int accents = 1; accents <= mostAccents; ++accents)
        findAccented(word, 0, accents, found);
    for (const std::string& other : hunspell_->suggest(bytes))
        found.words.append(decode_.decode(QByteArray::fromStdString(other)));
    found.words.removeDuplicates();
    return found.words;
}

void Dictionary::add(const QString& word) {
    const std::string bytes = hunspell_ != nullptr ? encoded(word) : std::string();
    if (!bytes.empty())
        hunspell_->add(bytes);
}

} // namespace spelling
