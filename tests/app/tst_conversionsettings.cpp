#include "conversionsettings.h"

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>

#include <QtTest>

using VantoViewer::ConversionSettings;

class TestConversionSettings : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldReadTheConverterNodeMapOfTheBuiltInCamera()
    {
        // Given: the built-in camera with its @ImageFormatConverter at its start values
        Backend::CameraPool pool;
        const auto collection = pool.getParameterCollection(pool.openSimulated());
        QVERIFY(collection);
        const ConversionSettings start = ConversionSettings::fromCollection(*collection);
        QCOMPARE(start.outputFormat, ConversionSettings::RGB8);
        QCOMPARE(start.gamma, 1.0);

        // When: the user picks grey and a gamma in the tree
        collection->getParameter(QStringLiteral("@ImageFormatConverter/OutputPixelFormat"))
            ->setValue(QStringLiteral("Mono8"));
        collection->getParameter(QStringLiteral("@ImageFormatConverter/Gamma"))
            ->setValue(QVariant(0.45));
        static_cast<Backend::DeviceParameterCollection*>(collection.data())->waitForDevice();

        // Then
        const ConversionSettings changed = ConversionSettings::fromCollection(*collection);
        QCOMPARE(changed.outputFormat, ConversionSettings::Mono8);
        QCOMPARE(changed.gamma, 0.45);
        pool.closeAll();
    }

    void shouldOfferOnlyWhatTheConverterDoes()
    {
        // Nothing the conversion ignores is offered as a feature.
        Backend::CameraPool pool;
        const auto collection = pool.getParameterCollection(pool.openSimulated());
        const QStringList features = collection->getChildren(
            QStringLiteral("@ImageFormatConverter/ImageFormatConverterControl"));
        QStringList names;
        for (const QString& feature : features) {
            names << feature.section(QLatin1Char('/'), -1);
        }
        QCOMPARE(names,
                 QStringList({QStringLiteral("OutputPixelFormat"), QStringLiteral("Gamma")}));
        pool.closeAll();
    }
};

QTEST_GUILESS_MAIN(TestConversionSettings)
#include "tst_conversionsettings.moc"
