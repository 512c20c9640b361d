#pragma once

#include <QVariant>

typedef struct _ArvGcFeatureNode ArvGcFeatureNode;
typedef struct _GError GError;

namespace Backend {

// Hands a checked value to Aravis, by the parameter type of the node. Device thread only.
class NodeWriter {
public:
    // False when the type takes no value; otherwise Aravis's answer is in `error`.
    static bool write(ArvGcFeatureNode* feature, int type, const QVariant& value, GError** error);
};

} // namespace Backend
