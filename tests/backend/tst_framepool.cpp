#include <framepool.h>

#include <QtTest>

#include <cstring>

using Backend::FramePool;
using Plugin::Acquisition::Frame;
using Plugin::Acquisition::FramePtr;

class tst_FramePool : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldReuseASlotOnceNoFrameHoldsIt();
    void shouldNotReuseASlotAConsumerHolds();
    void shouldReportNoFreeSlotWhenConsumersHoldAll();
    void shouldKeepAFrameValidAfterThePoolWent();
    void shouldCallBackForEachReturnedSlot();
    void shouldReplaceTheOldestLentSlotAndLeaveItsFrameAlone();
};

namespace {

FramePtr lendFilled(FramePool& pool, int slot, uchar value, quint64 id)
{
    auto& bytes = pool.slot(slot).bytes;
    std::memset(bytes.data(), value, bytes.size());
    return pool.lend(slot,
                     Frame(4, 4, 0x01080001, bytes.data(), bytes.size(), id, 0, Frame::Complete));
}

} // namespace

void tst_FramePool::shouldReuseASlotOnceNoFrameHoldsIt()
{
    FramePool pool(2, 16);
    const int first = pool.findFree();
    QCOMPARE(first, 0);
    FramePtr frame = lendFilled(pool, first, 7, 1);
    QCOMPARE(frame->data(), pool.slot(first).bytes.data());
    QCOMPARE(frame->frameId(), quint64(1));
    QCOMPARE(pool.lentCount(), 1);
    frame.reset();
    QCOMPARE(pool.reclaim(), 1);
    QCOMPARE(pool.lentCount(), 0);
    // The same slot and the same bytes: nothing new was made.
    QCOMPARE(pool.findFree(), first);
    FramePtr again = lendFilled(pool, first, 9, 2);
    QCOMPARE(again->data(), pool.slot(first).bytes.data());
    QCOMPARE(again->data()[0], uchar(9));
}

void tst_FramePool::shouldNotReuseASlotAConsumerHolds()
{
    FramePool pool(2, 16);
    FramePtr held = lendFilled(pool, pool.findFree(), 1, 1);
    FramePtr copy = held; // a second consumer
    held.reset();
    QCOMPARE(pool.reclaim(), 0);
    const int other = pool.findFree();
    QCOMPARE(other, 1);
    QCOMPARE(copy->data()[0], uchar(1));
}

void tst_FramePool::shouldReportNoFreeSlotWhenConsumersHoldAll()
{
    FramePool pool(3, 8);
    std::vector<FramePtr> held;
    for (int i = 0; i < 3; ++i) {
        const int slot = pool.findFree();
        QVERIFY(slot >= 0);
        held.push_back(lendFilled(pool, slot, uchar(i), quint64(i)));
    }
    QCOMPARE(pool.findFree(), -1);
    QCOMPARE(pool.size(), 3);
    held.erase(held.begin() + 1);
    pool.reclaim();
    QCOMPARE(pool.findFree(), 1);
}

void tst_FramePool::shouldKeepAFrameValidAfterThePoolWent()
{
    FramePtr survivor;
    {
        FramePool pool(2, 32);
        survivor = lendFilled(pool, 0, 42, 5);
    }
    QCOMPARE(survivor->size(), std::size_t(32));
    for (std::size_t i = 0; i < survivor->size(); ++i) {
        QCOMPARE(survivor->data()[i], uchar(42));
    }
}

void tst_FramePool::shouldCallBackForEachReturnedSlot()
{
    FramePool pool(3, 0);
    auto a = pool.lend(0, Frame());
    auto b = pool.lend(1, Frame());
    auto c = pool.lend(2, Frame());
    a.reset();
    c.reset();
    QVector<int> returned;
    QCOMPARE(pool.reclaim([&returned](int index) { returned << index; }), 2);
    QCOMPARE(returned, (QVector<int>{0, 2}));
    QCOMPARE(pool.lentCount(), 1);
}

void tst_FramePool::shouldReplaceTheOldestLentSlotAndLeaveItsFrameAlone()
{
    FramePool pool(2, 8);
    FramePtr first = lendFilled(pool, 0, 1, 1);
    FramePtr second = lendFilled(pool, 1, 2, 2);
    QCOMPARE(pool.findFree(), -1);
    QCOMPARE(pool.replaceOldestLent(8), 0);
    QCOMPARE(pool.size(), 2);
    QCOMPARE(pool.replacedCount(), 1);
    QCOMPARE(pool.findFree(), 0);
    QVERIFY(pool.slot(0).bytes.data() != first->data());
    FramePtr third = lendFilled(pool, 0, 3, 3);
    // The frame given up keeps its bytes.
    QCOMPARE(first->data()[0], uchar(1));
    QCOMPARE(third->data()[0], uchar(3));
}

QTEST_GUILESS_MAIN(tst_FramePool)
#include "tst_framepool.moc"
