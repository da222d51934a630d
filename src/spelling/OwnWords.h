#pragma once

#include "store/EngineError.h"

#include <QStringList>

namespace spelling {

/// The words that the user has added to the dictionary: a file in UTF-8, a word a line, in the
/// order of the register's texts, that its owner alone can read.
class OwnWords {
  public:
    /// @param path the file; it is made with the first word
    explicit OwnWords(QString path) : path_(std::move(path)) {}

    const QString& path() const { return path_; }
    /// @throws store::EngineError when the file can't be read, or is none of words
    QStringList read() const;
    /// Puts a word into the file, in one step: it is wholly the old or wholly the new one. What
    /// was written into it meanwhile stays.
    /// @throws store::EngineError as read(), and when the file can't be written
    void add(const QString& word) const;

  private:
    QString path_;
};

} // namespace spelling
