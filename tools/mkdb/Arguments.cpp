#include "Arguments.h"

namespace mkdb {

namespace {

struct Verb {
    const char16_t* word;
    Command command;
    /// Where the word behind the file goes; none is taken when null.
    QString Arguments::*second;
};
constexpr Verb verbs[] = {{u"prazdna", Command::Empty, nullptr},
                          {u"ukazka", Command::Sample, nullptr},
                          {u"ciselniky", Command::ReplaceLists, &Arguments::listsFolder},
                          {u"prevod", Command::TakeOver, &Arguments::target},
                          {u"vyvoz", Command::Export, &Arguments::target},
                          {u"dovoz", Command::Import, &Arguments::target}};

/// Stores what stands behind an option; false when it does not suit.
struct Option {
    const char16_t* word;
    /// Only the invented register takes it.
    bool ofSample;
    bool (*store)(const QString& value, Arguments& arguments);
};

bool storeClients(const QString& value, Arguments& arguments) {
    bool isNumber = false;
    arguments.plan.clients = value.toInt(&isNumber);
    return isNumber && arguments.plan.clients >= 0;
}

bool storeSeed(const QString& value, Arguments& arguments) {
    bool isNumber = false;
    arguments.plan.seed = value.toULongLong(&isNumber);
    return isNumber;
}

bool storeToday(const QString& value, Arguments& arguments) {
    arguments.plan.today = QDate::fromString(value, QStringLiteral("d.M.yyyy"));
    // Birth numbers have ten digits since 1954, and the oldest client is 19.
    return arguments.plan.today.isValid() && arguments.plan.today.year() >= 1974 &&
           arguments.plan.today.year() < 2050;
}

constexpr Option options[] = {
    {u"--ciselniky", false,
     [](const QString& value, Arguments& arguments) {
         arguments.listsFolder = value;
         return true;
     }},
    {u"--ukazka", true,
     [](const QString& value, Arguments& arguments) {
         arguments.wordsFolder = value;
         return true;
     }},
    {u"--klienti", true, storeClients},
    {u"--semeno", true, storeSeed},
    {u"--dnes", true, storeToday},
};

template <class Entry, std::size_t Size>
const Entry* find(const Entry (&entries)[Size], const QString& word) {
    for (const Entry& entry : entries) {
        if (word == QStringView(entry.word))
            return &entry;
    }
    return nullptr;
}

/// Takes the option that stands at `index` and its value. @return what is wrong, empty if nothing
QString takeOption(const QStringList& words, qsizetype index, Arguments& arguments) {
    const Option* option = find(options, words[index]);
    const bool known =
        option != nullptr && (arguments.command == Command::Sample ||
                              (arguments.command == Command::Empty && !option->ofSample));
    if (!known)
        return QStringLiteral("Neznáma voľba %1.").arg(words[index]);
    if (index + 1 >= words.size())
        return QStringLiteral("Za voľbou %1 chýba hodnota.").arg(words[index]);
    if (!option->store(words[index + 1], arguments))
        return QStringLiteral("Hodnota %1 sa nehodí k voľbe %2.")
            .arg(words[index + 1], words[index]);
    return {};
}

} // namespace

QString usage() {
    return QStringLiteral(
        "Použitie:\n"
        "  mkdb prazdna <súbor.mdb> [--ciselniky PRIEČINOK]\n"
        "  mkdb ukazka <súbor.mdb> [--klienti 300] [--semeno 1] [--dnes D.M.RRRR]\n"
        "              [--ciselniky PRIEČINOK] [--ukazka PRIEČINOK]\n"
        "  mkdb ciselniky <súbor.mdb> <PRIEČINOK>\n"
        "  mkdb prevod <pôvodný.mdb> <nový.mdb>\n"
        "  mkdb vyvoz <súbor.mdb> <PRIEČINOK>\n"
        "  mkdb dovoz <PRIEČINOK> <nový.mdb>\n");
}

std::optional<Arguments> readArguments(const QStringList& words, const QString& dataFolder,
                                       const QDate& today, QString& problem) {
    Arguments arguments;
    arguments.listsFolder = dataFolder + QStringLiteral("/ciselniky");
    arguments.wordsFolder = dataFolder + QStringLiteral("/ukazka");
    arguments.plan.today = today;
    const Verb* verb = words.isEmpty() ? nullptr : find(verbs, words[0]);
    const int operands = verb != nullptr && verb->second != nullptr ? 2 : 1;
    if (verb == nullptr || words.size() <= operands) {
        problem = QStringLiteral("Chýba príkaz alebo súbor.");
        return std::nullopt;
    }
    arguments.command = verb->command;
    arguments.file = words[1];
    if (verb->second != nullptr)
        arguments.*verb->second = words[2];
    for (qsizetype index = 1 + operands; index < words.size() && problem.isEmpty(); index += 2)
        problem = takeOption(words, index, arguments);
    return problem.isEmpty() ? std::optional(arguments) : std::nullopt;
}

} // namespace mkdb
