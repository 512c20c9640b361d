#pragma once

#include <QSharedPointer>
#include <QTextStream>

namespace ParameterCollection {
class IParameterCollection;
} // namespace ParameterCollection
namespace Plugin {
namespace CameraPool {
class IBaseInfo;
} // namespace CameraPool
} // namespace Plugin

namespace VantoViewer {

// `vantoviewer --dump`: prints an open camera's features and says on stderr, with a failing
// exit status, when what was printed is not the camera's present state because the camera
// went away before or during the dump.
class DumpCommand {
public:
    static constexpr int EXIT_OK = 0;
    static constexpr int EXIT_FAILED = 1;
    // How long the dump waits for the device thread's news before and after printing.
    static constexpr int SETTLE_TIMEOUT_MS = 10000;

    DumpCommand(QTextStream& out, QTextStream& err) : m_out(out), m_err(err) {}

    // Returns the process's exit status.
    int run(const Plugin::CameraPool::IBaseInfo& info,
            const QSharedPointer<ParameterCollection::IParameterCollection>& collection);

private:
    static void settle(ParameterCollection::IParameterCollection& collection);

    QTextStream& m_out;
    QTextStream& m_err;
};

} // namespace VantoViewer
