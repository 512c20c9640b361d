#pragma once

#include <genapi/genapitypes.h>
#include <parametercollection/parameterdata.h>

#include <QHash>
#include <QMetaType>
#include <QString>
#include <QVector>

#include <memory>

namespace Backend {

// What a node is, read once when its node map is opened. Never changes afterwards.
struct NodeInfo {
    QString fullName;    // "@CameraDevice/Width"
    QString featureName; // "Width"
    QString nodeType;    // the GenICam element: "Integer", "IntReg", "Category", ...
    int type = ParameterCollection::UnknownType;
    QVector<int> children; // categories: their features, cycles removed
    QString displayName;
    QString toolTip;
    QString description;
    GenApi::EVisibility visibility = GenApi::Beginner;
    QString imposedAccessMode; // "RO", "RW", "WO" or empty
    QString representation;
    QString unit;
    int displayNotation = 0;
    int displayPrecision = 6;
    int pollingTime = 0;            // effective, milliseconds; 0 = not polled
    QVector<int> selectedFeatures;  // pSelected targets
    QVector<int> selectingFeatures; // the selectors of this node
    bool cyclic = false;            // takes part in or depends on a reference cycle
    // The node's Streamable property: part of a saved configuration, or not; Unset where the
    // description says nothing.
    enum class Streamable : signed char { Unset, No, Yes };
    Streamable streamable = Streamable::Unset;
    // Why the node is never evaluated: its definition, or that of a node it evaluates, is
    // absurd (a register longer than can be read). Empty for a sound node.
    QString defect;
};

// The immutable structure of one node map. Shared between the device thread, which builds
// it, and the GUI thread, which answers every structural question from it.
class NodeMapStructure {
public:
    QString name;   // "CameraDevice"
    QString prefix; // "@CameraDevice"
    QVector<NodeInfo> nodes;
    QHash<QString, int> byFeatureName;
    int rootIndex = -1;
    QStringList problems; // structural defects found while reading, such as cycles

    int indexOf(const QString& featureName) const { return byFeatureName.value(featureName, -1); }
    // Bytes held beyond the Aravis document, for the memory benchmark.
    qint64 approximateBytes() const;
};

using NodeMapStructurePtr = std::shared_ptr<const NodeMapStructure>;

// One re-read value, as the device thread hands it to the GUI thread.
struct PublishedData {
    int node = -1;
    ParameterCollection::ParameterDataPtr data;
};

} // namespace Backend

Q_DECLARE_METATYPE(Backend::NodeMapStructurePtr)
Q_DECLARE_METATYPE(QVector<Backend::PublishedData>)
