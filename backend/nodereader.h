#pragma once

#include "nodemapstructure.h"

#include <parametercollection/parameterdata.h>

#include <QSharedPointer>
#include <QString>

typedef struct _ArvGcFeatureNode ArvGcFeatureNode;
typedef struct _ArvGcNode ArvGcNode;
typedef struct _GError GError;

namespace Backend {

// Reads one node through Aravis into a new snapshot: whether it is implemented, available and
// locked, its access mode as the node declares it, and its value. What can't be read is
// reported as an error with Aravis's reason; nothing is made up in its place. Device thread
// only; one reader per read.
class NodeReader {
public:
    // A command's pValue target and the value that executes it.
    struct Command {
        ArvGcNode* target = nullptr; // not owned
        qint64 value = 1;
    };

    NodeReader(ArvGcFeatureNode* feature, const NodeInfo& info, Command command);
    ~NodeReader();
    NodeReader(const NodeReader&) = delete;
    NodeReader& operator=(const NodeReader&) = delete;

    QSharedPointer<ParameterCollection::ParameterData> read();
    // The read ran into an error after which the device can't be trusted to answer.
    bool deviceFailed() const { return m_deviceFailed; }
    const QString& deviceFailure() const { return m_deviceFailure; }

    // An empty snapshot of the node's type, carrying what the structure knows.
    static QSharedPointer<ParameterCollection::ParameterData> newData(const NodeInfo& info);
    // The snapshot of a node whose value was never read because its device went away.
    static QSharedPointer<ParameterCollection::ParameterData>
    neverRead(ArvGcFeatureNode* feature, const NodeInfo& info, const QString& reason);
    // Registers longer than this are not read in one go.
    static constexpr qint64 kMaxRegisterRead = 16 * 1024 * 1024;

private:
    void readChecked(ParameterCollection::ParameterData& data);
    bool readConditions(ParameterCollection::ParameterData& data);
    void readAccess(ParameterCollection::ParameterData& data);
    bool commandTargetReadable() const;
    void readValue(ParameterCollection::ParameterData& data);
    void readInteger(ParameterCollection::ParameterData& data);
    void readFloat(ParameterCollection::ParameterData& data);
    void readBoolean(ParameterCollection::ParameterData& data);
    void readString(ParameterCollection::ParameterData& data);
    void readEnumeration(ParameterCollection::ParameterData& data);
    void readEntries(ParameterCollection::EnumParameterData& data);
    void readCommand(ParameterCollection::ParameterData& data);
    void readRegister(ParameterCollection::ParameterData& data);
    void readLimits(ParameterCollection::ParameterData& data);
    void readIntegerLimits(ParameterCollection::IntegerParameterData& data);
    void readFloatLimits(ParameterCollection::FloatParameterData& data);
    // Moves a pending error into the data; true when there was one.
    bool failed(ParameterCollection::ParameterData& data, const QString& context = QString());
    // A limit the description leaves out (no <Inc>, say) is no error of the value.
    bool limitFailed(ParameterCollection::ParameterData& data);

    ArvGcFeatureNode* m_feature; // not owned
    const NodeInfo& m_info;
    Command m_command;
    GError* m_error = nullptr;
    bool m_deviceFailed = false;
    QString m_deviceFailure;
};

} // namespace Backend
