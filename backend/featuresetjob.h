#pragma once

#include "featureset.h"
#include "featuresettransfer.h"

#include <QMetaType>
#include <QObject>
#include <QString>

#include <atomic>
#include <memory>

namespace Backend {

class DeviceParameterCollection;

// Saves or loads a camera's feature set on its device thread while the window keeps
// answering; the outcome comes back by signal. One job, one transfer. The camera's own node
// map is the one transferred.
class FeatureSetJob : public QObject {
    Q_OBJECT
public:
    explicit FeatureSetJob(DeviceParameterCollection* collection, QObject* parent = nullptr);
    ~FeatureSetJob() override;

    void save();
    // Nothing is written unless the user asked for it: call only on a deliberate command.
    void load(const FeatureSet& set);
    // Reads and checks the file first: a broken one fails with the reason, nothing written.
    void loadFile(const QString& fileName);
    // The lines not yet written are reported as cancelled.
    void cancel();
    bool isRunning() const { return m_running; }

    // For the command line: the same, waiting with the event loop running. Throw
    // ParameterCollection::Exception when the camera can't be reached.
    static FeatureSet saveAndWait(DeviceParameterCollection* collection);
    static FeatureSetTransfer::LoadReport loadAndWait(DeviceParameterCollection* collection,
                                                      const FeatureSet& set);

Q_SIGNALS:
    void progress(int done, int total);
    void saved(const Backend::FeatureSet& set);
    void loaded(const Backend::FeatureSetTransfer::LoadReport& report);
    void failed(const QString& message);

private:
    struct Shared;
    bool begin();

    DeviceParameterCollection* m_collection; // not owned
    std::shared_ptr<Shared> m_shared;
    bool m_running = false;
};

} // namespace Backend

Q_DECLARE_METATYPE(Backend::FeatureSet)
Q_DECLARE_METATYPE(Backend::FeatureSetTransfer::LoadReport)
