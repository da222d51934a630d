#include "app/OneRun.h"

#include "store/Files.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QFileInfo>
#include <QLocalSocket>
#include <QSysInfo>
#include <QThread>

namespace app {

namespace {

/// Longer than the longest exit.
constexpr int patienceMs = 20000;
constexpr int answerMs = 10000;
constexpr unsigned long pauseMs = 100;

QString lockFileOf(const QString& database) {
    const QFileInfo info(database);
    const QString behindLinks = info.canonicalFilePath();
    return (behindLinks.isEmpty() ? info.absoluteFilePath() : behindLinks) +
           QStringLiteral(".zamok");
}

QString serverNameOf(const QString& lockFile) {
    const auto hash = QCryptographicHash::hash(lockFile.toUtf8(), QCryptographicHash::Sha256);
    return QStringLiteral("tvk-") + QString::fromLatin1(hash.toHex().first(24));
}

} // namespace

OneRun::OneRun(const QString& database)
    : path_(lockFileOf(database)), serverName_(serverNameOf(path_)), lock_(path_) {
    // Only the system tells whether a lock is held; its age and the number of its process do not.
    lock_.setStaleLockTime(0);
    server_.setSocketOptions(QLocalServer::AbstractNamespaceOption);
    connect(&server_, &QLocalServer::newConnection, this, &OneRun::answer);
}

OneRun::Outcome OneRun::take() {
    for (QDeadlineTimer patience(patienceMs); !patience.hasExpired(); QThread::msleep(pauseMs)) {
        if (lock() || lock_.error() != QLockFile::LockFailedError) {
            server_.listen(serverName_);
            return Outcome::Taken;
        }
        if (!isHeldHere())
            return Outcome::Held;
        if (askForWindow())
            return Outcome::Shown;
    }
    return Outcome::Held;
}

bool OneRun::lock() {
    return lock_.tryLock(0) || (lock_.removeStaleLockFile() && lock_.tryLock(0));
}

bool OneRun::isHeldHere() const {
    qint64 process = 0;
    QString computer;
    QString program;
    // A lock that is gone by now can be taken.
    return !lock_.getLockInfo(&process, &computer, &program) ||
           (computer == QSysInfo::machineHostName() && store::isOwnFile(path_));
}

QString OneRun::holder() const {
    qint64 process = 0;
    QString computer;
    QString program;
    lock_.getLockInfo(&process, &computer, &program);
    const QString user = QFileInfo(path_).owner();
    const QString who = user.isEmpty() ? QStringLiteral("niekto") : user;
    return computer.isEmpty() ? who : QStringLiteral("%1 (počítač %2)").arg(who, computer);
}

bool OneRun::askForWindow() const {
    QLocalSocket socket;
    socket.setSocketOptions(QLocalSocket::AbstractNamespaceOption);
    socket.connectToServer(serverName_);
    // A program that ends before it has answered closes the connection.
    return socket.waitForConnected(answerMs) && socket.waitForReadyRead(answerMs);
}

void OneRun::answer() {
    while (QLocalSocket* socket = server_.nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        Q_EMIT windowAsked();
        socket->write("1");
        socket->flush();
        socket->disconnectFromServer();
    }
}

} // namespace app
