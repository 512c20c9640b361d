#pragma once

#include <featureset.h>
#include <featuresettransfer.h>

#include <QUndoCommand>

namespace VantoViewer {

// A feature set loaded into a camera, as one undo step: what every feature the load changed
// held before it, and what the load gave it, each as a feature set that the transfer writes
// back on the device thread. Selected features are kept under their selector values, and a
// selector the load moved is a line of its own, so that the transfer puts the selectors back
// last. Like every step, it writes nothing itself.
class FeatureSetLoadCommand : public QUndoCommand {
public:
    FeatureSetLoadCommand(const QString& text,
                          const Backend::FeatureSetTransfer::LoadReport& report);

    void undo() override {}
    void redo() override {}

    // The values before the load, and those it wrote: one line per feature and selector value.
    const Backend::FeatureSet& before() const { return m_before; }
    const Backend::FeatureSet& after() const { return m_after; }
    int featureCount() const { return m_before.lines.size(); }

private:
    Backend::FeatureSet m_before;
    Backend::FeatureSet m_after;
};

} // namespace VantoViewer
