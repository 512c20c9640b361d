#pragma once

#include "nodemapgraph.h"
#include "nodemapstructure.h"

#include <QHash>
#include <QVector>

#include <memory>

typedef struct _ArvGc ArvGc;
typedef struct _ArvDomNode ArvDomNode;
typedef struct _ArvGcFeatureNode ArvGcFeatureNode;
typedef struct _ArvGcNode ArvGcNode;

namespace Backend {

// Walks an Aravis node map once, at open, and takes from it what never changes: every feature
// node with its properties, and the links between them, which NodeMapGraph turns into the
// category tree, cycles, polling times and dependencies. Device thread only.
class StructureBuilder {
public:
    // The result; the Aravis nodes belong to the document, which must outlive it.
    struct Result {
        std::shared_ptr<NodeMapStructure> structure;
        NodeMapGraph graph;
        QVector<ArvGcFeatureNode*> nodes;
        QVector<ArvGcNode*> commandTargets; // a command's pValue target, or null
        QVector<qint64> commandValues;
    };

    StructureBuilder(ArvGc* genicam, const QString& name);
    Result build();

    // The parameter type of a GenICam element: "IntReg" is an integer, "StructReg" a register.
    static int typeOfElement(const char* element);

private:
    void collect(ArvDomNode* parent);
    void describe(int node);
    void describeNumber(int node);
    void link(int node, ArvDomNode* parent);
    void linkProperty(int node, ArvDomNode* parent, ArvDomNode* property);
    void linkStructEntry(int node);
    void linkCategory(int node);
    void checkDefinition(int node);
    int indexOf(ArvGcNode* node) const;
    void publishGraph();

    ArvGc* m_genicam; // not owned
    Result m_result;
    NodeMapStructure* m_structure = nullptr;
    QHash<int, QString> m_defects; // node: why its own definition can't be evaluated
};

} // namespace Backend
