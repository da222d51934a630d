#include "Vocabulary.h"

#include "Csv.h"

#include <QDir>

namespace mkdb {

namespace {

constexpr int firstNameWidth = 20;
constexpr int surnameWidth = 29;
constexpr int townWidth = 30;
constexpr int zipWidth = 5;
/// A house number of two digits still fits behind.
constexpr int streetWidth = 22;
constexpr int facilityWidth = 70;
constexpr int shortWidth = 20;
constexpr int middleWidth = 30;
constexpr int longWidth = 50;
constexpr int freeWidth = 4000;
constexpr int oldestAge = 99;

/// The cells of one file, by column.
class Words {
  public:
    Words(const QString& folder, const char16_t* name)
        : csv_(readCsv(QDir(folder).filePath(QString::fromUtf16(name) + QStringLiteral(".csv")))) {
        if (csv_.rows.empty())
            throw CsvError(QStringLiteral("%1: súbor nemá nijaký záznam").arg(csv_.source));
    }

    std::size_t count() const { return csv_.rows.size(); }

    /// A cell that may be empty.
    const QString& optional(std::size_t row, const char16_t* column, int width) const {
        const QString& word = csv_.rows[row][csv_.column(QString::fromUtf16(column))];
        if (word.size() > width)
            fail(row, QStringLiteral("„%1“ je dlhšie ako %2 znakov").arg(word).arg(width));
        return word;
    }

    const QString& word(std::size_t row, const char16_t* column, int width) const {
        const QString& word = optional(row, column, width);
        if (word.trimmed().isEmpty())
            fail(row, QStringLiteral("chýba %1").arg(QString::fromUtf16(column)));
        return word;
    }

    /// A number; `otherwise` where the cell is empty.
    int number(std::size_t row, const char16_t* column, int otherwise) const {
        const QString& digits = optional(row, column, shortWidth);
        bool isNumber = false;
        const int number = digits.toInt(&isNumber);
        if (!digits.isEmpty() && !isNumber)
            fail(row, QStringLiteral("„%1“ nie je číslo").arg(digits));
        return digits.isEmpty() ? otherwise : number;
    }

    bool isWoman(std::size_t row) const {
        const QString& sex = word(row, u"pohlavie", 1);
        if (sex != QStringLiteral("M") && sex != QStringLiteral("Z"))
            fail(row, QStringLiteral("pohlavie nie je M ani Z"));
        return sex == QStringLiteral("Z");
    }

    QStringList all(const char16_t* column, int width) const {
        QStringList words;
        for (std::size_t row = 0; row < count(); ++row)
            words.append(word(row, column, width));
        return words;
    }

  private:
    [[noreturn]] void fail(std::size_t row, const QString& message) const {
        throw CsvError(
            QStringLiteral("%1, záznam %2: %3").arg(csv_.source).arg(row + 1).arg(message));
    }

    CsvTable csv_;
};

void readFirstNames(const QString& folder, Vocabulary& vocabulary) {
    const Words words(folder, u"mena");
    for (std::size_t row = 0; row < words.count(); ++row)
        (words.isWoman(row) ? vocabulary.girls : vocabulary.boys)
            .append(words.word(row, u"meno", firstNameWidth));
    if (vocabulary.girls.isEmpty() || vocabulary.boys.isEmpty())
        throw CsvError(QStringLiteral("mena.csv: chýbajú mená jedného pohlavia"));
}

std::vector<Surname> readSurnames(const QString& folder) {
    const Words words(folder, u"priezviska");
    std::vector<Surname> surnames;
    for (std::size_t row = 0; row < words.count(); ++row)
        surnames.push_back(
            {words.word(row, u"muzske", surnameWidth), words.word(row, u"zenske", surnameWidth)});
    return surnames;
}

std::vector<Town> readTowns(const QString& folder) {
    const Words words(folder, u"obce");
    std::vector<Town> towns;
    for (std::size_t row = 0; row < words.count(); ++row)
        towns.push_back({words.word(row, u"obec", townWidth), words.word(row, u"psc", zipWidth)});
    return towns;
}

std::vector<Facility> readFacilities(const QString& folder) {
    const Words words(folder, u"skoly");
    std::vector<Facility> facilities;
    for (std::size_t row = 0; row < words.count(); ++row) {
        const QString& name = words.word(row, u"nazov", facilityWidth);
        const int rest = facilityWidth - 2 - static_cast<int>(name.size());
        facilities.push_back(
            {words.word(row, u"kod", 2), name, words.optional(row, u"adresa", rest)});
    }
    return facilities;
}

std::vector<Relation> readRelations(const QString& folder) {
    const Words words(folder, u"pomery");
    std::vector<Relation> relations;
    for (std::size_t row = 0; row < words.count(); ++row)
        relations.push_back({words.word(row, u"nazov", shortWidth), words.isWoman(row)});
    return relations;
}

QHash<QString, std::vector<Paragraph>> readParagraphs(const QString& folder) {
    const Words words(folder, u"texty");
    QHash<QString, std::vector<Paragraph>> paragraphs;
    for (std::size_t row = 0; row < words.count(); ++row)
        paragraphs[words.word(row, u"druh", shortWidth)].push_back(
            {words.word(row, u"text", freeWidth), words.optional(row, u"postih", 1),
             words.number(row, u"vek_od", 0), words.number(row, u"vek_do", oldestAge)});
    return paragraphs;
}

} // namespace

Vocabulary readVocabulary(const QString& folder) {
    Vocabulary vocabulary;
    readFirstNames(folder, vocabulary);
    vocabulary.surnames = readSurnames(folder);
    vocabulary.towns = readTowns(folder);
    vocabulary.streets = Words(folder, u"ulice").all(u"ulica", streetWidth);
    vocabulary.facilities = readFacilities(folder);
    vocabulary.relations = readRelations(folder);
    vocabulary.educations = Words(folder, u"vzdelanie").all(u"nazov", shortWidth);
    const Words occupations(folder, u"zamestnania");
    vocabulary.mensOccupations = occupations.all(u"muzske", middleWidth);
    vocabulary.womensOccupations = occupations.all(u"zenske", shortWidth);
    vocabulary.employers = Words(folder, u"zamestnavatelia").all(u"nazov", longWidth);
    vocabulary.illnesses = Words(folder, u"choroby").all(u"nazov", longWidth);
    vocabulary.referrers = Words(folder, u"odporucil").all(u"nazov", middleWidth);
    vocabulary.paragraphs = readParagraphs(folder);
    return vocabulary;
}

} // namespace mkdb
