#include <core/alocalizedplugin.h>
#include <core/iplugininitializer.h>

#include <QCoreApplication>
#include <QPointer>
#include <QTranslator>
#include <QtTest>

using Core::Plugin::ALocalizedPlugin;
using Core::Plugin::IPluginInitializer;

namespace {

class TestPlugin : public ALocalizedPlugin {
    Q_OBJECT
public:
    explicit TestPlugin(const QString& folder = QStringLiteral(":/translation"))
        : ALocalizedPlugin(QStringLiteral("localizedtest"), folder)
    {}

    bool initialize(QPointer<IPluginInitializer>) override { return true; }
    void postInitialize() override {}
    bool unInitialize(QPointer<IPluginInitializer>) override { return true; }
};

QString features()
{
    return QCoreApplication::translate("TestContext", "Features");
}

const QString JAPANESE = QString::fromUtf8("機能");
const QString CHINESE = QString::fromUtf8("功能");
const QString ENGLISH = QStringLiteral("Features");

} // namespace

class TestALocalizedPlugin : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QCOMPARE(features(), ENGLISH); }

    void shouldOwnOneTranslator()
    {
        TestPlugin plugin;
        QCOMPARE(plugin.findChildren<QTranslator*>().size(), 1);
        QCOMPARE(plugin.translationBaseName(), QStringLiteral("localizedtest"));
        QCOMPARE(plugin.translationFolder(), QStringLiteral(":/translation"));
        QVERIFY(plugin.language().isEmpty());
    }

    void shouldInstallTheAskedLanguage()
    {
        TestPlugin plugin;

        QVERIFY(plugin.setLanguage(QStringLiteral("ja")));

        QCOMPARE(plugin.language(), QStringLiteral("ja"));
        QCOMPARE(features(), JAPANESE);
    }

    void shouldReplaceThePreviousLanguage()
    {
        TestPlugin plugin;
        QVERIFY(plugin.setLanguage(QStringLiteral("ja")));

        QVERIFY(plugin.setLanguage(QStringLiteral("zh")));
        QCOMPARE(features(), CHINESE);

        QVERIFY(plugin.setLanguage(QStringLiteral("ja")));
        QCOMPARE(features(), JAPANESE);
    }

    void shouldRemoveTheTranslationWhenSwitchingToEnglish()
    {
        TestPlugin plugin;
        QVERIFY(plugin.setLanguage(QStringLiteral("ja")));

        // The English file holds no translations, like the real ones.
        QVERIFY(plugin.setLanguage(QStringLiteral("en")));

        QCOMPARE(plugin.language(), QStringLiteral("en"));
        QCOMPARE(features(), ENGLISH);
    }

    void shouldFallBackToEnglishForAnUnknownLanguage()
    {
        TestPlugin plugin;
        QVERIFY(plugin.setLanguage(QStringLiteral("ja")));

        QVERIFY(plugin.setLanguage(QStringLiteral("de")));

        QCOMPARE(plugin.language(), QStringLiteral("en"));
        QCOMPARE(features(), ENGLISH);
    }

    void shouldInstallNothingWithoutAnEnglishFile_data()
    {
        QTest::addColumn<QString>("code");
        QTest::newRow("unknown") << QStringLiteral("de");
        QTest::newRow("english") << QStringLiteral("en");
        QTest::newRow("empty") << QString();
    }

    void shouldInstallNothingWithoutAnEnglishFile()
    {
        // Given a plug-in with a Japanese file only, and a file of its bare base name
        QFETCH(QString, code);
        TestPlugin plugin(QStringLiteral(":/onlyja"));
        QVERIFY(plugin.setLanguage(QStringLiteral("ja")));
        QCOMPARE(features(), JAPANESE);

        // When it is switched to a language it has no file for
        QVERIFY(!plugin.setLanguage(code));

        // Then no translation is left installed, and the bare base name file is not taken
        QVERIFY(plugin.language().isEmpty());
        QCOMPARE(features(), ENGLISH);
    }

    void shouldUninstallWhenDestroyed()
    {
        auto* plugin = new TestPlugin;
        QVERIFY(plugin->setLanguage(QStringLiteral("ja")));
        QCOMPARE(features(), JAPANESE);

        delete plugin;

        QCOMPARE(features(), ENGLISH);
    }

    void shouldAnnounceTheChangeToTheApplication()
    {
        // Widgets retranslate on QEvent::LanguageChange, so every switch must send one.
        class LanguageChangeCounter : public QObject {
        public:
            int count = 0;
            bool eventFilter(QObject* watched, QEvent* event) override
            {
                if (watched == QCoreApplication::instance() &&
                    event->type() == QEvent::LanguageChange) {
                    ++count;
                }
                return false;
            }
        } counter;
        QCoreApplication::instance()->installEventFilter(&counter);
        TestPlugin plugin;

        QVERIFY(plugin.setLanguage(QStringLiteral("ja")));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
        QVERIFY(counter.count > 0);
        const int afterJapanese = counter.count;
        QVERIFY(plugin.setLanguage(QStringLiteral("zh")));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);

        QVERIFY(counter.count > afterJapanese);
        QCoreApplication::instance()->removeEventFilter(&counter);
    }
};

QTEST_GUILESS_MAIN(TestALocalizedPlugin)
#include "tst_alocalizedplugin.moc"
