#include <core/alocalizedplugin.h>
#include <core/cplugininitializer.h>
#include <core/iplugin.h>
#include <featuretree/ifeaturetreestatusservice.h>

#include <QJsonObject>
#include <QPluginLoader>
#include <QSignalSpy>
#include <QtTest>

using Core::Plugin::IPlugin;
using Core::Plugin::IPluginInitializer;
using Plugin::FeatureTree::IFeatureTreeStatusService;

namespace {

// Declares no Q_INTERFACES of its own, as plug-ins may forget to.
class PlainPlugin : public IPlugin {
    Q_OBJECT
public:
    bool initialize(QPointer<IPluginInitializer>) override { return true; }
    void postInitialize() override {}
    bool unInitialize(QPointer<IPluginInitializer>) override { return true; }
};

class DeclaringPlugin : public PlainPlugin {
    Q_OBJECT
    Q_INTERFACES(Core::Plugin::IPlugin)
};

} // namespace

class TestIPlugin : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldDeclareTheInterfaceId()
    {
        QCOMPARE(qobject_interface_iid<IPlugin*>(), "com.vanto.viewer.IPlugin/1.0");
        QCOMPARE(qobject_interface_iid<IPlugin*>(), VANTO_VIEWER_PLUGIN_IID);
    }

    void shouldCastByInterfaceId()
    {
        PlainPlugin plain;
        DeclaringPlugin declaring;
        QObject other;

        QCOMPARE(qobject_cast<IPlugin*>(static_cast<QObject*>(&plain)),
                 static_cast<IPlugin*>(&plain));
        QCOMPARE(qobject_cast<IPlugin*>(static_cast<QObject*>(&declaring)),
                 static_cast<IPlugin*>(&declaring));
        QVERIFY(!qobject_cast<IPlugin*>(&other));
        QCOMPARE(plain.qt_metacast(VANTO_VIEWER_PLUGIN_IID), static_cast<void*>(&plain));
    }

    void shouldLoadAFixturePluginTheWayTheHostDoes()
    {
        // Given the fixture plug-in module
        QPluginLoader loader(QStringLiteral(FIXTURE_PLUGIN_PATH));
        QVERIFY2(loader.load(), qPrintable(loader.errorString()));

        // Then its metadata carries the interface id and its own keys
        const QJsonObject metaData = loader.metaData();
        QCOMPARE(metaData.value(QStringLiteral("IID")).toString(),
                 QStringLiteral(VANTO_VIEWER_PLUGIN_IID));
        QCOMPARE(metaData.value(QStringLiteral("MetaData")).toObject().value("Name").toString(),
                 QStringLiteral("Fixture"));

        // And its instance casts to the SDK's classes across the library boundary
        IPlugin* plugin = qobject_cast<IPlugin*>(loader.instance());
        QVERIFY(plugin);
        QVERIFY(qobject_cast<Core::Plugin::ALocalizedPlugin*>(loader.instance()));

        // When the host runs it through its life cycle
        Core::Plugin::CPluginInitializer initializer;
        QVERIFY(plugin->initialize(&initializer));
        auto status = initializer.getService<IFeatureTreeStatusService>();
        QVERIFY(status);
        QCOMPARE(status->objectName(), QStringLiteral("FixtureStatusService"));
        QSignalSpy newText(status.data(), &IFeatureTreeStatusService::newText);
        plugin->postInitialize();
        QCOMPARE(newText.count(), 1);
        QCOMPARE(newText.at(0).at(0).toString(), QStringLiteral("FixturePlugin ready"));
        QVERIFY(plugin->unInitialize(&initializer));

        // Then the service it offered is gone again
        QVERIFY(initializer.getService<IFeatureTreeStatusService>().isNull());
    }
};

QTEST_GUILESS_MAIN(TestIPlugin)
#include "tst_iplugin.moc"
