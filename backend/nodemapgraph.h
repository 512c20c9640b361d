#pragma once

#include <QSet>
#include <QVector>

#include <array>

namespace Backend {

// The links between the nodes of one node map, as plain indices, and everything that follows
// from them without asking a device: category trees without cycles, the nodes that can't be
// evaluated because of a reference cycle, polling times, what a write can change and which
// visible features decide a feature's lock or availability. Built once at open, then only read.
class NodeMapGraph {
public:
    enum class Condition { Implemented = 0, Available = 1, Locked = 2 };
    enum class ProblemKind { CategoryContainsItself, CategoryCycle, ReferenceCycle };
    struct Problem {
        ProblemKind kind;
        int node;
        int other; // the child closing a category cycle; -1 otherwise
    };

    explicit NodeMapGraph(int nodeCount = 0);

    int size() const { return m_evaluates.size(); }

    // `node` reads `target` to compute its value or its limits (pValue, pMin, pVariable, ...).
    void addEvaluation(int node, int target);
    // A write to `node` lands on `target`; `node` also reads it.
    void addValueTarget(int node, int target);
    // `target` decides whether `node` is implemented, available or locked.
    void addCondition(int node, Condition condition, int target);
    // `selector` chooses which instance `selected` shows.
    void addSelected(int selector, int selected);
    // A change of `invalidator` makes the cached value of `node` stale.
    void addInvalidator(int node, int invalidator);
    void addCategoryChild(int category, int child);
    void setOwnPollingTime(int node, int milliseconds);
    // The node's own definition is absurd: neither it nor whoever evaluates it is evaluated.
    void addDefect(int node);

    // Derives everything below from the links. Call once, after the last link.
    void finish();

    // A category's children in document order, with every cycle broken where it closes.
    const QVector<int>& children(int category) const { return m_children[category]; }
    // Some category lists the node: a user can see it.
    bool isListed(int node) const { return m_listed[node] != 0; }
    // The node takes part in a reference cycle or evaluates one that does.
    bool isCyclic(int node) const { return m_cyclic[node] != 0; }
    // The defective node that `node` is, or evaluates through its links; -1 when none.
    int defectSource(int node) const { return m_defectSource[node]; }
    // The shortest PollingTime on the node's pValue chain; 0 when none.
    int pollingTime(int node) const { return m_pollingTime[node]; }
    const QVector<int>& valueTargets(int node) const { return m_valueTargets[node]; }
    // Who must be re-read when `node` changes, sorted.
    const QVector<int>& dependents(int node) const { return m_dependents[node]; }
    const QVector<int>& selected(int selector) const { return m_selected[selector]; }
    const QVector<int>& selectors(int node) const { return m_selectors[node]; }
    const QVector<Problem>& problems() const { return m_problems; }

    // Nodes that a write to `node` can change, `node` first.
    QVector<int> dependencyClosure(int node) const;
    // The listed features whose values decide `condition` of `node`, in the order found.
    QVector<int> deciders(int node, Condition condition) const;

private:
    void breakCategoryCycles();
    void visitCategory(int root, QVector<char>& state);
    void findReferenceCycles();
    void taintEvaluatorsOfCycles();
    void taintEvaluatorsOfDefects();
    QVector<QVector<int>> evaluators() const;
    void carryPollingTimes();
    void collectOwners(int start, int node, QVector<int>& result, QSet<int>& climbed) const;

    QVector<QVector<int>> m_evaluates;
    QVector<QVector<int>> m_valueTargets;
    QVector<QVector<int>> m_valueOwners;
    QVector<std::array<QVector<int>, 3>> m_conditions;
    QVector<QVector<int>> m_dependents;
    QVector<QVector<int>> m_selected;
    QVector<QVector<int>> m_selectors;
    QVector<QVector<int>> m_children;
    QVector<int> m_ownPollingTime;
    QVector<int> m_pollingTime;
    QVector<char> m_listed;
    QVector<char> m_cyclic;
    QVector<int> m_defectSource;
    QVector<Problem> m_problems;
};

} // namespace Backend
