#include <arv.h>

#include "structurebuilder.h"

#include "nodereader.h"

#include <QHash>

using namespace ParameterCollection;

namespace Backend {

namespace {

GenApi::EVisibility toVisibility(ArvGcVisibility v)
{
    switch (v) {
    case ARV_GC_VISIBILITY_EXPERT:
        return GenApi::Expert;
    case ARV_GC_VISIBILITY_GURU:
        return GenApi::Guru;
    case ARV_GC_VISIBILITY_INVISIBLE:
        return GenApi::Invisible;
    default:
        return GenApi::Beginner;
    }
}

QString representationText(ArvGcRepresentation r)
{
    switch (r) {
    case ARV_GC_REPRESENTATION_LINEAR:
        return QStringLiteral("Linear");
    case ARV_GC_REPRESENTATION_LOGARITHMIC:
        return QStringLiteral("Logarithmic");
    case ARV_GC_REPRESENTATION_BOOLEAN:
        return QStringLiteral("Boolean");
    case ARV_GC_REPRESENTATION_HEX_NUMBER:
        return QStringLiteral("HexNumber");
    case ARV_GC_REPRESENTATION_IPV4_ADDRESS:
        return QStringLiteral("IPV4Address");
    case ARV_GC_REPRESENTATION_MAC_ADDRESS:
        return QStringLiteral("MACAddress");
    default:
        // GenICam's default for numbers.
        return QStringLiteral("PureNumber");
    }
}

QString accessText(ArvGcAccessMode m)
{
    switch (m) {
    case ARV_GC_ACCESS_MODE_RO:
        return QStringLiteral("RO");
    case ARV_GC_ACCESS_MODE_WO:
        return QStringLiteral("WO");
    case ARV_GC_ACCESS_MODE_RW:
        return QStringLiteral("RW");
    default:
        return QString();
    }
}

} // namespace

int StructureBuilder::typeOfElement(const char* element)
{
    static const QHash<QByteArray, int> types = {
        {"Integer", IntegerType},
        {"IntReg", IntegerType},
        {"MaskedIntReg", IntegerType},
        {"IntSwissKnife", IntegerType},
        {"IntConverter", IntegerType},
        {"StructEntry", IntegerType},
        {"Float", FloatType},
        {"FloatReg", FloatType},
        {"SwissKnife", FloatType},
        {"Converter", FloatType},
        {"String", StringType},
        {"StringReg", StringType},
        {"Boolean", BooleanType},
        {"Command", CommandType},
        {"Enumeration", EnumerationType},
        {"Category", CategoryType},
        {"Register", RegisterType},
        {"StructReg", RegisterType},
    };
    return types.value(QByteArray(element), UnknownType);
}

StructureBuilder::StructureBuilder(ArvGc* genicam, const QString& name) : m_genicam(genicam)
{
    m_result.structure = std::make_shared<NodeMapStructure>();
    m_structure = m_result.structure.get();
    m_structure->name = name;
    m_structure->prefix = QLatin1Char('@') + name;
}

StructureBuilder::Result StructureBuilder::build()
{
    collect(ARV_DOM_NODE(arv_dom_document_get_document_element(ARV_DOM_DOCUMENT(m_genicam))));
    const int n = m_result.nodes.size();
    m_structure->nodes.resize(n);
    m_result.graph = NodeMapGraph(n);
    m_result.commandTargets.fill(nullptr, n);
    m_result.commandValues.fill(1, n);
    for (int i = 0; i < n; ++i) {
        describe(i);
        link(i, ARV_DOM_NODE(m_result.nodes[i]));
        linkStructEntry(i);
        linkCategory(i);
        checkDefinition(i);
        const QVector<int>& targets = m_result.graph.valueTargets(i);
        if (m_structure->nodes[i].type == CommandType && !targets.isEmpty()) {
            m_result.commandTargets[i] = ARV_GC_NODE(m_result.nodes[targets.first()]);
        }
    }
    m_structure->rootIndex = m_structure->indexOf(QStringLiteral("Root"));
    m_result.graph.finish();
    publishGraph();
    return std::move(m_result);
}

void StructureBuilder::collect(ArvDomNode* parent)
{
    // Every named feature node, in document order. Groups are transparent; StructEntry
    // nodes sit inside their StructReg.
    for (ArvDomNode* child = arv_dom_node_get_first_child(parent); child != nullptr;
         child = arv_dom_node_get_next_sibling(child)) {
        if (ARV_IS_GC_ENUM_ENTRY(child) || ARV_IS_GC_PORT(child)) {
            continue;
        }
        if (ARV_IS_GC_FEATURE_NODE(child)) {
            auto* feature = ARV_GC_FEATURE_NODE(child);
            const char* name = arv_gc_feature_node_get_name(feature);
            if (name != nullptr && !m_structure->byFeatureName.contains(QString::fromUtf8(name))) {
                m_structure->byFeatureName.insert(QString::fromUtf8(name), m_result.nodes.size());
                m_result.nodes.append(feature);
            }
            collect(child);
        } else if (ARV_IS_GC_GROUP_NODE(child)) {
            collect(child);
        }
    }
}

int StructureBuilder::indexOf(ArvGcNode* node) const
{
    if (node == nullptr || !ARV_IS_GC_FEATURE_NODE(node)) {
        return -1;
    }
    const char* name = arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(node));
    return name == nullptr ? -1 : m_structure->indexOf(QString::fromUtf8(name));
}

void StructureBuilder::describe(int node)
{
    ArvGcFeatureNode* feature = m_result.nodes[node];
    NodeInfo& info = m_structure->nodes[node];
    info.featureName = QString::fromUtf8(arv_gc_feature_node_get_name(feature));
    info.fullName = m_structure->prefix + QLatin1Char('/') + info.featureName;
    const char* element = arv_dom_node_get_node_name(ARV_DOM_NODE(feature));
    info.nodeType = QString::fromLatin1(element);
    info.type = typeOfElement(element);
    const char* displayName = arv_gc_feature_node_get_display_name(feature);
    info.displayName = displayName != nullptr ? QString::fromUtf8(displayName) : info.featureName;
    info.toolTip = QString::fromUtf8(arv_gc_feature_node_get_tooltip(feature));
    info.description = QString::fromUtf8(arv_gc_feature_node_get_description(feature));
    info.visibility = toVisibility(arv_gc_feature_node_get_visibility(feature));
    info.imposedAccessMode = accessText(arv_gc_feature_node_get_imposed_access_mode(feature));
    describeNumber(node);
}

void StructureBuilder::describeNumber(int node)
{
    ArvGcFeatureNode* feature = m_result.nodes[node];
    NodeInfo& info = m_structure->nodes[node];
    if (info.type == IntegerType && ARV_IS_GC_INTEGER(feature)) {
        info.representation =
            representationText(arv_gc_integer_get_representation(ARV_GC_INTEGER(feature)));
        info.unit = QString::fromUtf8(arv_gc_integer_get_unit(ARV_GC_INTEGER(feature)));
    } else if (info.type == FloatType && ARV_IS_GC_FLOAT(feature)) {
        auto* number = ARV_GC_FLOAT(feature);
        info.representation = representationText(arv_gc_float_get_representation(number));
        info.unit = QString::fromUtf8(arv_gc_float_get_unit(number));
        switch (arv_gc_float_get_display_notation(number)) {
        case ARV_GC_DISPLAY_NOTATION_FIXED:
            info.displayNotation = FloatParameterData::Fixed;
            break;
        case ARV_GC_DISPLAY_NOTATION_SCIENTIFIC:
            info.displayNotation = FloatParameterData::Scientific;
            break;
        default:
            info.displayNotation = FloatParameterData::Automatic;
        }
        // A description may declare any precision: more digits than a double holds mean
        // nothing, and a count in the billions would cost seconds and gigabytes per value.
        info.displayPrecision =
            int(qBound<gint64>(0, arv_gc_float_get_display_precision(number), 17));
    }
}

void StructureBuilder::link(int node, ArvDomNode* parent)
{
    // Links sit in the node's own properties and in those of its enum entries.
    for (ArvDomNode* child = arv_dom_node_get_first_child(parent); child != nullptr;
         child = arv_dom_node_get_next_sibling(child)) {
        if (ARV_IS_GC_ENUM_ENTRY(child)) {
            link(node, child);
        } else if (ARV_IS_GC_PROPERTY_NODE(child)) {
            linkProperty(node, parent, child);
        }
    }
}

void StructureBuilder::linkProperty(int node, ArvDomNode* parent, ArvDomNode* child)
{
    auto* property = ARV_GC_PROPERTY_NODE(child);
    const ArvGcPropertyNodeType kind = arv_gc_property_node_get_node_type(property);
    const bool own = parent == ARV_DOM_NODE(m_result.nodes[node]);
    if (kind == ARV_GC_PROPERTY_NODE_TYPE_POLLING_TIME) {
        m_result.graph.setOwnPollingTime(node,
                                         int(arv_gc_property_node_get_int64(property, nullptr)));
        return;
    }
    if (kind == ARV_GC_PROPERTY_NODE_TYPE_STREAMABLE && own) {
        m_structure->nodes[node].streamable =
            arv_gc_property_node_get_streamable(property, ARV_GC_STREAMABLE_NO) ==
                    ARV_GC_STREAMABLE_YES
                ? NodeInfo::Streamable::Yes
                : NodeInfo::Streamable::No;
        return;
    }
    if (kind == ARV_GC_PROPERTY_NODE_TYPE_COMMAND_VALUE && own) {
        m_result.commandValues[node] = arv_gc_property_node_get_int64(property, nullptr);
        return;
    }
    if (kind <= ARV_GC_PROPERTY_NODE_TYPE_P_UNKNONW ||
        kind == ARV_GC_PROPERTY_NODE_TYPE_P_FEATURE || kind == ARV_GC_PROPERTY_NODE_TYPE_P_PORT) {
        return;
    }
    const int target = indexOf(arv_gc_property_node_get_linked_node(property));
    if (target < 0) {
        return;
    }
    NodeMapGraph& graph = m_result.graph;
    switch (kind) {
    case ARV_GC_PROPERTY_NODE_TYPE_P_SELECTED:
        graph.addSelected(node, target);
        break;
    case ARV_GC_PROPERTY_NODE_TYPE_P_INVALIDATOR:
        graph.addInvalidator(node, target);
        break;
    case ARV_GC_PROPERTY_NODE_TYPE_P_VALUE:
    case ARV_GC_PROPERTY_NODE_TYPE_P_VALUE_INDEXED:
    case ARV_GC_PROPERTY_NODE_TYPE_P_VALUE_DEFAULT:
        own ? graph.addValueTarget(node, target) : graph.addEvaluation(node, target);
        break;
    case ARV_GC_PROPERTY_NODE_TYPE_P_IS_IMPLEMENTED:
        own ? graph.addCondition(node, NodeMapGraph::Condition::Implemented, target)
            : graph.addEvaluation(node, target);
        break;
    case ARV_GC_PROPERTY_NODE_TYPE_P_IS_AVAILABLE:
        own ? graph.addCondition(node, NodeMapGraph::Condition::Available, target)
            : graph.addEvaluation(node, target);
        break;
    case ARV_GC_PROPERTY_NODE_TYPE_P_IS_LOCKED:
        own ? graph.addCondition(node, NodeMapGraph::Condition::Locked, target)
            : graph.addEvaluation(node, target);
        break;
    default:
        graph.addEvaluation(node, target);
    }
}

void StructureBuilder::linkStructEntry(int node)
{
    // A StructEntry is a view on its StructReg.
    ArvDomNode* parent = arv_dom_node_get_parent_node(ARV_DOM_NODE(m_result.nodes[node]));
    const int parentIndex = indexOf(ARV_IS_GC_NODE(parent) ? ARV_GC_NODE(parent) : nullptr);
    if (parentIndex >= 0) {
        m_result.graph.addValueTarget(node, parentIndex);
    }
}

void StructureBuilder::linkCategory(int node)
{
    if (m_structure->nodes[node].type != CategoryType) {
        return;
    }
    // The pFeature links as Aravis reads them, but straight from the document: Aravis's own
    // feature list appends each name at the end of a singly linked list, n^2/2 steps for a
    // category of n features.
    for (ArvDomNode* child = arv_dom_node_get_first_child(ARV_DOM_NODE(m_result.nodes[node]));
         child != nullptr; child = arv_dom_node_get_next_sibling(child)) {
        if (!ARV_IS_GC_PROPERTY_NODE(child) ||
            arv_gc_property_node_get_node_type(ARV_GC_PROPERTY_NODE(child)) !=
                ARV_GC_PROPERTY_NODE_TYPE_P_FEATURE) {
            continue;
        }
        const int feature =
            indexOf(arv_gc_property_node_get_linked_node(ARV_GC_PROPERTY_NODE(child)));
        if (feature >= 0) {
            m_result.graph.addCategoryChild(node, feature);
        }
    }
}

void StructureBuilder::checkDefinition(int node)
{
    // Aravis allocates a register's whole Length before it reads: a negative or absurd one
    // aborts the process or takes seconds and gigabytes. A literal Length is checked here,
    // before anything is evaluated; one taken from another node is checked when read.
    ArvGcFeatureNode* feature = m_result.nodes[node];
    if (!ARV_IS_GC_REGISTER_NODE(feature)) {
        return;
    }
    for (ArvDomNode* child = arv_dom_node_get_first_child(ARV_DOM_NODE(feature)); child != nullptr;
         child = arv_dom_node_get_next_sibling(child)) {
        if (!ARV_IS_GC_PROPERTY_NODE(child) ||
            arv_gc_property_node_get_node_type(ARV_GC_PROPERTY_NODE(child)) !=
                ARV_GC_PROPERTY_NODE_TYPE_LENGTH) {
            continue;
        }
        const QByteArray text =
            QByteArray(arv_gc_property_node_get_string(ARV_GC_PROPERTY_NODE(child), nullptr))
                .trimmed();
        bool ok = false;
        const qint64 length = text.toLongLong(&ok, 0);
        if (!ok || length < 0 || length > NodeReader::kMaxRegisterRead) {
            m_defects.insert(node, QStringLiteral("Its Length %1 is not a length that can be "
                                                  "read (0 to %2 bytes)")
                                       .arg(QString::fromUtf8(text))
                                       .arg(NodeReader::kMaxRegisterRead));
            m_result.graph.addDefect(node);
        }
    }
}

void StructureBuilder::publishGraph()
{
    const NodeMapGraph& graph = m_result.graph;
    for (int i = 0; i < m_structure->nodes.size(); ++i) {
        NodeInfo& info = m_structure->nodes[i];
        info.children = graph.children(i);
        info.cyclic = graph.isCyclic(i);
        info.pollingTime = graph.pollingTime(i);
        info.selectedFeatures = graph.selected(i);
        info.selectingFeatures = graph.selectors(i);
        const int defect = graph.defectSource(i);
        if (defect == i) {
            info.defect = m_defects.value(i);
        } else if (defect >= 0) {
            info.defect = QStringLiteral("It evaluates %1, whose definition can't be used: %2")
                              .arg(m_structure->nodes[defect].featureName, m_defects.value(defect));
        }
    }
    auto nameOf = [this](int node) { return m_structure->nodes[node].featureName; };
    for (const NodeMapGraph::Problem& p : graph.problems()) {
        switch (p.kind) {
        case NodeMapGraph::ProblemKind::CategoryContainsItself:
            m_structure->problems
                << QStringLiteral("Category %1 contains itself").arg(nameOf(p.node));
            break;
        case NodeMapGraph::ProblemKind::CategoryCycle:
            m_structure->problems << QStringLiteral("Category cycle through %1 and %2")
                                         .arg(nameOf(p.node), nameOf(p.other));
            break;
        case NodeMapGraph::ProblemKind::ReferenceCycle:
            m_structure->problems
                << QStringLiteral("%1 takes part in a reference cycle").arg(nameOf(p.node));
            break;
        }
    }
}

} // namespace Backend
