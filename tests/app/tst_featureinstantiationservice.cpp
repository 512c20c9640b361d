#include "featureinstantiationservice.h"

#include <QLabel>
#include <QSignalSpy>
#include <QtTest>

using VantoViewer::FeatureInstantiationService;
using FactoryPointer = QPointer<Plugin::AppCore::IDockPanelFactory>;

namespace {

class LabelFactory : public Plugin::AppCore::IDockPanelFactory {
public:
    explicit LabelFactory(const QString& id) : m_id(id) {}
    Core::CId getId() const override { return m_id; }
    Plugin::AppCore::SDockPanelFactoryProduct createDockPanel() override
    {
        Plugin::AppCore::SDockPanelFactoryProduct product;
        product.widget = new QLabel(m_id.toString());
        product.title = m_id.toString();
        product.id = m_id;
        return product;
    }

private:
    Core::CId m_id;
};

QStringList idsOf(const QList<FactoryPointer>& factories)
{
    QStringList ids;
    for (const FactoryPointer& factory : factories) {
        ids.append(factory->getId().toString());
    }
    return ids;
}

} // namespace

class TestFeatureInstantiationService : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<FactoryPointer>(); }

    void registeredFactoriesComeBackInRegistrationOrder()
    {
        FeatureInstantiationService service;
        LabelFactory all(QStringLiteral("All")), basic(QStringLiteral("Basic")),
            user(QStringLiteral("User0"));
        QSignalSpy registered(&service, &FeatureInstantiationService::factoryRegistered);

        service.registerFactory(&all);
        service.registerFactory(&basic);
        service.registerFactory(&user);

        QCOMPARE(
            idsOf(service.factories()),
            QStringList({QStringLiteral("All"), QStringLiteral("Basic"), QStringLiteral("User0")}));
        QCOMPARE(registered.count(), 3);
        QCOMPARE(registered.at(1).at(0).value<FactoryPointer>().data(), &basic);
    }

    void registeringTwiceOrNullChangesNothing()
    {
        FeatureInstantiationService service;
        LabelFactory all(QStringLiteral("All"));
        service.registerFactory(&all);
        QSignalSpy registered(&service, &FeatureInstantiationService::factoryRegistered);

        service.registerFactory(&all);
        service.registerFactory(FactoryPointer());

        QCOMPARE(service.factories().size(), 1);
        QCOMPARE(registered.count(), 0);
    }

    void unregisterRemovesTheFactoryAndSaysSo()
    {
        FeatureInstantiationService service;
        LabelFactory all(QStringLiteral("All")), basic(QStringLiteral("Basic"));
        service.registerFactory(&all);
        service.registerFactory(&basic);
        QSignalSpy unregistered(&service, &FeatureInstantiationService::factoryUnregistered);

        service.unregisterFactory(&all);
        service.unregisterFactory(&all);

        QCOMPARE(idsOf(service.factories()), QStringList({QStringLiteral("Basic")}));
        QCOMPARE(unregistered.count(), 1);
        QCOMPARE(unregistered.at(0).at(0).value<FactoryPointer>().data(), &all);
    }

    void destroyedFactoryIsForgotten()
    {
        FeatureInstantiationService service;
        LabelFactory basic(QStringLiteral("Basic"));
        auto* all = new LabelFactory(QStringLiteral("All"));
        service.registerFactory(all);
        service.registerFactory(&basic);

        delete all;

        QCOMPARE(idsOf(service.factories()), QStringList({QStringLiteral("Basic")}));
        // And a new factory of the same id can come in its place.
        LabelFactory again(QStringLiteral("All"));
        service.registerFactory(&again);
        QCOMPARE(service.factories().size(), 2);
    }
};

QTEST_MAIN(TestFeatureInstantiationService)
#include "tst_featureinstantiationservice.moc"
