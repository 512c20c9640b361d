#pragma once

class QThread;

namespace Backend {

// Device threads whose collection has gone. A device that hangs keeps its thread inside an
// Aravis call for seconds, so nobody waits for it when its collection closes: the thread ends
// on its own and is deleted here. The process waits for the stragglers only when it ends, so
// that no Aravis object outlives the library's own teardown.
class ThreadRetirement {
public:
    // Takes ownership of `thread`, which has been asked to quit.
    static void retire(QThread* thread);
    // Waits up to `timeoutMs` for every retired thread to end and deletes those that did.
    // Returns the number still running.
    static int waitForAll(unsigned long timeoutMs);
    static int runningCount();
};

} // namespace Backend
