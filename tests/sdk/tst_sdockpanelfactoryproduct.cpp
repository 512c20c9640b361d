#include <appcore/sdockpanelfactoryproduct.h>

#include <QLabel>
#include <QPointer>
#include <QtTest>

using Plugin::AppCore::SDockPanelFactoryProduct;

class TestSDockPanelFactoryProduct : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldBeEmptyWithTheHostsDefaultAttributes()
    {
        // The empty product of a factory that lacks its services carries the same
        // attributes as a filled one.
        const SDockPanelFactoryProduct product;
        QVERIFY(!product.widget);
        QVERIFY(product.title.isEmpty());
        QVERIFY(product.icon.isNull());
        QVERIFY(!product.id.isValid());
        QCOMPARE(product.dockArea, 5);
        QCOMPARE(product.dockFeatures, 1);
        QCOMPARE(SDockPanelFactoryProduct::DefaultDockArea, 5);
        QCOMPARE(SDockPanelFactoryProduct::ClosableDockFeature, 1);
    }

    void shouldNotOwnItsWidget()
    {
        QPointer<QLabel> label = new QLabel;
        {
            SDockPanelFactoryProduct product;
            product.widget = label;
            product.title = QStringLiteral("Features \u2013 All");
            product.id = Core::CId("Nodescope.Widget.All");
            const SDockPanelFactoryProduct copy = product;
            QCOMPARE(copy.widget, label.data());
            QCOMPARE(copy.title, product.title);
            QCOMPARE(copy.id, product.id);
        }
        QVERIFY(!label.isNull());
        delete label;
    }
};

QTEST_MAIN(TestSDockPanelFactoryProduct)
#include "tst_sdockpanelfactoryproduct.moc"
