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
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QtTest>

using VantoViewer::PluginManager;

namespace {

// Lines logged in one category while an instance lives.
class CategoryLog {
public:
    explicit CategoryLog(const char* category)
    {
        s_category = category;
        s_lines.clear();
        m_previous = qInstallMessageHandler(&CategoryLog::handle);
    }
    ~CategoryLog() { qInstallMessageHandler(m_previous); }
    QStringList lines() const { return s_lines; }

private:
    static void handle(QtMsgType, const QMessageLogContext& context, const QString& message)
    {
        if (context.category && QLatin1String(context.category) == QLatin1String(s_category)) {
            s_lines.append(message);
        }
    }

    static inline const char* s_category = nullptr;
    static inline QStringList s_lines;
    QtMessageHandler m_previous = nullptr;
};

} // namespace

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

    void pluginFoldersPutTheGivenFolderFirstThenTheBuildTreeThenTheInstalledFolder()
    {
        // Given an extra folder, when the folders are listed
        const QStringList folders = PluginManager::pluginFolders(QStringLiteral("/opt/extra"));

        // Then it comes first, the build tree's plugins folder second, the installed one last
        const QString appDir = QCoreApplication::applicationDirPath();
        QCOMPARE(folders,
                 QStringList({QStringLiteral("/opt/extra"), QDir::cleanPath(appDir + "/../plugins"),
                              QDir::cleanPath(appDir + "/" VANTOVIEWER_RELATIVE_PLUGIN_DIR)}));
    }

    void pluginFoldersWithoutAnExtraFolderAreTheBuildTreeAndTheInstalledFolder()
    {
        const QString appDir = QCoreApplication::applicationDirPath();
        QCOMPARE(PluginManager::pluginFolders(),
                 QStringList({QDir::cleanPath(appDir + "/../plugins"),
                              QDir::cleanPath(appDir + "/" VANTOVIEWER_RELATIVE_PLUGIN_DIR)}));
        QCOMPARE(PluginManager::pluginFolders(QString()), PluginManager::pluginFolders());
    }

    void installedPluginFolderIsFoundRelativeToTheExecutable()
    {
        // An installed tree may be moved to any prefix: the folder must follow the executable
        // and never be a path fixed when the build was configured.
        QVERIFY(QDir::isRelativePath(QStringLiteral(VANTOVIEWER_RELATIVE_PLUGIN_DIR)));
        const QString installed = PluginManager::pluginFolders().last();
        const QString appParent = QDir::cleanPath(QCoreApplication::applicationDirPath() + "/..");
        QVERIFY2(installed.startsWith(appParent + QLatin1Char('/')), qPrintable(installed));
        QVERIFY2(installed.endsWith(QStringLiteral("/vantoviewer/plugins")), qPrintable(installed));
    }

    void relativeExtraFolderIsMadeAbsolute()
    {
        const QStringList folders = PluginManager::pluginFolders(QStringLiteral("extra"));
        QCOMPARE(folders.first(), QDir::current().absoluteFilePath(QStringLiteral("extra")));
        QCOMPARE(folders.size(), 3);
    }

    void findPluginTakesTheFirstFolderThatHasIt()
    {
        // Given the same plug-in file name in two folders, and a folder without it
        QTemporaryDir first;
        QTemporaryDir second;
        QTemporaryDir empty;
        QVERIFY(first.isValid() && second.isValid() && empty.isValid());
        for (const QTemporaryDir* dir : {&first, &second}) {
            QFile file(dir->filePath(QStringLiteral("libNodescope.so")));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }

        // Then the earlier folder wins, whichever order they are given in
        const QString name = QStringLiteral("Nodescope");
        QCOMPARE(PluginManager::findPlugin(name, {first.path(), second.path()}),
                 first.filePath(QStringLiteral("libNodescope.so")));
        QCOMPARE(PluginManager::findPlugin(name, {second.path(), first.path()}),
                 second.filePath(QStringLiteral("libNodescope.so")));
        // And a folder without it is passed over
        QCOMPARE(PluginManager::findPlugin(name, {empty.path(), second.path()}),
                 second.filePath(QStringLiteral("libNodescope.so")));
        QVERIFY(PluginManager::findPlugin(name, {empty.path()}).isEmpty());
    }

    void findPluginsListsEachLibraryOnceFromTheEarliestFolder()
    {
        // Given a plug-in in two folders, another plug-in in the second, and a file that is
        // no library
        QTemporaryDir first;
        QTemporaryDir second;
        QVERIFY(first.isValid() && second.isValid());
        for (const QString& path : {first.filePath(QStringLiteral("libNodescope.so")),
                                    second.filePath(QStringLiteral("libNodescope.so")),
                                    second.filePath(QStringLiteral("libCameraTemperature.so")),
                                    second.filePath(QStringLiteral("README.txt"))}) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
        }

        // When every plug-in is looked for
        const QStringList found = PluginManager::findPlugins({first.path(), second.path()});

        // Then each library comes once, the first folder's copy wins, and the text file is left
        QCOMPARE(found, QStringList({first.filePath(QStringLiteral("libNodescope.so")),
                                     second.filePath(QStringLiteral("libCameraTemperature.so"))}));
        QVERIFY(PluginManager::findPlugins({QStringLiteral("/nonexistent")}).isEmpty());
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

    void loadLogsThePluginFileOnlyWhenAsked()
    {
        const QString file = PluginManager::findPlugin(
            QStringLiteral("Nodescope"), {QStringLiteral(VANTOVIEWER_TEST_PLUGIN_DIR)});
        QVERIFY(!file.isEmpty());
        {
            // Quiet by default
            CategoryLog log("vanto.viewer.plugins");
            PluginManager manager;
            QVERIFY2(manager.load(file), qPrintable(manager.errorString()));
            manager.unloadAll();
            QCOMPARE(log.lines(), QStringList());
        }
        {
            // When the category is enabled, the loaded file is named
            QLoggingCategory::setFilterRules(QStringLiteral("vanto.viewer.plugins.info=true"));
            CategoryLog log("vanto.viewer.plugins");
            PluginManager manager;
            QVERIFY2(manager.load(file), qPrintable(manager.errorString()));
            manager.unloadAll();
            QLoggingCategory::setFilterRules(QString());
            QCOMPARE(log.lines().size(), 1);
            QVERIFY2(log.lines().first().endsWith(QFileInfo(file).absoluteFilePath()),
                     qPrintable(log.lines().first()));
        }
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
