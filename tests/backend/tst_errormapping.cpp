#include <arv.h>

#include <errormapping.h>

#include <QtTest>

using ParameterCollection::Exception;

class tst_ErrorMapping : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldMapAravisErrorsToKinds_data();
    void shouldMapAravisErrorsToKinds();
    void shouldTreatOnlyConnectionFailuresAsLoss();
    void shouldThrowTheTypedExceptionWithFeaturePrefix();
};

void tst_ErrorMapping::shouldMapAravisErrorsToKinds_data()
{
    QTest::addColumn<quint32>("domain");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("kind");
    QTest::newRow("timeout") << quint32(ARV_DEVICE_ERROR) << int(ARV_DEVICE_ERROR_TIMEOUT)
                             << int(Exception::Timeout);
    QTest::newRow("not connected")
        << quint32(ARV_DEVICE_ERROR) << int(ARV_DEVICE_ERROR_NOT_CONNECTED)
        << int(Exception::DeviceLost);
    QTest::newRow("access denied")
        << quint32(ARV_DEVICE_ERROR) << int(ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED)
        << int(Exception::Access);
    QTest::newRow("read only") << quint32(ARV_GC_ERROR) << int(ARV_GC_ERROR_READ_ONLY)
                               << int(Exception::Access);
    QTest::newRow("out of range") << quint32(ARV_GC_ERROR) << int(ARV_GC_ERROR_OUT_OF_RANGE)
                                  << int(Exception::Range);
    QTest::newRow("syntax") << quint32(ARV_GC_ERROR) << int(ARV_GC_ERROR_INVALID_SYNTAX)
                            << int(Exception::InvalidArgument);
    QTest::newRow("no entry") << quint32(ARV_GC_ERROR) << int(ARV_GC_ERROR_ENUM_ENTRY_NOT_FOUND)
                              << int(Exception::InvalidArgument);
    QTest::newRow("no node") << quint32(ARV_GC_ERROR) << int(ARV_GC_ERROR_NODE_NOT_FOUND)
                             << int(Exception::NotFound);
    QTest::newRow("other domain") << quint32(G_IO_ERROR) << int(G_IO_ERROR_FAILED)
                                  << int(Exception::Generic);
}

void tst_ErrorMapping::shouldMapAravisErrorsToKinds()
{
    QFETCH(quint32, domain);
    QFETCH(int, code);
    QFETCH(int, kind);
    QCOMPARE(int(Backend::exceptionKindOf(GQuark(domain), code)), kind);
}

void tst_ErrorMapping::shouldTreatOnlyConnectionFailuresAsLoss()
{
    QVERIFY(Backend::isDeviceLossError(ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_TIMEOUT));
    QVERIFY(Backend::isDeviceLossError(ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_TRANSFER_ERROR));
    QVERIFY(!Backend::isDeviceLossError(ARV_DEVICE_ERROR,
                                        ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED));
    QVERIFY(!Backend::isDeviceLossError(ARV_GC_ERROR, ARV_GC_ERROR_OUT_OF_RANGE));
}

void tst_ErrorMapping::shouldThrowTheTypedExceptionWithFeaturePrefix()
{
    try {
        Backend::throwFor(Exception::Range, QStringLiteral("Gain"), QStringLiteral("too high"));
        QFAIL("throwFor must throw");
    } catch (const ParameterCollection::RangeException& e) {
        QCOMPARE(QString::fromUtf8(e.what()), QStringLiteral("[Gain] too high"));
        QCOMPARE(e.featureName(), QStringLiteral("Gain"));
    }
}

QTEST_GUILESS_MAIN(tst_ErrorMapping)
#include "tst_errormapping.moc"
