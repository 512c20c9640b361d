#pragma once

namespace Backend {

// Aravis evaluates integer formulas with the processor's division, and on x86-64 the one
// quotient that does not fit in 64 bits (the lowest integer divided by -1, and its remainder)
// traps instead of wrapping. No description can be checked for it in advance: the operands
// are register values known only when read. So the trap is caught where it happens: the
// division is finished the way other processors finish it (quotient wraps, remainder 0), the
// evaluation goes on, and the thread's count of such overflows grows, so that the reader can
// show the value as an error instead of the wrapped number. Every other trap goes on to the
// handler that was there before. Elsewhere the division does not trap and nothing is done.
class ArithmeticGuard {
public:
    // Installs the trap handler once per process. Safe to call from any thread.
    static void install();
    // Overflowing divisions finished on the calling thread so far.
    static unsigned overflowCount();
    // Counts an overflow again for a result taken over from an earlier evaluation.
    static void countOverflow();
};

} // namespace Backend
