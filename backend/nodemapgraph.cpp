#include "nodemapgraph.h"

#include <QPair>
#include <QSet>

#include <algorithm>

namespace Backend {

NodeMapGraph::NodeMapGraph(int nodeCount)
    : m_evaluates(nodeCount), m_valueTargets(nodeCount), m_valueOwners(nodeCount),
      m_conditions(nodeCount), m_dependents(nodeCount), m_selected(nodeCount),
      m_selectors(nodeCount), m_children(nodeCount), m_ownPollingTime(nodeCount, 0),
      m_pollingTime(nodeCount, 0), m_listed(nodeCount, 0), m_cyclic(nodeCount, 0),
      m_defectSource(nodeCount, -1)
{}

void NodeMapGraph::addEvaluation(int node, int target)
{
    m_evaluates[node].append(target);
    m_dependents[target].append(node);
}

void NodeMapGraph::addValueTarget(int node, int target)
{
    addEvaluation(node, target);
    m_valueTargets[node].append(target);
    m_valueOwners[target].append(node);
}

void NodeMapGraph::addCondition(int node, Condition condition, int target)
{
    addEvaluation(node, target);
    m_conditions[node][size_t(condition)].append(target);
}

void NodeMapGraph::addSelected(int selector, int selected)
{
    // The selected feature reads differently once its selector changes.
    m_selected[selector].append(selected);
    m_selectors[selected].append(selector);
    m_dependents[selector].append(selected);
}

void NodeMapGraph::addInvalidator(int node, int invalidator)
{
    m_dependents[invalidator].append(node);
}

void NodeMapGraph::addCategoryChild(int category, int child)
{
    if (child == category) {
        m_problems.append({ProblemKind::CategoryContainsItself, category, -1});
        return;
    }
    m_children[category].append(child);
    m_listed[child] = 1;
}

void NodeMapGraph::setOwnPollingTime(int node, int milliseconds)
{
    m_ownPollingTime[node] = milliseconds;
}

void NodeMapGraph::addDefect(int node)
{
    m_defectSource[node] = node;
}

void NodeMapGraph::finish()
{
    for (auto& list : m_dependents) {
        std::sort(list.begin(), list.end());
        list.erase(std::unique(list.begin(), list.end()), list.end());
    }
    breakCategoryCycles();
    findReferenceCycles();
    taintEvaluatorsOfCycles();
    taintEvaluatorsOfDefects();
    carryPollingTimes();
}

void NodeMapGraph::breakCategoryCycles()
{
    // 0: not seen, 1: on the current path, 2: done.
    QVector<char> state(size(), 0);
    for (int i = 0; i < size(); ++i) {
        if (!m_children[i].isEmpty() && state[i] == 0) {
            visitCategory(i, state);
        }
    }
}

void NodeMapGraph::visitCategory(int root, QVector<char>& state)
{
    // Depth first without recursion: a vendor file nests categories as deep as it likes.
    QVector<QPair<int, int>> path{{root, 0}};
    state[root] = 1;
    while (!path.isEmpty()) {
        const int category = path.last().first;
        QVector<int>& children = m_children[category];
        const int k = path.last().second;
        if (k >= children.size()) {
            state[category] = 2;
            path.removeLast();
            continue;
        }
        const int child = children[k];
        if (state[child] == 1) {
            // Expanding a category must never lead back to itself.
            m_problems.append({ProblemKind::CategoryCycle, category, child});
            children.remove(k);
            continue;
        }
        ++path.last().second;
        if (state[child] == 0 && !m_children[child].isEmpty()) {
            state[child] = 1;
            path.append({child, 0});
        }
    }
}

void NodeMapGraph::findReferenceCycles()
{
    // Tarjan's strongly connected components, iterative: Aravis would recurse without end
    // through a cycle, so no node on one is ever evaluated.
    const int n = size();
    QVector<int> index(n, -1);
    QVector<int> low(n, 0);
    QVector<char> onStack(n, 0);
    QVector<int> stack;
    int counter = 0;
    for (int start = 0; start < n; ++start) {
        if (index[start] >= 0) {
            continue;
        }
        QVector<QPair<int, int>> work{{start, 0}};
        while (!work.isEmpty()) {
            const int v = work.last().first;
            if (work.last().second == 0 && index[v] < 0) {
                index[v] = low[v] = counter++;
                stack.append(v);
                onStack[v] = 1;
            }
            if (work.last().second < m_evaluates[v].size()) {
                const int w = m_evaluates[v][work.last().second++];
                if (w == v) {
                    m_cyclic[v] = 1;
                } else if (index[w] < 0) {
                    work.append({w, 0});
                } else if (onStack[w]) {
                    low[v] = qMin(low[v], index[w]);
                }
                continue;
            }
            if (low[v] == index[v]) {
                QVector<int> component;
                int w = -1;
                do {
                    w = stack.takeLast();
                    onStack[w] = 0;
                    component.append(w);
                } while (w != v);
                if (component.size() > 1) {
                    for (int c : component) {
                        m_cyclic[c] = 1;
                    }
                }
            }
            work.removeLast();
            if (!work.isEmpty()) {
                low[work.last().first] = qMin(low[work.last().first], low[v]);
            }
        }
    }
}

void NodeMapGraph::taintEvaluatorsOfCycles()
{
    QVector<int> queue;
    for (int i = 0; i < size(); ++i) {
        if (m_cyclic[i]) {
            m_problems.append({ProblemKind::ReferenceCycle, i, -1});
            queue.append(i);
        }
    }
    // Whoever evaluates a cyclic node can't be evaluated either.
    const QVector<QVector<int>> evaluators = this->evaluators();
    while (!queue.isEmpty()) {
        const int v = queue.takeLast();
        for (int u : evaluators[v]) {
            if (!m_cyclic[u]) {
                m_cyclic[u] = 1;
                queue.append(u);
            }
        }
    }
}

QVector<QVector<int>> NodeMapGraph::evaluators() const
{
    QVector<QVector<int>> result(size());
    for (int i = 0; i < size(); ++i) {
        for (int target : m_evaluates[i]) {
            result[target].append(i);
        }
    }
    return result;
}

void NodeMapGraph::taintEvaluatorsOfDefects()
{
    // Evaluating anything above a defective node would hand the defect to Aravis; each node
    // remembers the first defect found below it, breadth first, so each is visited once.
    QVector<int> queue;
    for (int i = 0; i < size(); ++i) {
        if (m_defectSource[i] == i) {
            queue.append(i);
        }
    }
    if (queue.isEmpty()) {
        return;
    }
    const QVector<QVector<int>> evaluators = this->evaluators();
    for (int k = 0; k < queue.size(); ++k) {
        const int v = queue[k];
        for (int u : evaluators[v]) {
            if (m_defectSource[u] < 0) {
                m_defectSource[u] = m_defectSource[v];
                queue.append(u);
            }
        }
    }
}

void NodeMapGraph::carryPollingTimes()
{
    // PollingTime sits on the register; the user sees the feature above it. Post-order over
    // the pValue links, each node once; a link back into the current path (a cycle) is ignored.
    auto shorter = [](int a, int b) { return a == 0 ? b : (b == 0 ? a : qMin(a, b)); };
    QVector<char> state(size(), 0);
    for (int start = 0; start < size(); ++start) {
        if (state[start] != 0) {
            continue;
        }
        QVector<QPair<int, int>> path{{start, 0}};
        state[start] = 1;
        m_pollingTime[start] = m_ownPollingTime[start];
        while (!path.isEmpty()) {
            const int v = path.last().first;
            if (path.last().second >= m_valueTargets[v].size()) {
                state[v] = 2;
                path.removeLast();
                if (!path.isEmpty()) {
                    const int parent = path.last().first;
                    m_pollingTime[parent] = shorter(m_pollingTime[parent], m_pollingTime[v]);
                }
                continue;
            }
            const int t = m_valueTargets[v][path.last().second++];
            if (state[t] == 2) {
                m_pollingTime[v] = shorter(m_pollingTime[v], m_pollingTime[t]);
            } else if (state[t] == 0) {
                state[t] = 1;
                m_pollingTime[t] = m_ownPollingTime[t];
                path.append({t, 0});
            }
        }
    }
}

QVector<int> NodeMapGraph::dependencyClosure(int node) const
{
    QVector<char> seen(size(), 0);
    QVector<int> result{node};
    seen[node] = 1;
    // A write lands on the node's value targets; whatever reads those is affected too.
    for (int i = 0; i < result.size(); ++i) {
        for (int t : m_valueTargets[result[i]]) {
            if (!seen[t]) {
                seen[t] = 1;
                result.append(t);
            }
        }
    }
    for (int i = 0; i < result.size(); ++i) {
        for (int d : m_dependents[result[i]]) {
            if (!seen[d]) {
                seen[d] = 1;
                result.append(d);
            }
        }
    }
    return result;
}

QVector<int> NodeMapGraph::deciders(int node, Condition condition) const
{
    // Walk the evaluation links from the condition down to the features a user can see. A
    // hidden register found on the way stands for the visible features whose value it holds.
    QVector<int> result;
    QSet<int> seen{node};
    QVector<int> queue;
    for (int t : m_conditions[node][size_t(condition)]) {
        if (!seen.contains(t)) {
            seen.insert(t);
            queue.append(t);
        }
    }
    QVector<int> owners;
    QSet<int> found;
    QSet<int> climbed{node};
    for (int i = 0; i < queue.size(); ++i) {
        const int v = queue[i];
        if (m_listed[v]) {
            if (!found.contains(v)) {
                found.insert(v);
                result.append(v);
            }
            continue;
        }
        owners.clear();
        collectOwners(v, node, owners, climbed);
        for (int o : owners) {
            if (!found.contains(o)) {
                found.insert(o);
                result.append(o);
            }
        }
        for (int t : m_evaluates[v]) {
            if (!seen.contains(t)) {
                seen.insert(t);
                queue.append(t);
            }
        }
    }
    return result;
}

void NodeMapGraph::collectOwners(int start, int node, QVector<int>& result,
                                 QSet<int>& climbed) const
{
    // Up the pValue links to the first listed feature on each way; `climbed` is shared by the
    // whole walk, so that each node is climbed through once.
    if (climbed.contains(start)) {
        return;
    }
    climbed.insert(start);
    QVector<int> stack{start};
    while (!stack.isEmpty()) {
        const int v = stack.takeLast();
        for (int owner : m_valueOwners[v]) {
            if (owner == node || climbed.contains(owner)) {
                continue;
            }
            climbed.insert(owner);
            if (m_listed[owner]) {
                result.append(owner);
            } else {
                stack.append(owner);
            }
        }
    }
}

} // namespace Backend
