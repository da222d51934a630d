#include "Commands.h"
#include "oldregister/ReaderMain.h"
#include "store/EngineError.h"

#include <QCoreApplication>

#include <cstdio>
#include <exception>

namespace {

/// What the shell is told.
enum ExitCode { Done = 0, Failed = 1, Misused = 2 };

void print(std::FILE* stream, const QString& text) {
    std::fprintf(stream, "%s\n", qUtf8Printable(text));
}

int runOrComplain(const mkdb::Arguments& arguments) {
    try {
        print(stdout, mkdb::run(arguments));
        return Done;
    } catch (const store::EngineError& error) {
        print(stderr, QStringLiteral("Chyba %1: %2 %3")
                          .arg(static_cast<int>(error.number()))
                          .arg(error.description(), error.place()));
    } catch (const std::exception& error) {
        print(stderr, QStringLiteral("Chyba: ") + QString::fromUtf8(error.what()));
    }
    return Failed;
}

} // namespace

int main(int argc, char* argv[]) {
    if (const auto code = oldregister::runAsReader(argc, argv))
        return *code;
    const QCoreApplication application(argc, argv);
    QString problem;
    const auto arguments =
        mkdb::readArguments(QCoreApplication::arguments().mid(1), QStringLiteral(TVK_DATA_FOLDER),
                            QDate::currentDate(), problem);
    if (!arguments) {
        print(stderr, problem + u'\n' + mkdb::usage());
        return Misused;
    }
    return runOrComplain(*arguments);
}
