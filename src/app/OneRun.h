#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <QString>

namespace app {

/// Sees to it that one program at a time has a register open. The register is taken by a lock on a
/// file beside it, which the system lets go of when its program ends, however that happens.
class OneRun : public QObject {
    Q_OBJECT
  public:
    enum class Outcome {
        /// The register is taken until the end of this object; or nothing can be written there.
        Taken,
        /// Another program of this user, on this computer, has it and has shown its window.
        Shown,
        /// Somebody else has it, or somewhere else.
        Held
    };

    explicit OneRun(const QString& database);

    /// Waits for a program that is just ending.
    Outcome take();
    /// Who has the register, in words.
    QString holder() const;

    /// This program is ending and has no window to show: other starts wait for its end.
    void stopAnswering() { server_.close(); }

  Q_SIGNALS:
    /// Another start asks for the window of this one.
    void windowAsked();

  private:
    bool lock();
    bool isHeldHere() const;
    bool askForWindow() const;
    void answer();

    QString path_;
    QString serverName_;
    QLockFile lock_;
    QLocalServer server_;
};

} // namespace app
