#pragma once

#include "oldregister/Messages.h"
#include "store/Process.h"

#include <QProcess>

#include <functional>

namespace oldregister {

/// What the reading process may take.
struct ReaderLimits {
    store::ProcessLimits process{.megabytes = 120, .processorSeconds = 120};
    int silentSeconds = 20;
};

/// Asked while the program waits and between rows; the reading is given up on false.
using GoOn = std::function<bool()>;

/// Reads a file of the old format through a process of its own: see runAsReader. The process ends
/// with the reader.
class OldReader {
  public:
    /// @throws store::EngineError when the process can't be started
    OldReader(const QString& path, GoOn goOn, const ReaderLimits& limits = {});
    ~OldReader();
    Q_DISABLE_COPY_MOVE(OldReader)

    /// The next message; waits for it.
    /// @throws store::EngineError 3343 with the reason when the process refused the file, ended
    /// early or took too long; store::GivenUp
    Message next();

  private:
    void receive();
    [[noreturn]] void fail(const QString& why) const;

    QString path_;
    GoOn goOn_;
    ReaderLimits limits_;
    QProcess process_;
    QByteArray received_;
};

} // namespace oldregister
