#include "nodemapstructure.h"

namespace Backend {

static qint64 stringBytes(const QString& s)
{
    // QString's shared header plus UTF-16 payload.
    return s.isNull() ? 0 : qint64(sizeof(QArrayData)) + 2 * (s.capacity() + 1);
}

qint64 NodeMapStructure::approximateBytes() const
{
    qint64 total = sizeof(*this) + qint64(nodes.capacity()) * qint64(sizeof(NodeInfo));
    for (const NodeInfo& n : nodes) {
        total += stringBytes(n.fullName) + stringBytes(n.featureName) + stringBytes(n.nodeType) +
                 stringBytes(n.displayName) + stringBytes(n.toolTip) + stringBytes(n.description) +
                 stringBytes(n.imposedAccessMode) + stringBytes(n.representation) +
                 stringBytes(n.unit);
        total += 4 * (n.children.capacity() + n.selectedFeatures.capacity() +
                      n.selectingFeatures.capacity());
    }
    // A hash node holds the key, the value and a next pointer.
    total += qint64(byFeatureName.size()) * qint64(sizeof(void*) * 2 + sizeof(QString) + 8);
    return total;
}

} // namespace Backend
