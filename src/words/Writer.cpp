#include "words/Writer.h"

#include "store/EngineError.h"
#include "store/Files.h"

#include <QFile>

namespace words {

namespace {

/// At any moment the file is wholly the old or wholly the new one. @throws store::EngineError
void replace(const QString& path, const QByteArray& bytes) {
    const QString made = path + QStringLiteral(".nove");
    QFile::remove(made);
    store::createPrivateFile(made);
    try {
        QFile file(made);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
            file.write(bytes) != bytes.size())
            throw store::EngineError(store::ErrorNumber::DiskFull, QStringLiteral("Disk je plný."),
                                     made);
        file.close();
        store::replaceFile(made, path);
    } catch (...) {
        QFile::remove(made);
        throw;
    }
}

void keepFile(const QString& path, const KeptWords& kept) {
    if (!kept.empty())
        return replace(path, toFile(kept));
    QFile file(path);
    if (file.exists() && !file.remove())
        throw store::EngineError(store::ErrorNumber::ReadOnly, file.errorString(), path);
}

} // namespace

Writer::~Writer() {
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    asked_.notify_one();
    if (thread_.joinable())
        thread_.join();
}

void Writer::write(KeptWords kept) {
    {
        const std::lock_guard lock(mutex_);
        next_ = std::move(kept);
    }
    if (!thread_.joinable())
        thread_ = std::thread([this] { run(); });
    asked_.notify_one();
}

void Writer::run() {
    std::unique_lock lock(mutex_);
    for (;;) {
        asked_.wait(lock, [this] { return next_ || ends_; });
        if (!next_)
            return;
        const KeptWords kept = *std::exchange(next_, std::nullopt);
        lock.unlock();
        QString fault;
        try {
            keepFile(path_, kept);
        } catch (const store::EngineError& error) {
            fault = error.description();
        }
        told_(fault);
        lock.lock();
    }
}

} // namespace words
