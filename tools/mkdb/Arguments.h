#pragma once

#include "Register.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace mkdb {

enum class Command { Empty, Sample, ReplaceLists, TakeOver, Export, Import };

/// What the command line asks for.
struct Arguments {
    Command command = Command::Empty;
    QString file;
    QString listsFolder;
    QString wordsFolder;
    RegisterPlan plan;
    /// What is made of the file: a register or a folder.
    QString target{};
};

/// How the program is used, in Slovak.
QString usage();

/// Reads the command line without the program's name; nothing when it can't be read, and `problem`
/// says why in Slovak.
/// @param dataFolder where the code-lists and the words lie unless told otherwise
std::optional<Arguments> readArguments(const QStringList& words, const QString& dataFolder,
                                       const QDate& today, QString& problem);

} // namespace mkdb
