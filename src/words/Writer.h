#pragma once

#include "words/Kept.h"

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace words {

/// Keeps a file as the words are, from a thread of its own: who types waits for no disk. Of what is
/// asked for while it writes only the last is written next.
class Writer {
  public:
    /// Called in the writer's thread after each writing, with why it failed, or an empty text.
    using Told = std::function<void(const QString& fault)>;

    Writer(QString path, Told told) : path_(std::move(path)), told_(std::move(told)) {}
    /// Waits until the last is written.
    ~Writer();
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    /// The file is gone when there are none.
    void write(KeptWords kept);

  private:
    void run();

    const QString path_;
    const Told told_;
    std::mutex mutex_;
    std::condition_variable asked_;
    std::optional<KeptWords> next_;
    bool ends_ = false;
    /// Begins with the first writing.
    std::thread thread_;
};

} // namespace words
