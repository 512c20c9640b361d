#include "internal/legacy/trimtoint32.h"

#include <QtTest>

#include <limits>

class tst_TrimToInt32 : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldKeepValuesInsideTheInt32RangeAndClipTheRest_data()
    {
        QTest::addColumn<qint64>("value");
        QTest::addColumn<int>("expected");
        const qint64 intMin = std::numeric_limits<int>::min();
        const qint64 intMax = std::numeric_limits<int>::max();
        QTest::newRow("zero") << qint64(0) << 0;
        QTest::newRow("negative") << qint64(-42) << -42;
        QTest::newRow("int32 maximum") << intMax << std::numeric_limits<int>::max();
        QTest::newRow("int32 minimum") << intMin << std::numeric_limits<int>::min();
        QTest::newRow("one above") << intMax + 1 << std::numeric_limits<int>::max();
        QTest::newRow("one below") << intMin - 1 << std::numeric_limits<int>::min();
        QTest::newRow("uint32 maximum") << qint64(4294967295LL) << std::numeric_limits<int>::max();
        QTest::newRow("int64 maximum")
            << std::numeric_limits<qint64>::max() << std::numeric_limits<int>::max();
        QTest::newRow("int64 minimum")
            << std::numeric_limits<qint64>::min() << std::numeric_limits<int>::min();
    }
    void shouldKeepValuesInsideTheInt32RangeAndClipTheRest()
    {
        QFETCH(qint64, value);
        QFETCH(int, expected);
        QCOMPARE(trimToInt32(value), expected);
    }
};

QTEST_APPLESS_MAIN(tst_TrimToInt32)
#include "tst_trimtoint32.moc"
