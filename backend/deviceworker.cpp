#include <arv.h>

#include "deviceworker.h"

#include "devicelogic.h"
#include "errormapping.h"
#include "simulateddevice.h"
#include "valuetext.h"

#include <QHash>
#include <QSet>
#include <QtMath>

#include <algorithm>
#include <cmath>

using namespace ParameterCollection;

namespace Backend {

namespace {

struct Link {
    int target;
    int kind; // ArvGcPropertyNodeType
};

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

int typeOfElement(const char* element)
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
    };
    return types.value(QByteArray(element), UnknownType);
}

} // namespace

struct DeviceWorker::NodeMap {
    QString name;
    QString prefix;
    ArvDevice* device = nullptr; // owned reference
    ArvGc* genicam = nullptr;    // the device's
    std::unique_ptr<SimulatedDevice> simulated;
    std::unique_ptr<DeviceLogic> logic;
    gulong controlLostHandler = 0;

    std::shared_ptr<NodeMapStructure> structure;
    QVector<ArvGcFeatureNode*> nodes;
    QVector<QVector<int>> dependents;   // who must be re-read when a node changes
    QVector<QVector<int>> valueTargets; // where a write to a node lands
    QVector<ArvGcNode*> commandRegister;
    QVector<qint64> commandValue;
    QVector<ParameterDataPtr> last;
};

static void onControlLost(ArvDevice*, gpointer userData)
{
    static_cast<DeviceWorker*>(userData)->markLost(
        QStringLiteral("The connection to the device was lost"));
}

DeviceWorker::DeviceWorker(QObject* parent) : QObject(parent)
{
    m_commandTimer = new QTimer(this);
    m_commandTimer->setInterval(20);
    connect(m_commandTimer, &QTimer::timeout, this, [this] {
        const auto running = m_runningCommands;
        for (const auto& command : running) {
            readNodes(command.first, {command.second}, true, false);
        }
    });
}

DeviceWorker::~DeviceWorker()
{
    for (auto& map : m_maps) {
        if (map->controlLostHandler != 0) {
            g_signal_handler_disconnect(map->device, map->controlLostHandler);
        }
        map->logic.reset();
        if (map->simulated) {
            map->simulated.reset(); // owns device and genicam
        } else if (map->device != nullptr) {
            g_object_unref(map->device);
        }
    }
}

void DeviceWorker::setLogicFactory(
    std::function<std::unique_ptr<DeviceLogic>(SimulatedDevice&)> factory)
{
    m_logicFactory = std::move(factory);
}

int DeviceWorker::attachSimulated(const QString& nodeMapName, const QByteArray& xml,
                                  const QString& defaults, QString* error)
{
    auto map = std::make_unique<NodeMap>();
    map->name = nodeMapName;
    try {
        map->simulated = std::make_unique<SimulatedDevice>(xml, nodeMapName);
    } catch (const Exception& e) {
        *error = e.text();
        return -1;
    }
    map->device = map->simulated->device();
    map->genicam = map->simulated->genicam();
    if (!defaults.isEmpty()) {
        const QStringList problems = map->simulated->applyDefaults(defaults);
        for (const QString& p : problems) {
            qWarning("%s defaults: %s", qPrintable(nodeMapName), qPrintable(p));
        }
    }
    if (m_logicFactory) {
        map->logic = m_logicFactory(*map->simulated);
    }
    map->simulated->resetCounters();
    return finishAttach(std::move(map), error);
}

int DeviceWorker::attachDevice(const QString& nodeMapName, ArvDevice* device, QString* error)
{
    auto map = std::make_unique<NodeMap>();
    map->name = nodeMapName;
    map->device = device;
    map->genicam = arv_device_get_genicam(device);
    if (map->genicam == nullptr) {
        g_object_unref(device);
        *error = QStringLiteral("[%1] the device has no GenICam description").arg(nodeMapName);
        return -1;
    }
    arv_device_set_register_cache_policy(device, ARV_REGISTER_CACHE_POLICY_ENABLE);
    map->controlLostHandler =
        g_signal_connect(device, "control-lost", G_CALLBACK(onControlLost), this);
    return finishAttach(std::move(map), error);
}

int DeviceWorker::finishAttach(std::unique_ptr<NodeMap> map, QString* error)
{
    Q_UNUSED(error);
    map->prefix = QLatin1Char('@') + map->name;
    buildStructure(*map);
    map->last.resize(map->nodes.size());
    bool deviceFailed = false;
    for (int i = 0; i < map->nodes.size(); ++i) {
        map->last[i] = readNode(*map, i, &deviceFailed);
    }
    m_maps.push_back(std::move(map));
    return int(m_maps.size()) - 1;
}

NodeMapStructurePtr DeviceWorker::structure(int map) const
{
    return m_maps.at(size_t(map))->structure;
}

QVector<ParameterDataPtr> DeviceWorker::snapshot(int map) const
{
    return m_maps.at(size_t(map))->last;
}

SimulatedDevice* DeviceWorker::simulatedDevice(int map) const
{
    if (map < 0 || size_t(map) >= m_maps.size()) {
        return nullptr;
    }
    return m_maps[size_t(map)]->simulated.get();
}

void DeviceWorker::buildStructure(NodeMap& map)
{
    auto structure = std::make_shared<NodeMapStructure>();
    structure->name = map.name;
    structure->prefix = map.prefix;

    // Every named feature node, in document order. Groups are transparent; StructEntry
    // nodes sit inside their StructReg.
    std::function<void(ArvDomNode*)> collect = [&](ArvDomNode* parent) {
        for (ArvDomNode* child = arv_dom_node_get_first_child(parent); child != nullptr;
             child = arv_dom_node_get_next_sibling(child)) {
            if (ARV_IS_GC_ENUM_ENTRY(child) || ARV_IS_GC_PORT(child)) {
                continue;
            }
            if (ARV_IS_GC_FEATURE_NODE(child)) {
                auto* feature = ARV_GC_FEATURE_NODE(child);
                const char* name = arv_gc_feature_node_get_name(feature);
                if (name != nullptr &&
                    !structure->byFeatureName.contains(QString::fromUtf8(name))) {
                    structure->byFeatureName.insert(QString::fromUtf8(name), map.nodes.size());
                    map.nodes.append(feature);
                }
                collect(child);
            } else if (ARV_IS_GC_GROUP_NODE(child)) {
                collect(child);
            }
        }
    };
    collect(ARV_DOM_NODE(arv_dom_document_get_document_element(ARV_DOM_DOCUMENT(map.genicam))));

    const int n = map.nodes.size();
    structure->nodes.resize(n);
    map.dependents.resize(n);
    map.valueTargets.resize(n);
    map.commandRegister.fill(nullptr, n);
    map.commandValue.fill(1, n);
    QVector<QVector<int>> evalEdges(n);
    QVector<int> ownPolling(n, 0);

    auto indexOfNode = [&](ArvGcNode* node) -> int {
        if (node == nullptr || !ARV_IS_GC_FEATURE_NODE(node)) {
            return -1;
        }
        const char* name = arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(node));
        return name == nullptr ? -1 : structure->byFeatureName.value(QString::fromUtf8(name), -1);
    };

    for (int i = 0; i < n; ++i) {
        ArvGcFeatureNode* feature = map.nodes[i];
        NodeInfo& info = structure->nodes[i];
        info.featureName = QString::fromUtf8(arv_gc_feature_node_get_name(feature));
        info.fullName = map.prefix + QLatin1Char('/') + info.featureName;
        const char* element = arv_dom_node_get_node_name(ARV_DOM_NODE(feature));
        info.nodeType = QString::fromLatin1(element);
        info.type = typeOfElement(element);
        const char* displayName = arv_gc_feature_node_get_display_name(feature);
        info.displayName =
            displayName != nullptr ? QString::fromUtf8(displayName) : info.featureName;
        info.toolTip = QString::fromUtf8(arv_gc_feature_node_get_tooltip(feature));
        info.description = QString::fromUtf8(arv_gc_feature_node_get_description(feature));
        info.visibility = toVisibility(arv_gc_feature_node_get_visibility(feature));
        info.imposedAccessMode = accessText(arv_gc_feature_node_get_imposed_access_mode(feature));
        if (info.type == IntegerType && ARV_IS_GC_INTEGER(feature)) {
            info.representation =
                representationText(arv_gc_integer_get_representation(ARV_GC_INTEGER(feature)));
            info.unit = QString::fromUtf8(arv_gc_integer_get_unit(ARV_GC_INTEGER(feature)));
        } else if (info.type == FloatType && ARV_IS_GC_FLOAT(feature)) {
            info.representation =
                representationText(arv_gc_float_get_representation(ARV_GC_FLOAT(feature)));
            info.unit = QString::fromUtf8(arv_gc_float_get_unit(ARV_GC_FLOAT(feature)));
            switch (arv_gc_float_get_display_notation(ARV_GC_FLOAT(feature))) {
            case ARV_GC_DISPLAY_NOTATION_FIXED:
                info.displayNotation = FloatParameterData::Fixed;
                break;
            case ARV_GC_DISPLAY_NOTATION_SCIENTIFIC:
                info.displayNotation = FloatParameterData::Scientific;
                break;
            default:
                info.displayNotation = FloatParameterData::Automatic;
            }
            info.displayPrecision = int(arv_gc_float_get_display_precision(ARV_GC_FLOAT(feature)));
        }

        // Links, found in the node's own properties and in those of its enum entries.
        std::function<void(ArvDomNode*)> links = [&](ArvDomNode* parent) {
            for (ArvDomNode* child = arv_dom_node_get_first_child(parent); child != nullptr;
                 child = arv_dom_node_get_next_sibling(child)) {
                if (ARV_IS_GC_ENUM_ENTRY(child)) {
                    links(child);
                    continue;
                }
                if (!ARV_IS_GC_PROPERTY_NODE(child)) {
                    continue;
                }
                auto* property = ARV_GC_PROPERTY_NODE(child);
                const ArvGcPropertyNodeType kind = arv_gc_property_node_get_node_type(property);
                if (kind == ARV_GC_PROPERTY_NODE_TYPE_POLLING_TIME) {
                    ownPolling[i] = int(arv_gc_property_node_get_int64(property, nullptr));
                    continue;
                }
                if (kind == ARV_GC_PROPERTY_NODE_TYPE_COMMAND_VALUE &&
                    parent == ARV_DOM_NODE(feature)) {
                    map.commandValue[i] = arv_gc_property_node_get_int64(property, nullptr);
                    continue;
                }
                if (kind <= ARV_GC_PROPERTY_NODE_TYPE_P_UNKNONW ||
                    kind == ARV_GC_PROPERTY_NODE_TYPE_P_FEATURE ||
                    kind == ARV_GC_PROPERTY_NODE_TYPE_P_PORT) {
                    continue;
                }
                const int target = indexOfNode(arv_gc_property_node_get_linked_node(property));
                if (target < 0) {
                    continue;
                }
                switch (kind) {
                case ARV_GC_PROPERTY_NODE_TYPE_P_SELECTED:
                    // The selected feature reads differently once its selector changes.
                    info.selectedFeatures.append(target);
                    map.dependents[i].append(target);
                    break;
                case ARV_GC_PROPERTY_NODE_TYPE_P_INVALIDATOR:
                    map.dependents[target].append(i);
                    break;
                default:
                    evalEdges[i].append(target);
                    map.dependents[target].append(i);
                    if (parent == ARV_DOM_NODE(feature) &&
                        (kind == ARV_GC_PROPERTY_NODE_TYPE_P_VALUE ||
                         kind == ARV_GC_PROPERTY_NODE_TYPE_P_VALUE_INDEXED ||
                         kind == ARV_GC_PROPERTY_NODE_TYPE_P_VALUE_DEFAULT)) {
                        map.valueTargets[i].append(target);
                    }
                }
            }
        };
        links(ARV_DOM_NODE(feature));

        // A StructEntry is a view on its StructReg.
        ArvDomNode* parentNode = arv_dom_node_get_parent_node(ARV_DOM_NODE(feature));
        const int parentIndex =
            indexOfNode(ARV_IS_GC_NODE(parentNode) ? ARV_GC_NODE(parentNode) : nullptr);
        if (parentIndex >= 0) {
            evalEdges[i].append(parentIndex);
            map.dependents[parentIndex].append(i);
            map.valueTargets[i].append(parentIndex);
        }
        if (info.type == CommandType && !map.valueTargets[i].isEmpty()) {
            map.commandRegister[i] = ARV_GC_NODE(map.nodes[map.valueTargets[i].first()]);
        }
    }

    for (int i = 0; i < n; ++i) {
        for (int target : structure->nodes[i].selectedFeatures) {
            structure->nodes[target].selectingFeatures.append(i);
        }
    }

    // Category children, with every cycle broken where it closes: expanding a category must
    // never lead back to itself.
    for (int i = 0; i < n; ++i) {
        if (structure->nodes[i].type != CategoryType) {
            continue;
        }
        for (const GSList* it = arv_gc_category_get_features(ARV_GC_CATEGORY(map.nodes[i]));
             it != nullptr; it = it->next) {
            const int child = structure->byFeatureName.value(
                QString::fromUtf8(static_cast<const char*>(it->data)), -1);
            if (child >= 0 && child != i) {
                structure->nodes[i].children.append(child);
            } else if (child == i) {
                structure->problems << QStringLiteral("Category %1 contains itself")
                                           .arg(structure->nodes[i].featureName);
            }
        }
    }
    structure->rootIndex = structure->indexOf(QStringLiteral("Root"));
    {
        QVector<char> onPath(n, 0);
        QVector<char> done(n, 0);
        std::function<void(int)> visit = [&](int c) {
            onPath[c] = 1;
            auto& children = structure->nodes[c].children;
            for (int k = children.size() - 1; k >= 0; --k) {
                const int child = children[k];
                if (onPath[child]) {
                    structure->problems << QStringLiteral("Category cycle through %1 and %2")
                                               .arg(structure->nodes[c].featureName,
                                                    structure->nodes[child].featureName);
                    children.remove(k);
                } else if (!done[child] && structure->nodes[child].type == CategoryType) {
                    visit(child);
                }
            }
            onPath[c] = 0;
            done[c] = 1;
        };
        for (int i = 0; i < n; ++i) {
            if (structure->nodes[i].type == CategoryType && !done[i]) {
                visit(i);
            }
        }
    }

    // Reference cycles would make Aravis recurse without end: find them (Tarjan, iterative)
    // and never evaluate a node that depends on one.
    {
        QVector<int> index(n, -1), low(n, 0);
        QVector<char> onStack(n, 0);
        QVector<int> stack;
        int counter = 0;
        QVector<char> cyclic(n, 0);
        for (int start = 0; start < n; ++start) {
            if (index[start] >= 0) {
                continue;
            }
            QVector<QPair<int, int>> work{{start, 0}};
            while (!work.isEmpty()) {
                auto& [v, edge] = work.last();
                if (edge == 0 && index[v] < 0) {
                    index[v] = low[v] = counter++;
                    stack.append(v);
                    onStack[v] = 1;
                }
                if (edge < evalEdges[v].size()) {
                    const int w = evalEdges[v][edge++];
                    if (w == v) {
                        cyclic[v] = 1;
                    } else if (index[w] < 0) {
                        work.append({w, 0});
                    } else if (onStack[w]) {
                        low[v] = qMin(low[v], index[w]);
                    }
                    continue;
                }
                if (low[v] == index[v]) {
                    QVector<int> component;
                    int w;
                    do {
                        w = stack.takeLast();
                        onStack[w] = 0;
                        component.append(w);
                    } while (w != v);
                    if (component.size() > 1) {
                        for (int c : component) {
                            cyclic[c] = 1;
                        }
                    }
                }
                const int finished = v;
                work.removeLast();
                if (!work.isEmpty()) {
                    low[work.last().first] = qMin(low[work.last().first], low[finished]);
                }
            }
        }
        QVector<int> queue;
        for (int i = 0; i < n; ++i) {
            if (cyclic[i]) {
                queue.append(i);
                structure->problems << QStringLiteral("%1 takes part in a reference cycle")
                                           .arg(structure->nodes[i].featureName);
            }
        }
        // Whoever evaluates a cyclic node is tainted too.
        QVector<QVector<int>> evaluators(n);
        for (int i = 0; i < n; ++i) {
            for (int t : evalEdges[i]) {
                evaluators[t].append(i);
            }
        }
        while (!queue.isEmpty()) {
            const int v = queue.takeLast();
            structure->nodes[v].cyclic = true;
            for (int u : evaluators[v]) {
                if (!cyclic[u]) {
                    cyclic[u] = 1;
                    queue.append(u);
                }
            }
        }
    }

    // PollingTime sits on the register; the user sees the feature above it.
    for (int i = 0; i < n; ++i) {
        int best = ownPolling[i];
        QVector<int> chain = map.valueTargets[i];
        QSet<int> seen{i};
        while (!chain.isEmpty()) {
            const int t = chain.takeLast();
            if (seen.contains(t)) {
                continue;
            }
            seen.insert(t);
            if (ownPolling[t] > 0 && (best == 0 || ownPolling[t] < best)) {
                best = ownPolling[t];
            }
            chain += map.valueTargets[t];
        }
        structure->nodes[i].pollingTime = best;
    }

    for (auto& list : map.dependents) {
        std::sort(list.begin(), list.end());
        list.erase(std::unique(list.begin(), list.end()), list.end());
    }
    map.structure = structure;
}

QVector<int> DeviceWorker::dependencyClosure(int mapIndex, int node) const
{
    const NodeMap& map = *m_maps.at(size_t(mapIndex));
    const int n = map.nodes.size();
    QVector<char> seen(n, 0);
    QVector<int> queue{node};
    // A write lands on the node's value targets; whatever reads those is affected too.
    for (int i = 0; i < queue.size(); ++i) {
        for (int t : map.valueTargets[queue[i]]) {
            if (!queue.contains(t)) {
                queue.append(t);
            }
        }
    }
    QVector<int> result;
    for (int seed : queue) {
        if (!seen[seed]) {
            seen[seed] = 1;
            result.append(seed);
        }
    }
    for (int i = 0; i < result.size(); ++i) {
        for (int d : map.dependents[result[i]]) {
            if (!seen[d]) {
                seen[d] = 1;
                result.append(d);
            }
        }
    }
    return result;
}

ParameterDataPtr DeviceWorker::readNode(NodeMap& map, int i, bool* deviceFailed)
{
    const NodeInfo& info = map.structure->nodes[i];
    QSharedPointer<ParameterData> data;
    switch (info.type) {
    case IntegerType:
        data = QSharedPointer<IntegerParameterData>::create();
        break;
    case FloatType: {
        auto f = QSharedPointer<FloatParameterData>::create();
        f->displayNotation = info.displayNotation;
        f->displayPrecision = info.displayPrecision;
        data = f;
        break;
    }
    case BooleanType:
        data = QSharedPointer<BooleanParameterData>::create();
        break;
    case StringType:
        data = QSharedPointer<StringParameterData>::create();
        break;
    case EnumerationType:
        data = QSharedPointer<EnumParameterData>::create();
        break;
    case CommandType:
        data = QSharedPointer<CommandParameterData>::create();
        break;
    default:
        data = QSharedPointer<ParameterData>::create();
    }
    data->type = info.type;
    data->name = info.fullName;
    data->featureName = info.featureName;
    data->visibility = info.visibility;
    data->representation = info.representation;
    data->unit = info.unit;

    if (info.type == CategoryType) {
        data->implemented = data->available = data->readable = true;
        data->accessMode = GenApi::RO;
        return data;
    }
    if (info.cyclic) {
        data->accessMode = GenApi::NA;
        data->implemented = true;
        data->errorText = QStringLiteral("The node takes part in a reference cycle");
        return data;
    }
    if (m_lost.load() || *deviceFailed) {
        const auto& previous = map.last.value(i);
        if (previous) {
            return previous;
        }
        data->accessMode = GenApi::NA;
        data->errorText = m_lostMessage;
        return data;
    }

    ArvGcFeatureNode* feature = map.nodes[i];
    GError* error = nullptr;
    auto failed = [&]() -> bool {
        if (error == nullptr) {
            return false;
        }
        if (isDeviceLossError(error->domain, error->code)) {
            *deviceFailed = true;
            markLost(QString::fromUtf8(error->message));
        }
        data->errorText = QString::fromUtf8(error->message);
        g_clear_error(&error);
        return true;
    };

    data->implemented = arv_gc_feature_node_is_implemented(feature, &error);
    if (failed()) {
        data->implemented = false;
        data->accessMode = GenApi::NA;
        return data;
    }
    if (!data->implemented) {
        data->accessMode = GenApi::NI;
        return data;
    }
    data->available = arv_gc_feature_node_is_available(feature, &error);
    if (failed() || !data->available) {
        data->available = false;
        data->accessMode = GenApi::NA;
        return data;
    }
    data->locked = arv_gc_feature_node_is_locked(feature, &error);
    if (failed()) {
        data->locked = false;
    }
    const ArvGcAccessMode mode = arv_gc_feature_node_get_actual_access_mode(feature);
    data->readable = mode == ARV_GC_ACCESS_MODE_RO || mode == ARV_GC_ACCESS_MODE_RW ||
                     mode == ARV_GC_ACCESS_MODE_UNDEFINED;
    data->writable = (mode == ARV_GC_ACCESS_MODE_WO || mode == ARV_GC_ACCESS_MODE_RW) &&
                     !data->locked && info.type != UnknownType;
    if (info.type == CommandType) {
        data->readable = true; // the button shows whether it is done
        data->writable = !data->locked;
    }
    data->accessMode = data->writable ? (data->readable ? GenApi::RW : GenApi::WO) : GenApi::RO;
    // The limits of a number, which writes are checked against, even when its value cannot
    // be read (a write-only feature).
    // A limit the description leaves out (no <Inc>, say) is no error of the value.
    auto limitFailed = [&]() -> bool {
        if (error == nullptr) {
            return false;
        }
        if (isDeviceLossError(error->domain, error->code)) {
            return failed();
        }
        g_clear_error(&error);
        return true;
    };
    auto readLimits = [&]() {
        if (info.type == IntegerType) {
            auto* d = static_cast<IntegerParameterData*>(data.data());
            auto* integer = ARV_GC_INTEGER(feature);
            d->min = arv_gc_integer_get_min(integer, &error);
            if (limitFailed()) {
                d->min = std::numeric_limits<qint64>::min();
            }
            d->max = arv_gc_integer_get_max(integer, &error);
            if (limitFailed()) {
                d->max = std::numeric_limits<qint64>::max();
            }
            d->increment = arv_gc_integer_get_inc(integer, &error);
            if (limitFailed() || d->increment <= 0) {
                d->increment = 1;
            }
        } else if (info.type == FloatType) {
            auto* d = static_cast<FloatParameterData*>(data.data());
            auto* number = ARV_GC_FLOAT(feature);
            d->min = arv_gc_float_get_min(number, &error);
            if (limitFailed()) {
                d->min = -std::numeric_limits<double>::max();
            }
            d->max = arv_gc_float_get_max(number, &error);
            if (limitFailed()) {
                d->max = std::numeric_limits<double>::max();
            }
            // Aravis answers an increment of 1 or DBL_MIN-like defaults when none is declared.
            d->increment = arv_gc_float_get_inc(number, &error);
            if (limitFailed() || !(d->increment > 0.0) || !std::isfinite(d->increment) ||
                d->increment == std::numeric_limits<double>::min()) {
                d->increment = 0.0;
            }
            d->hasIncrement = d->increment > 0.0;
        }
    };
    if (!data->readable) {
        readLimits();
        return data;
    }

    switch (info.type) {
    case IntegerType: {
        auto* d = static_cast<IntegerParameterData*>(data.data());
        auto* integer = ARV_GC_INTEGER(feature);
        const qint64 v = arv_gc_integer_get_value(integer, &error);
        if (failed()) {
            data->readable = false;
            break;
        }
        d->value = v;
        d->displayText = integerText(v, info.representation);
        readLimits();
        break;
    }
    case FloatType: {
        auto* d = static_cast<FloatParameterData*>(data.data());
        auto* number = ARV_GC_FLOAT(feature);
        const double v = arv_gc_float_get_value(number, &error);
        if (failed()) {
            data->readable = false;
            break;
        }
        d->value = v;
        d->displayText = floatText(v, info.displayNotation, info.displayPrecision);
        readLimits();
        break;
    }
    case BooleanType: {
        const bool v = arv_gc_boolean_get_value(ARV_GC_BOOLEAN(feature), &error);
        if (failed()) {
            data->readable = false;
            break;
        }
        data->value = v;
        data->displayText = v ? QStringLiteral("True") : QStringLiteral("False");
        break;
    }
    case StringType: {
        auto* d = static_cast<StringParameterData*>(data.data());
        const char* v = arv_gc_string_get_value(ARV_GC_STRING(feature), &error);
        if (failed()) {
            data->readable = false;
            break;
        }
        d->value = QString::fromUtf8(v);
        d->displayText = d->value.toString();
        d->maxLength = arv_gc_string_get_max_length(ARV_GC_STRING(feature), &error);
        if (failed()) {
            d->maxLength = 0;
        }
        break;
    }
    case EnumerationType: {
        auto* d = static_cast<EnumParameterData*>(data.data());
        auto* enumeration = ARV_GC_ENUMERATION(feature);
        const qint64 v = arv_gc_enumeration_get_int_value(enumeration, &error);
        if (failed()) {
            data->readable = false;
            break;
        }
        d->intValue = v;
        QString current;
        QString currentDisplay;
        // The entries in document order, as the camera's description lists them: Aravis keeps
        // its own entry list back to front.
        for (ArvDomNode* child = arv_dom_node_get_first_child(ARV_DOM_NODE(enumeration));
             child != nullptr; child = arv_dom_node_get_next_sibling(child)) {
            if (!ARV_IS_GC_ENUM_ENTRY(child)) {
                continue;
            }
            auto* entryNode = ARV_GC_FEATURE_NODE(child);
            EnumParameterData::Entry entry;
            entry.name = QString::fromUtf8(arv_gc_feature_node_get_name(entryNode));
            const char* display = arv_gc_feature_node_get_display_name(entryNode);
            entry.displayName = display != nullptr ? QString::fromUtf8(display) : entry.name;
            entry.intValue = arv_gc_enum_entry_get_value(ARV_GC_ENUM_ENTRY(entryNode), &error);
            if (failed()) {
                continue;
            }
            if (entry.intValue == v && current.isEmpty()) {
                current = entry.name;
                currentDisplay = entry.displayName;
            }
            const bool implemented = arv_gc_feature_node_is_implemented(entryNode, &error);
            const bool implementedOk = !failed();
            const bool available = arv_gc_feature_node_is_available(entryNode, &error);
            const bool availableOk = !failed();
            if (implemented && implementedOk && available && availableOk) {
                d->entries.append(entry);
            }
        }
        d->value = current.isEmpty() ? QVariant(QString::number(v)) : QVariant(current);
        d->displayText = current.isEmpty() ? QString::number(v) : currentDisplay;
        break;
    }
    case CommandType: {
        auto* d = static_cast<CommandParameterData*>(data.data());
        ArvGcNode* reg = map.commandRegister[i];
        d->done = true;
        if (reg != nullptr && ARV_IS_GC_INTEGER(reg)) {
            const qint64 v = arv_gc_integer_get_value(ARV_GC_INTEGER(reg), &error);
            if (!failed()) {
                d->done = v != map.commandValue[i];
            }
        }
        d->value = !d->done;
        break;
    }
    default:
        data->readable = false;
    }
    if (!data->readable) {
        data->accessMode = data->writable ? GenApi::WO : GenApi::NA;
    }
    return data;
}

bool DeviceWorker::enqueueWrite(const PendingWrite& write)
{
    QMutexLocker lock(&m_writeMutex);
    const bool wasEmpty = m_pendingWrites.isEmpty();
    // Consecutive writes to one feature (a slider being dragged) collapse into the latest;
    // writes to different features keep their order, because ranges depend on each other.
    if (!wasEmpty && m_pendingWrites.last().map == write.map &&
        m_pendingWrites.last().node == write.node) {
        m_pendingWrites.last().value = write.value;
    } else {
        m_pendingWrites.append(write);
    }
    return wasEmpty;
}

bool DeviceWorker::writeNode(NodeMap& map, int i, const QVariant& value, QString* message,
                             Exception::Kind* kind, bool* deviceFailed)
{
    ArvGcFeatureNode* feature = map.nodes[i];
    GError* error = nullptr;
    switch (map.structure->nodes[i].type) {
    case IntegerType:
        arv_gc_integer_set_value(ARV_GC_INTEGER(feature), value.toLongLong(), &error);
        break;
    case FloatType:
        arv_gc_float_set_value(ARV_GC_FLOAT(feature), value.toDouble(), &error);
        break;
    case BooleanType:
        arv_gc_boolean_set_value(ARV_GC_BOOLEAN(feature), value.toBool(), &error);
        break;
    case StringType:
        arv_gc_string_set_value(ARV_GC_STRING(feature), value.toString().toUtf8().constData(),
                                &error);
        break;
    case EnumerationType:
        arv_gc_enumeration_set_string_value(ARV_GC_ENUMERATION(feature),
                                            value.toString().toUtf8().constData(), &error);
        break;
    case CommandType:
        arv_gc_command_execute(ARV_GC_COMMAND(feature), &error);
        break;
    default:
        *message = QStringLiteral("the node cannot be written");
        *kind = Exception::Access;
        return false;
    }
    if (error != nullptr) {
        *message = QString::fromUtf8(error->message);
        *kind = exceptionKindOf(error->domain, error->code);
        if (isDeviceLossError(error->domain, error->code)) {
            *deviceFailed = true;
            markLost(*message);
        }
        g_clear_error(&error);
        return false;
    }
    return true;
}

void DeviceWorker::processWrites()
{
    QVector<PendingWrite> writes;
    {
        QMutexLocker lock(&m_writeMutex);
        writes.swap(m_pendingWrites);
    }
    if (writes.isEmpty()) {
        return;
    }
    QHash<int, QSet<int>> toRead;
    QHash<int, QSet<int>> forced;
    bool deviceFailed = false;
    for (const PendingWrite& w : writes) {
        if (m_lost.load()) {
            Q_EMIT writeFailed(m_maps[size_t(w.map)]->structure->nodes[w.node].fullName,
                               Exception::DeviceLost, QStringLiteral("the device is lost"));
            forced[w.map].insert(w.node);
            continue;
        }
        NodeMap& map = *m_maps[size_t(w.map)];
        QString message;
        Exception::Kind kind = Exception::Generic;
        const bool ok = writeNode(map, w.node, w.value, &message, &kind, &deviceFailed);
        // The written feature is always re-published, so that an optimistic value the device
        // did not take is replaced by what the device holds.
        forced[w.map].insert(w.node);
        if (!ok) {
            Q_EMIT writeFailed(map.structure->nodes[w.node].fullName, kind, message);
        }
        for (int d : dependencyClosure(w.map, w.node)) {
            toRead[w.map].insert(d);
        }
        if (ok && map.structure->nodes[w.node].type == CommandType) {
            scheduleCommandCheck(w.map, w.node);
        }
    }
    for (auto it = forced.begin(); it != forced.end(); ++it) {
        QVector<int> nodes(it.value().begin(), it.value().end());
        std::sort(nodes.begin(), nodes.end());
        readNodes(it.key(), nodes, false, true);
        for (int n : nodes) {
            toRead[it.key()].remove(n);
        }
    }
    for (auto it = toRead.begin(); it != toRead.end(); ++it) {
        QVector<int> nodes(it.value().begin(), it.value().end());
        std::sort(nodes.begin(), nodes.end());
        readNodes(it.key(), nodes, false, false);
    }
}

void DeviceWorker::scheduleCommandCheck(int map, int node)
{
    m_runningCommands.insert({map, node});
    if (!m_commandTimer->isActive()) {
        m_commandTimer->start();
    }
}

void DeviceWorker::readNodes(int mapIndex, const QVector<int>& nodes, bool bypassCache, bool forced)
{
    if (mapIndex < 0 || size_t(mapIndex) >= m_maps.size()) {
        return;
    }
    NodeMap& map = *m_maps[size_t(mapIndex)];
    const ArvRegisterCachePolicy policy = arv_gc_get_register_cache_policy(map.genicam);
    if (bypassCache) {
        arv_gc_set_register_cache_policy(map.genicam, ARV_REGISTER_CACHE_POLICY_DISABLE);
    }
    QVector<PublishedData> batch;
    bool deviceFailed = false;
    for (int node : nodes) {
        if (node < 0 || node >= map.nodes.size()) {
            continue;
        }
        ParameterDataPtr data = readNode(map, node, &deviceFailed);
        if (deviceFailed && map.last[node]) {
            // Reads keep the last data once the device is gone.
            break;
        }
        if (data->type == CommandType) {
            if (static_cast<const CommandParameterData&>(*data).done) {
                m_runningCommands.remove({mapIndex, node});
            }
        }
        const ParameterDataPtr& previous = map.last[node];
        if (forced || !previous || !sameData(*previous, *data)) {
            map.last[node] = data;
            batch.append({node, data});
        }
    }
    if (bypassCache) {
        arv_gc_set_register_cache_policy(map.genicam, policy);
    }
    if (m_runningCommands.isEmpty() || m_lost.load()) {
        m_commandTimer->stop();
        m_runningCommands.clear();
    }
    if (!batch.isEmpty()) {
        Q_EMIT published(mapIndex, batch);
    }
}

void DeviceWorker::readObserved(int map, const QVector<int>& nodes)
{
    readNodes(map, nodes, true, false);
}

void DeviceWorker::markLost(const QString& message)
{
    bool expected = false;
    if (m_lost.compare_exchange_strong(expected, true)) {
        // May run on Aravis's heartbeat thread: hand the news to our own thread.
        QMetaObject::invokeMethod(
            this,
            [this, message] {
                m_lostMessage = message;
                Q_EMIT lost(message);
            },
            Qt::QueuedConnection);
    }
}

} // namespace Backend
