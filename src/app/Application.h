#pragma once

#include "forms/TextSize.h"
#include "store/EngineError.h"

#include <QApplication>

#include <functional>
#include <optional>

namespace app {

/// The application with the last-resort report: an error that nobody handled gives up what it
/// stopped, is told to the user, and the program goes on.
class Application : public QApplication {
    Q_OBJECT
  public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
    /// Runs this action, and no earlier one, each time before the program waits for its user,
    /// message boxes included. It must not let the program wait.
    void beforeWaiting(std::function<void()> action);

  private:
    void runReporting(const std::function<void()>& action);
    void report(const store::EngineError& error);

    std::optional<forms::TextSize> textSize_;
    QMetaObject::Connection beforeWaiting_;
    bool reporting_ = false;
};

} // namespace app
