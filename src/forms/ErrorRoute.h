#pragma once

#include "store/EngineError.h"

#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

class QWidget;

namespace store {
class DBEngine;
}

namespace forms {

/// What the user typed and the row could not take.
struct NotWritten {
    /// Empty when the row as a whole was refused.
    QString column;
    QString typed;
    store::EngineError error;
};

/// The one way of an engine's error from a window to its user. An exception must not travel through
/// Qt: whatever Qt calls runs by perform() when the user does it, by show() when the window itself
/// reads. Of all that fails in one go the first error is told, once and by one box.
class ErrorRoute : public QObject {
    Q_OBJECT
  public:
    /// The route of the widget's window, with which it ends.
    static ErrorRoute& of(QWidget& widget);

    /// What an action wrote that an error has ended is undone in this engine before it is told.
    void undoIn(store::DBEngine& engine) { engine_ = &engine; }

    /// Runs an action of the user, or a step of the one that runs already. An error ends it alone.
    /// The first one is told when the outermost action has ended.
    /// @return false when it was ended by an error
    bool perform(const std::function<void()>& action);
    /// Runs what shows rows: in a slot, an event or a paint. An error is told with those of the
    /// action that runs; without one, when the program next waits, and then readFailed() follows.
    /// @return false when it was ended by an error
    bool show(const std::function<void()>& reads);
    /// Ends the running action at its next writing, or tells the error at its end.
    void fail(const store::EngineError& error) { keep(error, false); }
    /// Keeps what the running action goes on without. All of it is told in one box at the end of
    /// the action. Without what the medium refuses no action goes on: that is an error.
    void passOver(NotWritten refused);
    /// What was passed over so far is undone with all else that the action wrote.
    void forgetPassedOver() { notWritten_.clear(); }
    bool hasPassedOver() const { return !notWritten_.empty(); }
    /// Of what was passed over, a whole row is.
    bool passedOverRow() const;
    /// What has failed in the running action so far; it is not told then.
    std::optional<store::EngineError> takeError();

  Q_SIGNALS:
    /// Rows on show could not be read, and the user knows.
    void readFailed(const store::EngineError& error);

  private:
    explicit ErrorRoute(QWidget* window);
    bool run(const std::function<void()>& action, bool reads);
    void keep(const store::EngineError& error, bool isRead);
    void tellSoon();
    void tell();
    void tellError();
    void tellNotWritten();

    QWidget* window_;
    store::DBEngine* engine_ = nullptr;
    int depth_ = 0;
    std::optional<store::EngineError> error_;
    std::vector<NotWritten> notWritten_;
    bool isRead_ = false;
    bool telling_ = false;
};

} // namespace forms
