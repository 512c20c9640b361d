#include "featuresettransfer.h"

#include "writecheck.h"

#include <QDateTime>
#include <QLocale>
#include <QMap>
#include <QSet>

#include <algorithm>
#include <numeric>

using namespace ParameterCollection;

namespace Backend {

namespace {

// More values than this in an integer selector are not walked: only its current one is saved.
constexpr qint64 kMaxIntegerSelectorValues = 1024;
// Nor more combinations than this of a feature's selectors.
constexpr int kMaxCombinations = 65536;

FeatureSetTransfer::Reason reasonOf(Exception::Kind kind, const ParameterData* data)
{
    switch (kind) {
    case Exception::NotFound:
        return FeatureSetTransfer::Reason::UnknownFeature;
    case Exception::Range:
        return FeatureSetTransfer::Reason::OutOfRange;
    case Exception::InvalidArgument:
        return FeatureSetTransfer::Reason::InvalidValue;
    case Exception::Access:
        if (data != nullptr && (!data->implemented || !data->available)) {
            return FeatureSetTransfer::Reason::NotAvailable;
        }
        if (data != nullptr && data->locked) {
            return FeatureSetTransfer::Reason::Locked;
        }
        return FeatureSetTransfer::Reason::ReadOnly;
    default:
        return FeatureSetTransfer::Reason::Refused;
    }
}

// TLParamsLocked belongs to whoever streams: the acquisition sets it while buffers are queued.
// Carried in a file it would lock the camera's image format with no stream to release it.
bool ownedByTheStream(const QString& feature)
{
    return feature == QLatin1String("TLParamsLocked");
}

bool holdsValue(int type)
{
    return type == IntegerType || type == FloatType || type == BooleanType || type == StringType ||
           type == EnumerationType || type == RegisterType;
}

} // namespace

struct FeatureSetTransfer::Item {
    const FeatureSet::Line* line = nullptr;
    int node = -1;
    QVector<QPair<int, QString>> selectors;
    int rank = 0;
    int order = 0;
    Failure failure;
    // The value before the load began, where it could be read: what undoing the load puts
    // back, even where an earlier line changed it on the way.
    QString before;
    bool hasBefore = false;
};

QString FeatureSetTransfer::valueText(int type, const QVariant& value)
{
    switch (type) {
    case IntegerType:
        return QString::number(value.toLongLong());
    case FloatType:
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    case BooleanType:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case RegisterType:
        return QStringLiteral("0x") + QString::fromLatin1(value.toByteArray().toHex().toUpper());
    default:
        return value.toString();
    }
}

QString FeatureSetTransfer::reasonText(Reason reason)
{
    switch (reason) {
    case Reason::UnknownFeature:
        return QStringLiteral("unknown feature");
    case Reason::ReadOnly:
        return QStringLiteral("read-only");
    case Reason::OutOfRange:
        return QStringLiteral("out of range");
    case Reason::NotAvailable:
        return QStringLiteral("not available");
    case Reason::Locked:
        return QStringLiteral("locked");
    case Reason::InvalidValue:
        return QStringLiteral("invalid value");
    case Reason::Refused:
        return QStringLiteral("refused by the device");
    case Reason::Cancelled:
        return QStringLiteral("cancelled");
    }
    return QString();
}

// ---------------------------------------------------------------------------------- saving

QVector<int> FeatureSetTransfer::savedNodes()
{
    const NodeMapStructure& structure = m_access.structure();
    const bool marked =
        std::any_of(structure.nodes.cbegin(), structure.nodes.cend(), [](const NodeInfo& info) {
            return info.streamable == NodeInfo::Streamable::Yes;
        });
    QVector<int> nodes;
    for (int i = 0; i < structure.nodes.size(); ++i) {
        const NodeInfo& info = structure.nodes[i];
        if (!holdsValue(info.type) || ownedByTheStream(info.featureName)) {
            continue;
        }
        if (marked ? info.streamable == NodeInfo::Streamable::Yes
                   : m_access.graph().isListed(i) && info.streamable != NodeInfo::Streamable::No) {
            nodes.append(i);
        }
    }
    return nodes;
}

QString FeatureSetTransfer::headerValue(const char* feature)
{
    const int node = m_access.structure().indexOf(QLatin1String(feature));
    if (node < 0) {
        return QString();
    }
    const ParameterDataPtr data = m_access.read(node);
    return data->readable ? data->value.toString() : QString();
}

FeatureSet FeatureSetTransfer::save()
{
    FeatureSet set;
    set.vendor = headerValue("DeviceVendorName");
    set.model = headerValue("DeviceModelName");
    set.serial = headerValue("DeviceSerialNumber");
    set.time = QDateTime::currentDateTimeUtc().toString(Qt::ISODate);
    const NodeMapStructure& structure = m_access.structure();
    const QVector<int> nodes = savedNodes();
    // Only a marked description says what to save whatever its state; otherwise what can be
    // written back now.
    const bool marked = std::any_of(nodes.cbegin(), nodes.cend(), [&structure](int n) {
        return structure.nodes[n].streamable == NodeInfo::Streamable::Yes;
    });
    QMap<QVector<int>, QVector<int>> groups;
    for (int node : nodes) {
        const NodeInfo& info = structure.nodes[node];
        if (!info.selectingFeatures.isEmpty()) {
            QVector<int> selectors = info.selectingFeatures;
            std::sort(selectors.begin(), selectors.end());
            groups[selectors].append(node);
            continue;
        }
        const ParameterDataPtr data = m_access.read(node);
        if (data->readable && (marked || data->writable)) {
            FeatureSet::Line line;
            line.feature = info.featureName;
            line.value = valueText(info.type, data->value);
            line.quoted = info.type == StringType;
            set.lines.append(line);
        }
    }
    for (auto it = groups.cbegin(); it != groups.cend(); ++it) {
        saveGroup(it.key(), it.value(), marked, set);
    }
    // Put the selectors back the way they were, innermost first.
    QVector<int> touched = m_originalSelectors.keys().toVector();
    std::sort(touched.begin(), touched.end(), std::greater<int>());
    for (int selector : touched) {
        writeText(selector, m_originalSelectors.value(selector), nullptr, nullptr, nullptr);
    }
    m_originalSelectors.clear();
    return set;
}

QStringList FeatureSetTransfer::selectorValues(int selector, QString* now)
{
    const ParameterDataPtr data = m_access.read(selector);
    if (!data->readable) {
        return {};
    }
    *now = valueText(data->type, data->value);
    if (!m_originalSelectors.contains(selector)) {
        m_originalSelectors.insert(selector, *now);
    }
    QStringList values;
    if (data->type == EnumerationType) {
        for (const auto& entry : static_cast<const EnumParameterData&>(*data).entries) {
            values << entry.name;
        }
    } else if (data->type == IntegerType) {
        const auto& d = static_cast<const IntegerParameterData&>(*data);
        const qint64 step = qMax<qint64>(1, d.increment);
        if (d.max >= d.min && (d.max - d.min) / step < kMaxIntegerSelectorValues) {
            for (qint64 v = d.min; v <= d.max; v += step) {
                values << QString::number(v);
            }
        }
    }
    if (values.isEmpty()) {
        values << valueText(data->type, data->value);
    }
    return values;
}

void FeatureSetTransfer::saveGroup(const QVector<int>& selectors, const QVector<int>& features,
                                   bool marked, FeatureSet& set)
{
    const NodeMapStructure& structure = m_access.structure();
    QVector<QStringList> values;
    // What each selector holds now, where known: a selector already at the value a
    // combination wants is not written again. On a link where every access costs, the walk
    // is the save's price, and outer selectors stay put for a whole inner walk.
    QVector<QString> now(selectors.size());
    QVector<bool> known(selectors.size(), false);
    int combinations = 1;
    for (int selector : selectors) {
        const int s = values.size();
        values.append(selectorValues(selector, &now[s]));
        known[s] = !values.last().isEmpty();
        combinations *= qMax(1, values.last().size());
        if (values.last().isEmpty() || combinations > kMaxCombinations) {
            return;
        }
    }
    QVector<int> at(selectors.size(), 0);
    for (int c = 0; c < combinations; ++c) {
        FeatureSet::Selectors chosen;
        bool selected = true;
        // Once an outer selector moved, the inner ones are written again whatever they held:
        // their values may have moved with it.
        bool moved = false;
        for (int s = 0; s < selectors.size(); ++s) {
            const QString& value = values[s][at[s]];
            chosen.append({structure.nodes[selectors[s]].featureName, value});
            if (!selected) {
                known[s] = false; // not written: where it stands is not ours to assume
                continue;
            }
            if (!moved && known[s] && now[s] == value) {
                continue;
            }
            moved = true;
            // The value was read from the selector itself: no need to check it first.
            Exception::Kind kind = Exception::Generic;
            QString message;
            selected = m_access.write(selectors[s], value, &kind, &message);
            known[s] = selected;
            now[s] = value;
        }
        for (int node : features) {
            const ParameterDataPtr data = selected ? m_access.read(node) : ParameterDataPtr();
            // The same rule as for the features no selector selects.
            if (data && data->readable && (marked || data->writable)) {
                FeatureSet::Line line;
                line.selectors = chosen;
                line.feature = structure.nodes[node].featureName;
                line.value = valueText(data->type, data->value);
                line.quoted = data->type == StringType;
                set.lines.append(line);
            }
        }
        for (int s = selectors.size() - 1; s >= 0; --s) {
            if (++at[s] < values[s].size()) {
                break;
            }
            at[s] = 0;
        }
    }
}

// ---------------------------------------------------------------------------------- loading

bool FeatureSetTransfer::writeText(int node, const QString& text, Failure* failure, QString* before,
                                   QString* written)
{
    const NodeInfo& info = m_access.structure().nodes[node];
    const ParameterDataPtr data = m_access.read(node);
    const QString was = data->readable ? valueText(info.type, data->value) : QString();
    if (data->readable && was == text) {
        // Already so: nothing to write, even where nothing could be written now.
        if (before != nullptr) {
            *before = was;
            *written = was;
        }
        return true;
    }
    QVariant value;
    try {
        value = WriteCheck::validated(info, *data, text);
    } catch (const Exception& e) {
        if (failure != nullptr) {
            failure->kind = e.kind();
            failure->reason = reasonOf(e.kind(), data.data());
            failure->message = data->restriction.isEmpty()
                                   ? e.message()
                                   : e.message() + QStringLiteral(": ") + data->restriction;
        }
        return false;
    }
    const QString now = valueText(info.type, value);
    if (before != nullptr) {
        *before = was;
        *written = now;
    }
    if (data->readable && was == now) {
        return true;
    }
    Exception::Kind kind = Exception::Generic;
    QString message;
    if (m_access.write(node, value, &kind, &message)) {
        return true;
    }
    if (failure != nullptr) {
        failure->kind = kind;
        failure->reason = kind == Exception::Range ? Reason::OutOfRange : Reason::Refused;
        failure->message = message;
    }
    return false;
}

int FeatureSetTransfer::rank(int node, QHash<int, int>& ranks, QSet<int>& visiting) const
{
    if (ranks.contains(node)) {
        return ranks.value(node);
    }
    if (visiting.contains(node)) {
        return 0; // a cycle: the passes sort it out
    }
    visiting.insert(node);
    const NodeMapGraph& graph = m_access.graph();
    QVector<int> before = graph.selectors(node);
    for (auto condition : {NodeMapGraph::Condition::Implemented, NodeMapGraph::Condition::Available,
                           NodeMapGraph::Condition::Locked}) {
        before += graph.deciders(node, condition);
    }
    int r = 0;
    for (int b : before) {
        if (b != node) {
            r = qMax(r, rank(b, ranks, visiting) + 1);
        }
    }
    visiting.remove(node);
    ranks.insert(node, r);
    return r;
}

void FeatureSetTransfer::noteStart(int node)
{
    if (m_access.graph().selected(node).isEmpty() || m_startSelectors.contains(node)) {
        return;
    }
    const ParameterDataPtr data = m_access.read(node);
    m_startSelectors.insert(node, data->readable ? valueText(data->type, data->value) : QString());
}

bool FeatureSetTransfer::selectFor(const Item& item, Failure* failure)
{
    for (const auto& selector : item.selectors) {
        if (!m_originalSelectors.contains(selector.first)) {
            const ParameterDataPtr data = m_access.read(selector.first);
            m_originalSelectors.insert(
                selector.first, data->readable ? valueText(data->type, data->value) : QString());
        }
        if (!writeText(selector.first, selector.second, failure, nullptr, nullptr)) {
            failure->message = QStringLiteral("%1 = %2 cannot be selected: %3")
                                   .arg(m_access.structure().nodes[selector.first].featureName,
                                        selector.second, failure->message);
            return false;
        }
    }
    return true;
}

void FeatureSetTransfer::noteBefore(QVector<Item>& items)
{
    // Only a feature that another line's write can change needs its value from before the
    // load; every other one still holds it when its own line comes. Reading them all would
    // walk every selector twice. A selector's write changes which instance its features show,
    // not their values.
    const NodeMapGraph& graph = m_access.graph();
    QSet<int> lineNodes;
    for (const Item& item : items) {
        lineNodes.insert(item.node);
    }
    QSet<int> changedOnTheWay;
    for (int writer : lineNodes) {
        for (int node : graph.dependencyClosure(writer)) {
            if (node != writer && lineNodes.contains(node) &&
                !graph.selectors(node).contains(writer)) {
                changedOnTheWay.insert(node);
            }
        }
    }
    // In load order, so that selectors move no more than the load will move them; the load
    // puts them back at the end.
    for (Item& item : items) {
        if (!changedOnTheWay.contains(item.node)) {
            continue;
        }
        Failure unused;
        if (!selectFor(item, &unused)) {
            continue;
        }
        const ParameterDataPtr data = m_access.read(item.node);
        if (data->readable) {
            item.before = valueText(data->type, data->value);
            item.hasBefore = true;
        }
    }
}

bool FeatureSetTransfer::apply(Item& item, LoadReport& report)
{
    Failure& failure = item.failure;
    if (!selectFor(item, &failure)) {
        return false;
    }
    Applied applied;
    if (!writeText(item.node, item.line->value, &failure, &applied.before, &applied.written)) {
        return false;
    }
    const NodeMapStructure& structure = m_access.structure();
    applied.fullName = structure.nodes[item.node].fullName;
    applied.selectors = item.line->selectors;
    if (item.hasBefore) {
        applied.before = item.before;
    }
    if (applied.before != applied.written) {
        report.applied.append(applied);
    }
    return true;
}

void FeatureSetTransfer::restoreSelectors(const FeatureSet& set, LoadReport& report)
{
    const NodeMapStructure& structure = m_access.structure();
    QHash<int, QString> wanted = m_originalSelectors;
    for (const FeatureSet::Line& line : set.lines) {
        const int node = structure.indexOf(line.feature);
        if (line.selectors.isEmpty() && wanted.contains(node)) {
            wanted.insert(node, line.value);
        }
    }
    QVector<int> selectors = wanted.keys().toVector();
    std::sort(selectors.begin(), selectors.end(), std::greater<int>());
    for (int selector : selectors) {
        writeText(selector, wanted.value(selector), nullptr, nullptr, nullptr);
    }
    // A selector's change is what it went from before the load to where it ends, once: the
    // values it passed through on the way are no change of the camera's.
    for (auto it = m_startSelectors.cbegin(); it != m_startSelectors.cend(); ++it) {
        const QString& fullName = structure.nodes[it.key()].fullName;
        report.applied.erase(std::remove_if(report.applied.begin(), report.applied.end(),
                                            [&fullName](const Applied& a) {
                                                return a.fullName == fullName &&
                                                       a.selectors.isEmpty();
                                            }),
                             report.applied.end());
        const ParameterDataPtr data = m_access.read(it.key());
        const QString now = data->readable ? valueText(data->type, data->value) : QString();
        if (now != it.value()) {
            report.applied.append({fullName, {}, it.value(), now});
        }
    }
    m_originalSelectors.clear();
    m_startSelectors.clear();
}

FeatureSetTransfer::LoadReport FeatureSetTransfer::load(const FeatureSet& set,
                                                        const std::atomic<bool>* cancel,
                                                        const Progress& progress)
{
    LoadReport report;
    const NodeMapStructure& structure = m_access.structure();
    QVector<Item> items;
    QHash<int, int> ranks;
    QSet<int> visiting;
    for (const FeatureSet::Line& line : set.lines) {
        Item item;
        item.line = &line;
        item.order = items.size();
        item.node = structure.indexOf(line.feature);
        Failure failure{line.lineNumber,     FeatureSet::qualifiedName(line),
                        line.value,          Reason::UnknownFeature,
                        Exception::NotFound, QStringLiteral("the camera has no such feature")};
        for (const auto& s : line.selectors) {
            const int selector = structure.indexOf(s.first);
            if (selector < 0) {
                failure.message = QStringLiteral("the camera has no selector %1").arg(s.first);
                item.node = -1;
                break;
            }
            item.selectors.append({selector, s.second});
        }
        if (item.node >= 0 && !holdsValue(structure.nodes[item.node].type)) {
            failure.reason = Reason::InvalidValue;
            failure.kind = Exception::InvalidArgument;
            failure.message = QStringLiteral("the feature holds no value to load");
            item.node = -1;
        } else if (item.node >= 0 && ownedByTheStream(line.feature)) {
            failure.reason = Reason::ReadOnly;
            failure.kind = Exception::Access;
            failure.message = QStringLiteral("the acquisition sets it while it streams");
            item.node = -1;
        }
        if (item.node < 0) {
            report.failures.append(failure);
            continue;
        }
        noteStart(item.node);
        for (const auto& s : item.selectors) {
            noteStart(s.first);
        }
        item.rank = rank(item.node, ranks, visiting);
        for (const auto& s : item.selectors) {
            item.rank = qMax(item.rank, rank(s.first, ranks, visiting) + 1);
        }
        item.failure = {line.lineNumber, failure.name,       line.value,
                        Reason::Refused, Exception::Generic, QString()};
        items.append(item);
    }
    std::stable_sort(items.begin(), items.end(),
                     [](const Item& a, const Item& b) { return a.rank < b.rank; });
    noteBefore(items);

    QVector<int> pending(items.size());
    std::iota(pending.begin(), pending.end(), 0);
    int done = 0;
    while (!pending.isEmpty() && !report.cancelled) {
        ++report.passes;
        QVector<int> left;
        for (int index : pending) {
            if (cancel != nullptr && cancel->load()) {
                report.cancelled = true;
            }
            if (report.cancelled || !apply(items[index], report)) {
                left.append(index);
            }
            if (report.passes == 1 && progress) {
                progress(++done, items.size());
            }
        }
        const bool someSucceeded = left.size() < pending.size();
        pending = left;
        if (!someSucceeded) {
            break;
        }
    }
    for (int index : pending) {
        Failure failure = items[index].failure;
        if (report.cancelled) {
            failure.reason = Reason::Cancelled;
            failure.kind = Exception::Generic;
            failure.message = QStringLiteral("the load was cancelled");
        }
        report.failures.append(failure);
    }
    std::sort(report.failures.begin(), report.failures.end(),
              [](const Failure& a, const Failure& b) { return a.lineNumber < b.lineNumber; });
    restoreSelectors(set, report);
    return report;
}

} // namespace Backend
