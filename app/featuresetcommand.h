#pragma once

#include <QString>
#include <QTextStream>

namespace ParameterCollection {
class IParameterCollection;
} // namespace ParameterCollection
namespace Backend {
class FeatureSet;
} // namespace Backend

namespace VantoViewer {

// `vantoviewer --load-features FILE`, `--save-features FILE` and `--diff-features A B`. Each
// returns the process's exit status; what went wrong is said on stderr.
class FeatureSetCommand {
public:
    static constexpr int EXIT_OK = 0;
    static constexpr int EXIT_FAILED = 1; // a line not applied, a file not written
    static constexpr int EXIT_DIFFER = 1;
    static constexpr int EXIT_UNREADABLE = 2;

    FeatureSetCommand(QTextStream& out, QTextStream& err) : m_out(out), m_err(err) {}

    // Writes every line that can be written; lists the others with their reasons.
    int load(ParameterCollection::IParameterCollection* camera, const QString& fileName);
    int save(ParameterCollection::IParameterCollection* camera, const QString& fileName);
    // `a` and `b` are files, or CommandLine::kCameraArgument for `camera`. Prints the features
    // that differ: name, A's value, B's value, and the side that alone has it.
    int diff(const QString& a, const QString& b, ParameterCollection::IParameterCollection* camera);

private:
    bool side(const QString& name, ParameterCollection::IParameterCollection* camera,
              Backend::FeatureSet* set);

    QTextStream& m_out;
    QTextStream& m_err;
};

} // namespace VantoViewer
