#pragma once

#include <QString>

#include <functional>
#include <stop_token>
#include <thread>

namespace store {

/// A full check of a register in a thread of its own, while the program works on it. It takes no
/// lock and so holds up no write; what looks damaged while something is written is looked at again.
class BackgroundCheck {
  public:
    /// @param path as its connection has it: without links
    /// @param damaged called once, in the thread of the check, when the file is damaged
    /// @param otherwise called there once when it is not: true when all of it has been read
    BackgroundCheck(QString path, std::function<void()> damaged,
                    std::function<void(bool)> otherwise = {});

  private:
    void run(const std::stop_token& stop) const;

    QString path_;
    std::function<void()> damaged_;
    std::function<void(bool)> otherwise_;
    /// Its end stops the check and waits for it.
    std::jthread thread_;
};

} // namespace store
