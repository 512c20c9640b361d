#include "featurestatusbar.h"

#include <camerapool.h>
#include <parametercollection/iparametercollection.h>

#include <QLabel>
#include <QtTest>

using VantoViewer::FeatureStatusBar;

class TestFeatureStatusBar : public QObject {
    Q_OBJECT

private:
    Backend::CameraPool m_pool;
    QSharedPointer<ParameterCollection::IParameterCollection> m_collection;

    QSharedPointer<ParameterCollection::IParameter> parameter(const char* fullName) const
    {
        return m_collection->getParameter(QLatin1String(fullName));
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_collection = m_pool.getParameterCollection(m_pool.openSimulated());
        QVERIFY(m_collection);
    }

    void cleanupTestCase() { m_pool.closeAll(); }

    void showsDisplayNameAndDescriptionOfTheFeature()
    {
        FeatureStatusBar bar;
        const auto width = parameter("@CameraDevice/Width");
        QVERIFY(width);

        bar.showFeature(width);

        const QString expected = width->getProperty(QStringLiteral("DisplayName")) +
                                 QStringLiteral(": ") +
                                 width->getProperty(QStringLiteral("Description")).simplified();
        QCOMPARE(bar.featureText(), expected);
        auto* label = bar.findChild<QLabel*>(QStringLiteral("currentFeatureLabel"));
        QVERIFY(label);
        QVERIFY(label->text().startsWith(width->getProperty(QStringLiteral("DisplayName"))));
    }

    void shortensLongDescriptionsButKeepsThemInTheToolTip()
    {
        // A camera whose one feature explains itself at length, as vendor files often do.
        const QString longText = QStringLiteral(
            "Sets the time during which the sensor collects light for one frame. Longer times "
            "give brighter images but blur moving objects; the camera may lower the frame "
            "rate to fit the time in. Applies only while automatic exposure is off.");
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("long.xml"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        const QString xml =
            QStringLiteral("<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                           "<RegisterDescription ModelName=\"Long\" VendorName=\"Vanto\" "
                           "StandardNameSpace=\"None\" SchemaMajorVersion=\"1\" "
                           "SchemaMinorVersion=\"1\" SchemaSubMinorVersion=\"0\" "
                           "MajorVersion=\"1\" MinorVersion=\"0\" SubMinorVersion=\"0\" "
                           "ProductGuid=\"2a0e5a3c-0f4e-4c7b-9a61-3b1f7c2d9e02\" "
                           "VersionGuid=\"6b8f2d1e-7c3a-4e59-8d20-1a9c5e7f3b43\" "
                           "xmlns=\"http://www.genicam.org/GenApi/Version_1_1\">\n"
                           "<Category Name=\"Root\"><pFeature>ExposureTime</pFeature></Category>\n"
                           "<Integer Name=\"ExposureTime\">\n"
                           "<DisplayName>Exposure Time</DisplayName>\n"
                           "<Description>%1</Description>\n"
                           "<Value>5000</Value><Min>10</Min><Max>1000000</Max>\n"
                           "</Integer>\n"
                           "</RegisterDescription>\n");
        file.write(xml.arg(longText).toUtf8());
        file.close();
        Backend::CameraPool pool;
        const auto collection = pool.getParameterCollection(pool.openSimulated(path));
        QVERIFY(collection);
        const auto exposure =
            collection->getParameter(QStringLiteral("@CameraDevice/ExposureTime"));
        QVERIFY(exposure);
        FeatureStatusBar bar;

        bar.showFeature(exposure);

        auto* label = bar.findChild<QLabel*>(QStringLiteral("currentFeatureLabel"));
        QCOMPARE(label->text().size(), 140);
        QVERIFY(label->text().startsWith(QStringLiteral("Exposure Time: Sets the time")));
        QVERIFY(label->text().endsWith(QChar(0x2026)));
        QCOMPARE(label->toolTip(), QStringLiteral("Exposure Time: ") + longText);
        QCOMPARE(bar.featureText(), label->toolTip());
        pool.closeAll();
    }

    void clearsTheFeatureForNoParameter()
    {
        FeatureStatusBar bar;
        bar.showFeature(parameter("@CameraDevice/Width"));
        bar.showFeature({});
        QCOMPARE(bar.featureText(), QString());
        QCOMPARE(bar.findChild<QLabel*>(QStringLiteral("currentFeatureLabel"))->text(), QString());
    }

    void keepsTheLastErrorUntilCleared()
    {
        FeatureStatusBar bar;
        bar.show();
        auto* label = bar.findChild<QLabel*>(QStringLiteral("lastErrorLabel"));
        QVERIFY(label);
        QVERIFY(!label->isVisible());

        bar.showError(QStringLiteral("Width: value out of range"));
        bar.showMessage(QStringLiteral("something passing"));

        QVERIFY(label->isVisible());
        QVERIFY(bar.errorText().endsWith(QStringLiteral("Width: value out of range")));
        // The time comes first, so that repeated errors can be told apart.
        QVERIFY(QRegularExpression(QStringLiteral("^\\d\\d:\\d\\d:\\d\\d "))
                    .match(bar.errorText())
                    .hasMatch());

        bar.showError(QString());
        QVERIFY(bar.errorText().endsWith(QStringLiteral("Width: value out of range")));

        bar.clearError();
        QVERIFY(!label->isVisible());
        QCOMPARE(bar.errorText(), QString());
    }

    void writeFailureNamesTheFeatureOnceWithItsKind_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("expected");
        using ParameterCollection::Exception;
        QTest::newRow("access") << int(Exception::Access)
                                << QStringLiteral("[Width] Access denied writing 0x100")
                                << QStringLiteral("Width: refused by the camera (access denied): "
                                                  "Access denied writing 0x100");
        QTest::newRow("range") << int(Exception::Range) << QStringLiteral("5 is below 16")
                               << QStringLiteral(
                                      "Width: refused by the camera (value out of range): 5 is "
                                      "below 16");
        QTest::newRow("invalid value")
            << int(Exception::InvalidArgument) << QStringLiteral("'x' is not an integer")
            << QStringLiteral(
                   "Width: refused by the camera (invalid value): 'x' is not an integer");
        QTest::newRow("timeout") << int(Exception::Timeout) << QStringLiteral("no answer")
                                 << QStringLiteral(
                                        "Width: not written: the camera did not answer in time: "
                                        "no answer");
        QTest::newRow("device lost")
            << int(Exception::DeviceLost) << QStringLiteral("the device is lost")
            << QStringLiteral("Width: not written: the camera is lost: the device is lost");
        QTest::newRow("not found")
            << int(Exception::NotFound) << QString()
            << QStringLiteral("Width: not written: the camera does not have it");
        QTest::newRow("other") << int(Exception::Generic) << QStringLiteral("[Width] odd")
                               << QStringLiteral("Width: the write failed: odd");
    }

    void writeFailureNamesTheFeatureOnceWithItsKind()
    {
        QFETCH(int, kind);
        QFETCH(QString, message);
        QFETCH(QString, expected);
        FeatureStatusBar bar;

        bar.showWriteFailure(QStringLiteral("@CameraDevice/Width"),
                             static_cast<ParameterCollection::Exception::Kind>(kind), message);

        QVERIFY2(bar.errorText().endsWith(QLatin1Char(' ') + expected),
                 qPrintable(bar.errorText()));
        QCOMPARE(bar.errorText().count(QStringLiteral("Width")), 1);
    }

    void panelMessagesNameTheFeatureOnce()
    {
        QCOMPARE(FeatureStatusBar::withoutRepeatedName(
                     QStringLiteral("[Width] [Width] 5 is below the minimum 16")),
                 QStringLiteral("[Width] 5 is below the minimum 16"));
        QCOMPARE(FeatureStatusBar::withoutRepeatedName(QStringLiteral("[Width] Width: denied")),
                 QStringLiteral("[Width] denied"));
        QCOMPARE(FeatureStatusBar::withoutRepeatedName(QStringLiteral("[Width] WidthMax is 64")),
                 QStringLiteral("[Width] WidthMax is 64"));
        QCOMPARE(FeatureStatusBar::withoutRepeatedName(QStringLiteral("Width: 640")),
                 QStringLiteral("Width: 640"));
    }
};

QTEST_MAIN(TestFeatureStatusBar)
#include "tst_featurestatusbar.moc"
