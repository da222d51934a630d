#include "store/BackgroundCheck.h"

#include "store/Connection.h"
#include "store/EngineError.h"
#include "store/OpenCheck.h"
#include "store/Watch.h"

#include <QDateTime>
#include <QFileInfo>

#include <chrono>
#include <optional>

namespace store {

namespace {

constexpr std::chrono::milliseconds pause(200);

/// When the file was last written; nothing while it is being written.
std::optional<QDateTime> lastWritten(const QString& path) {
    if (QFileInfo::exists(path + QStringLiteral("-journal")))
        return std::nullopt;
    return QFileInfo(path).lastModified();
}

bool looksSound(const QString& path, const std::stop_token& stop) {
    try {
        Connection connection(path, Connection::Access::Unlocked);
        connection.execute(roomForChecks);
        Watch(connection.handle(), [&stop] { return !stop.stop_requested(); }).run([&connection] {
            checkPages(connection);
        });
        return true;
    } catch (const GivenUp&) {
        return true;
    } catch (const EngineError& error) {
        // That a file can't be read is told by whatever needs it.
        return error.number() != ErrorNumber::UnrecognizedFile;
    }
}

} // namespace

BackgroundCheck::BackgroundCheck(QString path, std::function<void()> damaged)
    : path_(std::move(path)), damaged_(std::move(damaged)),
      thread_([this](const std::stop_token& stop) { run(stop); }) {}

void BackgroundCheck::run(const std::stop_token& stop) const {
    while (!stop.stop_requested()) {
        const auto before = lastWritten(path_);
        if (looksSound(path_, stop) || stop.stop_requested())
            return;
        if (before && before == lastWritten(path_))
            return damaged_();
        std::this_thread::sleep_for(pause);
    }
}

} // namespace store
