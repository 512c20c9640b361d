#pragma once

namespace Backend {

// Aravis computes a node by evaluating every node it links to, again for each node that asks:
// reading all nodes of a chain of n links costs n^2/2 evaluations (a chain of 10 000 links
// took minutes), and the same holds for access modes and limits. While an EvaluationMemo lives
// on a thread, each computed node (Integer, Float, SwissKnife and converter nodes, never a
// register) is evaluated once and its value, limits, access mode or error are answered from
// the memo. Nothing is written while one batch of reads runs, so the answers can't change
// within it. Registers keep Aravis's own cache, so every device read still happens as before.
class EvaluationMemo {
public:
    // Puts Aravis's computed node classes behind the memo. Safe to call from any thread.
    static void install();

    // Memoizes on the calling thread until destroyed; an inner one leaves the outer in charge.
    EvaluationMemo();
    ~EvaluationMemo();
    EvaluationMemo(const EvaluationMemo&) = delete;
    EvaluationMemo& operator=(const EvaluationMemo&) = delete;

private:
    bool m_outermost = false;
};

} // namespace Backend
