#include "spelling/Dictionary.h"
#include "spelling/OwnWords.h"
#include "spelling/Speller.h"
#include "spelling/Words.h"
#include "store/EngineError.h"
#include "support/TinyDictionary.h"

#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using namespace Qt::StringLiterals;
using spelling::Dictionary;
using spelling::Verdict;

} // namespace

TEST(Words, AreWhatTheLanguageHas) {
    for (const auto& [text, words] : std::initializer_list<std::pair<QString, QString>>{
             {u"Žiak „číta“, píše(aj).Ďalej?"_s, u"Žiak číta píše aj Ďalej"_s},
             {u"výchovno-vzdelávací výchovno\u2011vzdelávací - a –b"_s,
              u"výchovno-vzdelávací výchovno-vzdelávací"_s},
             {u"O'Neill O’Neill 'slovo' d’"_s, u"O'Neill O'Neill slovo"_s},
             {u"12-ročný 5.ročník 2x ŠZŠ2 3,5 1.A COVID-19"_s, u"ročný ročník"_s},
             {u"ŠZŠ ADHD CPPPaP ŠkVP SLovo ZÁVER ODPORÚČANIE"_s, u"SLovo ODPORÚČANIE"_s},
             {u"meno.priezvisko@skola.sk www.skola.sk/a https://a.sk/bcd koniec"_s, u"koniec"_s},
             {u"z\u030Ciak zo\u00ADšit слово ab\u0000cd"_s, u"žiak zošit ab cd"_s},
             {u"a"_s.repeated(61) + u" slovo"_s, u"slovo"_s}}) {
        QStringList found;
        for (const spelling::Word& word : spelling::wordsIn(text, 0, text.size()))
            found << word.text;
        EXPECT_EQ(found.join(u' '), words);
    }
    const QString text = u"prvé,druhé tretie"_s;
    for (qsizetype place = 0; place <= text.size(); ++place) {
        const auto words = spelling::wordsIn(text, place, place);
        ASSERT_EQ(words.size(), 1U) << place;
        EXPECT_EQ(text.mid(words[0].from, words[0].length), words[0].text);
    }
}

TEST(DictionaryOf, AnyEncodingKnowsAllLettersAndHyphens) {
    for (const char* encoding : {"ISO8859-2", "UTF-8"}) {
        const support::TinyDictionary files(u"žiak\nľúbezný\nčerešňa\nvzdelávací\nvýchovný"_s,
                                            encoding);
        Dictionary dictionary({u"/nowhere"_s, files.folder.path()});
        ASSERT_EQ(dictionary.state(), Dictionary::State::Read);
        for (const QString& word :
             u"žiak Žiak ŽIAK ľúbezný čerešňa výchovno-vzdelávací"_s.split(u' '))
            EXPECT_TRUE(dictionary.knows(word)) << encoding << word.toStdString();
        for (const QString& word : u"ziak œuvre výchovno-ziak výchovno"_s.split(u' '))
            EXPECT_FALSE(dictionary.knows(word)) << encoding << word.toStdString();
        EXPECT_EQ(dictionary.suggestions(u"ziak"_s).value(0), u"žiak"_s);
        dictionary.add(u"ňufák"_s);
        EXPECT_TRUE(dictionary.knows(u"Ňufák"_s));
    }
}

TEST(DictionaryOf, NoFilesOrOthersKnowsNothing) {
    support::TinyDictionary files(u"žiak"_s);
    for (const auto& [encoding, words] : std::initializer_list<std::pair<QString, QString>>{
             {u"UTF-8"_s, {}}, {u"UTF-8"_s, u"slová\n"_s}, {u"KLINGON-7"_s, u"1\na\n"_s}}) {
        files.write(u"sk_SK.aff", u"SET "_s + encoding);
        files.write(u"sk_SK.dic", words);
        Dictionary dictionary({files.folder.path()});
        EXPECT_EQ(dictionary.state(), Dictionary::State::Damaged);
        EXPECT_TRUE(!dictionary.knows(u"a"_s) && dictionary.suggestions(u"b"_s).isEmpty());
    }
    EXPECT_EQ(Dictionary({u"/nowhere"_s}).state(), Dictionary::State::Missing);
}

TEST(OwnWords, AreKeptInOrderForTheirOwnerAlone) {
    const support::TinyDictionary place(u"a"_s);
    place.write(u"slova.txt", u"\uFEFFžaba\r\n\r\n čln\nKorytárová\n"_s);
    const spelling::OwnWords words(place.path(u"slova.txt"));
    words.add(u"dieťa"_s);
    words.add(u"dieťa"_s);
    EXPECT_EQ(place.read(u"slova.txt"), u"čln\ndieťa\nKorytárová\nžaba\n"_s.toUtf8());
    EXPECT_EQ(QFile::permissions(words.path()) & ~(QFile::ReadUser | QFile::WriteUser),
              QFile::ReadOwner | QFile::WriteOwner);
}

TEST(OwnWords, OfAnotherFileAreToldAndLeftAlone) {
    const support::TinyDictionary place(u"žiak"_s);
    QFile file(place.path(u"slova.txt"));
    for (const QByteArray& bytes : {QByteArray("a\xff\xfe", 3), QByteArray("a\0b", 3)}) {
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        EXPECT_THROW(spelling::OwnWords(file.fileName()).add(u"slovo"_s), store::EngineError);
        EXPECT_EQ(place.read(u"slova.txt"), bytes);
    }
    spelling::Speller speller({place.folder.path()}, file.fileName());
    speller.start();
    EXPECT_TRUE(QTest::qWaitFor([&] { return speller.isReady(); }));
    EXPECT_TRUE(
        speller.trouble().startsWith(u"Vlastný slovník sa nepoužíva  ·  Súbor nie je zoznam"));
    speller.add(u"ziak"_s);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return speller.trouble().startsWith(u"Slovo „ziak“ platí len"); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return speller.verdict(u"Ziak"_s) == Verdict::Right; }));
}

TEST(Speller, FindsTheFaultsOfAWholeTextAndForgetsThemWithANewWord) {
    const support::TinyDictionary files(u"žiak"_s);
    spelling::Speller speller({files.folder.path()}, files.path(u"slova.txt"));
    QStringList words;
    for (int i = 0; i < 1300; ++i)
        words << u"slov"_s + QChar(u'a' + i % 26) + u"o"_s.repeated(i / 26);
    const auto areWrong = [&](const QString& word) {
        return speller.verdict(word) == Verdict::Wrong;
    };
    EXPECT_FALSE(std::ranges::any_of(words, areWrong)) << "not asked before";
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::ranges::all_of(words, areWrong); }));
    speller.add(words[0]);
    EXPECT_TRUE(QTest::qWaitFor([&] { return speller.verdict(words[0]) == Verdict::Right; }));
    spelling::Speller later({files.folder.path()}, files.path(u"slova.txt"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return later.verdict(words[0]) == Verdict::Right; }));
}

/// With the dictionary of the system, where it is installed.
TEST(Speller, KnowsTheLanguage) {
    Dictionary dictionary({u"/usr/share/hunspell"_s});
    if (dictionary.state() != Dictionary::State::Read)
        GTEST_SKIP() << "no hunspell-sk";
    EXPECT_TRUE(dictionary.knows(u"logopedicko-pedagogická"_s));
    EXPECT_FALSE(dictionary.knows(u"pozornost"_s));
    EXPECT_EQ(dictionary.suggestions(u"pozornost"_s).value(0), u"pozornosť"_s);
    EXPECT_EQ(dictionary.suggestions(u"Citanim"_s).value(0), u"Čítaním"_s);
}
