#include "backup/CopyInspection.h"

#include "backup/Unpacking.h"
#include "backup/Zip.h"
#include "store/Database.h"
#include "store/EngineError.h"

#include <QFileInfo>

namespace backup {

namespace {

/// A register that is unpacked for a while.
class Unpacked {
  public:
    explicit Unpacked(QString path) : path_(std::move(path)) { removeRegister(path_); }
    ~Unpacked() { removeRegister(path_); }
    Q_DISABLE_COPY_MOVE(Unpacked)
    const QString& path() const { return path_; }

  private:
    QString path_;
};

qint64 clientsIn(const QString& path) {
    // Another thread's engine may be at work.
    store::DBEngine engine;
    auto database = engine.OpenDatabase(path);
    return database.OpenRecordset(QStringLiteral("k_zaklad"))->RecordCount();
}

CopyState inspect(const QString& archive, const QString& unpacked,
                  const store::TellProgress& tell) {
    const store::Share checked(tell, 0.4, 1);
    unpackRegister(archive, {}, unpacked, store::Share(tell, 0, 0.4));
    store::DBEngine::verifyDatabase(unpacked,
                                    [&checked](double part) { return checked.tells(part); });
    return {CopyState::Kind::Sound, clientsIn(unpacked)};
}

} // namespace

CopyState inspectCopy(const QString& archive, const store::TellProgress& tell) {
    const Unpacked unpacked(QFileInfo(archive).absolutePath() + QStringLiteral("/kontrola.cast"));
    try {
        return inspect(archive, unpacked.path(), tell);
    } catch (const ZipEntry::Fault fault) {
        if (fault == ZipEntry::Fault::Locked)
            return {CopyState::Kind::Unknown, 0, QStringLiteral("je chránená heslom")};
        return {CopyState::Kind::Damaged};
    } catch (const store::EngineError& error) {
        if (error.number() == store::ErrorNumber::UnrecognizedFile)
            return {CopyState::Kind::Damaged};
        return {CopyState::Kind::Unknown, 0, error.description()};
    }
}

CopyInspection::CopyInspection(std::vector<QString> archives,
                               std::function<void(size_t place, const CopyState&)> seen)
    : archives_(std::move(archives)), seen_(std::move(seen)),
      thread_([this](const std::stop_token& stop) { run(stop); }) {}

void CopyInspection::run(const std::stop_token& stop) const {
    try {
        for (size_t place = 0; place < archives_.size(); ++place)
            seen_(place, inspectCopy(archives_[place],
                                     [&stop](double) { return !stop.stop_requested(); }));
    } catch (const store::GivenUp&) {
        // The window has gone.
    }
}

} // namespace backup
