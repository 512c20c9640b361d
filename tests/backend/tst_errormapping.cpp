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
    void shouldNameTheNodeOnceInAravisMessages_data();
    void shouldNameTheNodeOnceInAravisMessages();
    void shouldNameTheNodeOnceWhenAravisNamesItTwice();
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

void tst_ErrorMapping::shouldNameTheNodeOnceInAravisMessages_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("shown");
    QTest::newRow("twice") << QStringLiteral("[Gain] [Gain] Out of range")
                           << QStringLiteral("[Gain] Out of range");
    QTest::newRow("three times") << QStringLiteral("[A] [A] [A] x") << QStringLiteral("[A] x");
    QTest::newRow("once") << QStringLiteral("[Gain] Out of range")
                          << QStringLiteral("[Gain] Out of range");
    // Two nodes named one after the other say where the error came from; both stay.
    QTest::newRow("a node and its register")
        << QStringLiteral("[Gain] [GainReg] timeout") << QStringLiteral("[Gain] [GainReg] timeout");
    QTest::newRow("no name") << QStringLiteral("Timeout") << QStringLiteral("Timeout");
    QTest::newRow("only the name") << QStringLiteral("[Gain] [Gain] ") << QStringLiteral("[Gain] ");
    QTest::newRow("unclosed") << QStringLiteral("[Gain timeout") << QStringLiteral("[Gain timeout");
    QTest::newRow("empty") << QString() << QString();
}

void tst_ErrorMapping::shouldNameTheNodeOnceInAravisMessages()
{
    QFETCH(QString, message);
    QFETCH(QString, shown);
    GError* error =
        g_error_new_literal(ARV_GC_ERROR, ARV_GC_ERROR_OUT_OF_RANGE, message.toUtf8().constData());
    QCOMPARE(Backend::messageOf(error), shown);
    g_clear_error(&error);
    QCOMPARE(Backend::messageOf(nullptr), QString());
}

void tst_ErrorMapping::shouldNameTheNodeOnceWhenAravisNamesItTwice()
{
    // An enumeration none of whose entries is available: Aravis's own message for setting it
    // names the node at two levels.
    const QByteArray xml =
        "<?xml version=\"1.0\"?>\n"
        "<RegisterDescription ModelName=\"M\" VendorName=\"V\" StandardNameSpace=\"None\" "
        "SchemaMajorVersion=\"1\" SchemaMinorVersion=\"1\" SchemaSubMinorVersion=\"0\" "
        "MajorVersion=\"1\" MinorVersion=\"0\" SubMinorVersion=\"0\" ToolTip=\"\" "
        "ProductGuid=\"0\" VersionGuid=\"0\" "
        "xmlns=\"http://www.genicam.org/GenApi/Version_1_1\">\n"
        "<Category Name=\"Root\"><pFeature>AcquisitionMode</pFeature></Category>\n"
        "<Integer Name=\"Never\"><Value>0</Value></Integer>\n"
        "<Enumeration Name=\"AcquisitionMode\"><EnumEntry Name=\"Continuous\">"
        "<pIsAvailable>Never</pIsAvailable><Value>0</Value></EnumEntry><Value>0</Value>"
        "</Enumeration>\n"
        "</RegisterDescription>\n";
    ArvGc* genicam = arv_gc_new(nullptr, xml.constData(), size_t(xml.size()));
    QVERIFY(genicam);
    ArvGcNode* node = arv_gc_get_node(genicam, "AcquisitionMode");
    QVERIFY(node && ARV_IS_GC_ENUMERATION(node));
    GError* error = nullptr;
    arv_gc_enumeration_set_string_value(ARV_GC_ENUMERATION(node), "Continuous", &error);
    QVERIFY(error);
    const QString raw = QString::fromUtf8(error->message);
    const QString shown = Backend::messageOf(error);
    g_clear_error(&error);
    g_object_unref(genicam);
    QVERIFY2(shown.startsWith(QLatin1String("[AcquisitionMode] ")), qPrintable(shown));
    QVERIFY2(shown.count(QLatin1String("[AcquisitionMode]")) == 1, qPrintable(shown));
    QVERIFY2(shown.size() > QStringLiteral("[AcquisitionMode] ").size(), qPrintable(shown));
    QVERIFY2(raw.endsWith(shown), qPrintable(raw)); // nothing but the repeat went
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
