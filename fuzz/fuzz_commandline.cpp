// Argument vectors as a shell or a desktop file might pass them, through the parser main() uses:
// every vector is understood or refused with a reason, and nothing crashes. The input is split
// into arguments at NUL bytes.
#include "commandline.h"

#include <QCoreApplication>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace {

QCoreApplication& application()
{
    static int argc = 1;
    static char name[] = "fuzz_commandline";
    static char* argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    return app;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    application();
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QStringList arguments{QStringLiteral("vantoviewer")};
    for (const QByteArray& argument : bytes.split('\0')) {
        arguments << QString::fromLocal8Bit(argument);
    }
    VantoViewer::CommandLine commandLine;
    if (!commandLine.parse(arguments)) {
        // A refusal always says why, and the usage can be shown with it.
        if (commandLine.errorText().isEmpty() || commandLine.helpText().isEmpty()) {
            __builtin_trap();
        }
        return 0;
    }
    if (!commandLine.simulate() && !commandLine.simulatedFile().isEmpty()) {
        __builtin_trap(); // a file is only ever read for --simulate
    }
    return 0;
}
