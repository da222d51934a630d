#include "oldregister/OldReader.h"

#include "oldregister/ReaderMain.h"
#include "store/EngineError.h"
#include "store/Progress.h"

#include <QElapsedTimer>

namespace oldregister {

namespace {

constexpr int sliceMs = 50;
constexpr qint64 readAhead = 1'000'000;

/// The library lets these change what it reads.
QProcessEnvironment plainEnvironment() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char16_t* name : {u"MDBOPTS", u"MDBICONV", u"MDB_JET3_CHARSET", u"MDBPATH"})
        environment.remove(QString::fromUtf16(name));
    return environment;
}

} // namespace

OldReader::OldReader(const QString& path, GoOn goOn, const ReaderLimits& limits)
    : path_(path), goOn_(std::move(goOn)), limits_(limits) {
    process_.setProcessEnvironment(plainEnvironment());
    process_.setStandardErrorFile(QProcess::nullDevice());
    process_.setStandardInputFile(QProcess::nullDevice());
    process_.setReadChannel(QProcess::StandardOutput);
    process_.setChildProcessModifier([limits = limits_.process] { store::confineProcess(limits); });
    process_.start(QStringLiteral("/proc/self/exe"), {QString::fromLatin1(readerWord), path},
                   QIODevice::ReadOnly);
    if (!process_.waitForStarted())
        throw store::EngineError(store::ErrorNumber::Internal,
                                 QStringLiteral("Čítanie pôvodného súboru sa nedá spustiť."), path);
}

OldReader::~OldReader() {
    process_.kill();
    process_.waitForFinished();
}

void OldReader::fail(const QString& why) const {
    throw store::EngineError(store::ErrorNumber::UnrecognizedFile, why, path_);
}

Message OldReader::next() {
    try {
        for (;;) {
            if (auto message = takeMessage(received_)) {
                if (const auto* refusal = std::get_if<Refusal>(&*message))
                    fail(refusal->why);
                return std::move(*message);
            }
            receive();
        }
    } catch (const BadMessage&) {
        fail(QStringLiteral("Súbor je poškodený: pri čítaní vyšli nezmyselné údaje."));
    }
}

void OldReader::receive() {
    QElapsedTimer silence;
    silence.start();
    while (process_.bytesAvailable() == 0 && !process_.waitForReadyRead(sliceMs)) {
        if (goOn_ && !goOn_())
            throw store::GivenUp();
        if (process_.state() == QProcess::NotRunning && process_.bytesAvailable() == 0)
            fail(QStringLiteral("Súbor je poškodený: jeho čítanie sa predčasne skončilo."));
        if (silence.hasExpired(qint64{limits_.silentSeconds} * 1000))
            fail(QStringLiteral("Súbor sa nedá prečítať: čítanie sa zastavilo."));
    }
    received_ += process_.read(readAhead);
}

} // namespace oldregister
