#include "apptestsupport.h"

#include "featureinstantiationservice.h"
#include "pluginmanager.h"

#include <appcore/imenuservice.h>
#include <camerapool.h>
#include <core/cplugininitializer.h>
#include <core/iplugin.h>
#include <featuretree/ifeaturetreecontrolservice.h>
#include <featuretree/ifeaturetreestatusservice.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using VantoViewer::PluginManager;

class TestPluginManager : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_settingsDir;

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_settingsDir.isValid());
        isolateSettings(m_settingsDir.path());
    }

    void pluginFoldersPutTheGivenFolderFirst()
    {
        const QStringList folders = PluginManager::pluginFolders(QStringLiteral("/opt/extra"));
        QCOMPARE(folders.size(), 3);
        QCOMPARE(folders.at(0), QStringLiteral("/opt/extra"));
        QCOMPARE(folders.at(1),
                 QDir::cleanPath(QCoreApplication::applicationDirPath() + "/../plugins"));
        QVERIFY(folders.at(2).endsWith(QStringLiteral("/vantoviewer/plugins")));
        QCOMPARE(PluginManager::pluginFolders().size(), 2);
    }

    void findPluginFindsTheBuiltModule()
    {
        const QString found = PluginManager::findPlugin(
            QStringLiteral("Nodescope"),
            {QStringLiteral("/nonexistent"), QStringLiteral(VANTOVIEWER_TEST_PLUGIN_DIR)});
        QCOMPARE(QFileInfo(found).fileName(), QStringLiteral("libNodescope.so"));
        QVERIFY(PluginManager::findPlugin(QStringLiteral("NoSuchPlugin"),
                                          {QStringLiteral(VANTOVIEWER_TEST_PLUGIN_DIR)})
                    .isEmpty());
    }

    void loadRefusesAFileThatIsNoPlugin()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("libFake.so"));
        QFile fake(path);
        QVERIFY(fake.open(QIODevice::WriteOnly));
        fake.write("not a library");
        fake.close();

        PluginManager manager;
        QVERIFY(!manager.load(path));
        QVERIFY(manager.errorString().contains(path));
        QVERIFY(manager.plugins().isEmpty());
    }

    void loadedPluginOffersItsServicesAndRegistersItsPanels()
    {
        // Given the host's services
        PluginManager manager;
        auto instantiation = QSharedPointer<VantoViewer::FeatureInstantiationService>::create();
        auto pool = QSharedPointer<Backend::CameraPool>::create();
        manager.registerService(instantiation);
        manager.registerService(pool);

        // When the built plug-in is loaded and started
        const QString file = PluginManager::findPlugin(
            QStringLiteral("Nodescope"), {QStringLiteral(VANTOVIEWER_TEST_PLUGIN_DIR)});
        QVERIFY2(manager.load(file), qPrintable(manager.errorString()));
        QCOMPARE(manager.plugins().size(), 1);
        QCOMPARE(manager.metaData(0).value(QStringLiteral("Name")).toString(),
                 QStringLiteral("Nodescope"));
        QVERIFY(
            manager.initializer()->getService<Plugin::FeatureTree::IFeatureTreeControlService>());
        QVERIFY(
            manager.initializer()->getService<Plugin::FeatureTree::IFeatureTreeStatusService>());
        QVERIFY(instantiation->factories().isEmpty());
        manager.postInitializeAll();

        // Then its panels are there, the default one first
        // (All, Basic and four user tabs).
        QCOMPARE(instantiation->factories().size(), 6);
        QCOMPARE(instantiation->factories().first()->getId().toString(),
                 QStringLiteral("Plugin.Nodescope.Factory All Settings"));

        // And unloading takes them and the plug-in's services away, the host's stay.
        manager.unloadAll();
        QVERIFY(instantiation->factories().isEmpty());
        QVERIFY(manager.plugins().isEmpty());
        QVERIFY(
            !manager.initializer()->getService<Plugin::FeatureTree::IFeatureTreeControlService>());
        QCOMPARE(manager.initializer()->services().size(), 2);
    }
};

QTEST_MAIN(TestPluginManager)
#include "tst_pluginmanager.moc"
