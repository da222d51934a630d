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

enum class Look : quint8 { Sound, Damaged, Unreadable };

Look lookAt(const QString& path, const std::stop_token& stop) {
    try {
        Connection connection(path, Connection::Access::Unlocked);
        connection.execute(roomForChecks);
        Watch(connection.handle(), [&stop] { return !stop.stop_requested(); }).run([&connection] {
            checkPages(connection);
        });
        return Look::Sound;
    } catch (const GivenUp&) {
        return Look::Unreadable;
    } catch (const EngineError& error) {
        return error.number() == ErrorNumber::UnrecognizedFile ? Look::Damaged : Look::Unreadable;
    }
}

} // namespace

BackgroundCheck::BackgroundCheck(QString path, std::function<void()> damaged,
                                 std::function<void(bool)> otherwise)
    : path_(std::move(path)), damaged_(std::move(damaged)), otherwise_(std::move(otherwise)),
      thread_([this](const std::stop_token& stop) { run(stop); }) {}

void BackgroundCheck::run(const std::stop_token& stop) const {
    while (!stop.stop_requested()) {
        const auto before = lastWritten(path_);
        const Look look = lookAt(path_, stop);
        if (stop.stop_requested())
            return;
        if (look != Look::Damaged) {
            // Without a listener, that a file can't be read is told by whatever needs it.
            if (otherwise_)
                otherwise_(look == Look::Sound);
            return;
        }
        if (before && before == lastWritten(path_))
            return damaged_();
        std::this_thread::sleep_for(pause);
    }
}

} // namespace store
