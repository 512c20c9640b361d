#pragma once

#include "featureset.h"
#include "nodemapgraph.h"
#include "nodemapstructure.h"

#include <parametercollection/exception.h>
#include <parametercollection/parameterdata.h>

#include <QHash>
#include <QSet>
#include <QStringList>
#include <QVector>

#include <atomic>
#include <functional>

namespace Backend {

// Saves the streamable features of one node map into a FeatureSet and loads one back, on the
// device thread. Selected features are visited once per selector value and the selectors are
// put back afterwards. A load writes in the order of the dependency graph, repeats while some
// write still succeeds, and reports every line it could not apply with its reason.
class FeatureSetTransfer {
public:
    // The node map as the transfer sees it. Device thread only.
    class Access {
    public:
        virtual ~Access() = default;
        virtual const NodeMapStructure& structure() const = 0;
        virtual const NodeMapGraph& graph() const = 0;
        // Reads the node now; the data says why when it could not.
        virtual ParameterCollection::ParameterDataPtr read(int node) = 0;
        // Writes a checked value; false with the kind and the device's message.
        virtual bool write(int node, const QVariant& value,
                           ParameterCollection::Exception::Kind* kind, QString* message) = 0;
    };

    enum class Reason {
        UnknownFeature,
        ReadOnly,
        OutOfRange,
        NotAvailable,
        Locked,
        InvalidValue,
        Refused, // the device said no
        Cancelled
    };

    // A line applied: what the feature held before the load began (read once, before the
    // first write, so that a value an earlier line changed on the way does not pass for it)
    // and what was written, in the parameter layer's text form, so that the whole load can be
    // undone.
    struct Applied {
        QString fullName; // "@CameraDevice/Gain"
        FeatureSet::Selectors selectors;
        QString before;
        QString written;
    };
    struct Failure {
        int lineNumber = 0;
        QString name; // qualified: "Gain [GainSelector = AnalogAll]"
        QString value;
        Reason reason = Reason::Refused;
        ParameterCollection::Exception::Kind kind = ParameterCollection::Exception::Generic;
        QString message; // does not name the feature
    };
    struct LoadReport {
        QVector<Applied> applied;
        QVector<Failure> failures;
        int passes = 0;
        bool cancelled = false;
    };

    // Called after each line of the first pass: lines done, lines in all.
    using Progress = std::function<void(int done, int total)>;

    explicit FeatureSetTransfer(Access& access) : m_access(access) {}

    // Every streamable feature: those marked Streamable, or where the description marks none,
    // every listed feature that can be read and written and is not a command.
    FeatureSet save();
    LoadReport load(const FeatureSet& set, const std::atomic<bool>* cancel = nullptr,
                    const Progress& progress = Progress());

    // A value as the parameter layer writes it: decimal integers, shortest exact floats,
    // true/false, entry names, hexadecimal registers, strings as they are.
    static QString valueText(int type, const QVariant& value);
    static QString reasonText(Reason reason);

private:
    struct Item;
    QVector<int> savedNodes();
    // `marked`: the description says what to save; otherwise only what can be written back.
    void saveGroup(const QVector<int>& selectors, const QVector<int>& features, bool marked,
                   FeatureSet& set);
    // The values a save visits; `now`, when the selector can be read, its value now.
    QStringList selectorValues(int selector, QString* now);
    QString headerValue(const char* feature);
    bool writeText(int node, const QString& text, Failure* failure, QString* before,
                   QString* written);
    bool selectFor(const Item& item, Failure* failure);
    void noteBefore(QVector<Item>& items);
    bool apply(Item& item, LoadReport& report);
    int rank(int node, QHash<int, int>& ranks, QSet<int>& visiting) const;
    void restoreSelectors(const FeatureSet& set, LoadReport& report);
    // Keeps the value a selector had before the load touched it.
    void noteStart(int node);

    Access& m_access;
    QHash<int, QString> m_originalSelectors; // selector: its text before the transfer
    QHash<int, QString> m_startSelectors;    // the same, for the load's report
};

} // namespace Backend
