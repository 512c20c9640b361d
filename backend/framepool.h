#pragma once

#include <acquisition/frame.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace Backend {

// The frames of one stream, made from a fixed set of slots that are used again and again, so
// that the steady state allocates nothing. A slot is handed out as a FramePtr that shares the
// slot's own control block (the aliasing constructor); it is free again once no frame refers
// to it, i.e. once only the pool holds it.
//
// Every call belongs to the stream's thread. Consumers may hold and drop their frames on any
// thread; a slot they hold is simply not reused.
class FramePool {
public:
    struct Slot {
        Plugin::Acquisition::Frame frame;
        // Bytes the pool owns, for a stream that fills its frames itself.
        std::vector<uchar> bytes;
        // Or a buffer owned by someone else (a driver's), kept alive as long as the slot.
        std::shared_ptr<void> buffer;
        bool lent = false;  // handed out and not yet taken back by reclaim()
        quint64 lentAt = 0; // the pool's count of lends when it was lent
    };

    // `count` slots, each with `bytesPerSlot` bytes of its own (0: frames refer to buffers
    // held in Slot::buffer).
    FramePool(int count, std::size_t bytesPerSlot);
    FramePool(const FramePool&) = delete;
    FramePool& operator=(const FramePool&) = delete;

    int size() const { return int(m_slots.size()); }
    Slot& slot(int index) { return *m_slots[std::size_t(index)]; }

    // A slot that no frame refers to, or -1 when consumers hold every one of them.
    int findFree() const;
    // Hands out `frame`, stored in slot `index`, which stays lent until reclaim() finds it
    // released.
    Plugin::Acquisition::FramePtr lend(int index, const Plugin::Acquisition::Frame& frame);
    // Takes back every lent slot that no consumer holds any more, calling `returned` with its
    // index first (a stream gives the driver's buffer back there). Returns how many.
    int reclaim(const std::function<void(int index)>& returned = nullptr);
    // Slots handed out and not yet taken back.
    int lentCount() const;
    // When consumers hold on to frames so long that the stream would run dry: the slot lent
    // longest ago leaves the pool to its consumers, and a new one (with `bytesPerSlot` bytes
    // of its own) takes its place, so that the stream never loses a frame for a consumer that
    // keeps them. Returns the index replaced, or -1 when no slot is lent. This allocates; it
    // happens only while consumers hoard.
    int replaceOldestLent(std::size_t bytesPerSlot);
    // Slots given up by replaceOldestLent() since the pool was made.
    int replacedCount() const { return m_replaced; }

private:
    bool isHeld(int index) const;

    std::vector<std::shared_ptr<Slot>> m_slots;
    quint64 m_lends = 0;
    int m_replaced = 0;
};

} // namespace Backend
