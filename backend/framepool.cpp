#include "framepool.h"

#include <atomic>

using Plugin::Acquisition::Frame;
using Plugin::Acquisition::FramePtr;

namespace Backend {

FramePool::FramePool(int count, std::size_t bytesPerSlot)
{
    m_slots.reserve(std::size_t(qMax(count, 0)));
    for (int i = 0; i < count; ++i) {
        auto slot = std::make_shared<Slot>();
        slot->bytes.resize(bytesPerSlot);
        m_slots.push_back(std::move(slot));
    }
}

bool FramePool::isHeld(int index) const
{
    if (m_slots[std::size_t(index)].use_count() > 1) {
        return true;
    }
    // The consumer's last reads of the bytes happen before its release; see them done before
    // the slot is filled again.
    std::atomic_thread_fence(std::memory_order_acquire);
    return false;
}

int FramePool::findFree() const
{
    for (int i = 0; i < size(); ++i) {
        if (!m_slots[std::size_t(i)]->lent && !isHeld(i)) {
            return i;
        }
    }
    return -1;
}

FramePtr FramePool::lend(int index, const Frame& frame)
{
    const std::shared_ptr<Slot>& slot = m_slots[std::size_t(index)];
    slot->frame = frame;
    slot->lent = true;
    slot->lentAt = ++m_lends;
    return FramePtr(slot, &slot->frame);
}

int FramePool::reclaim(const std::function<void(int)>& returned)
{
    int count = 0;
    for (int i = 0; i < size(); ++i) {
        Slot& slot = *m_slots[std::size_t(i)];
        if (slot.lent && !isHeld(i)) {
            if (returned) {
                returned(i);
            }
            slot.lent = false;
            ++count;
        }
    }
    return count;
}

int FramePool::replaceOldestLent(std::size_t bytesPerSlot)
{
    int oldest = -1;
    for (int i = 0; i < size(); ++i) {
        const Slot& slot = *m_slots[std::size_t(i)];
        if (slot.lent && (oldest < 0 || slot.lentAt < m_slots[std::size_t(oldest)]->lentAt)) {
            oldest = i;
        }
    }
    if (oldest >= 0) {
        auto fresh = std::make_shared<Slot>();
        fresh->bytes.resize(bytesPerSlot);
        m_slots[std::size_t(oldest)] = std::move(fresh);
        ++m_replaced;
    }
    return oldest;
}

int FramePool::lentCount() const
{
    int count = 0;
    for (const auto& slot : m_slots) {
        count += slot->lent ? 1 : 0;
    }
    return count;
}

} // namespace Backend
