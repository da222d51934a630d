#pragma once

#include <QByteArrayView>

namespace store {

/// What a process may take.
struct ProcessLimits {
    int megabytes = 0;
    int processorSeconds = 0;
};

/// Binds this process to its limits for good: it writes no file, leaves no core, ends with its
/// parent. Allocates nothing, so that it may run between fork and exec.
void confineProcess(const ProcessLimits& limits);

/// The pipe that standard output was; what others print goes nowhere from then on.
class OutputPipe {
  public:
    OutputPipe();
    /// @return false when nobody listens any more
    bool write(QByteArrayView bytes) const;

  private:
    int number_;
};

} // namespace store
