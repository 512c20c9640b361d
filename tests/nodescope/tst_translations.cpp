#include "nodescoperesources.h"
#include "../translationfiles.h"

#include <core/alocalizedplugin.h>
#include <core/iplugininitializer.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QRegularExpression>
#include <QScopedPointer>
#include <QSet>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamReader>
#include <QtTest>

using namespace TranslationFiles;

namespace {

QString translationsDir()
{
    return QDir(sourceDir()).filePath(QStringLiteral("resources/translations"));
}

QString tsPath(const QString& language)
{
    return QDir(translationsDir()).filePath(QStringLiteral("Nodescope_%1.ts").arg(language));
}

// The plug-in's localisation as the plug-in entry sets it up.
class LocalizedPlugin : public Core::Plugin::ALocalizedPlugin {
    Q_OBJECT
public:
    LocalizedPlugin()
        : ALocalizedPlugin(QStringLiteral("Nodescope"), QStringLiteral(":/translation"))
    {}

    bool initialize(QPointer<Core::Plugin::IPluginInitializer>) override { return true; }
    void postInitialize() override {}
    bool unInitialize(QPointer<Core::Plugin::IPluginInitializer>) override { return true; }
};

} // namespace

class TestTranslations : public QObject {
    Q_OBJECT

private:
    void addLanguageRows()
    {
        QTest::addColumn<QString>("language");
        for (const QString& language : LANGUAGES) {
            QTest::newRow(qPrintable(language)) << language;
        }
    }

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(!sourceDir().isEmpty(), "NODESCOPE_SOURCE_DIR is not set");
        Plugin::Nodescope::initNodescopeResources();
    }

    void shouldShipOneTranslationFilePerLanguage()
    {
        const QStringList files =
            QDir(translationsDir()).entryList({QStringLiteral("*.ts")}, QDir::Files, QDir::Name);

        QCOMPARE(
            files,
            QStringList({QStringLiteral("Nodescope_en.ts"), QStringLiteral("Nodescope_ja.ts"),
                         QStringLiteral("Nodescope_ko.ts"), QStringLiteral("Nodescope_zh.ts")}));
    }

    void shouldNameTheLanguageOfItsFile_data() { addLanguageRows(); }
    void shouldNameTheLanguageOfItsFile()
    {
        QFETCH(QString, language);

        const TsFile ts = readTsFile(tsPath(language));

        QVERIFY2(ts.error.isEmpty(), qPrintable(ts.error));
        QVERIFY2(ts.language.startsWith(language), qPrintable(ts.language));
    }

    void shouldHaveEveryMessageTranslated_data() { addLanguageRows(); }
    void shouldHaveEveryMessageTranslated()
    {
        QFETCH(QString, language);

        const TsFile ts = readTsFile(tsPath(language));

        QVERIFY2(ts.error.isEmpty(), qPrintable(ts.error));
        QVERIFY(!ts.messages.isEmpty());
        const QStringList problems = untranslated(ts);
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QStringLiteral("\n"))));
    }

    void shouldHaveTheSameMessagesInEveryLanguage_data() { addLanguageRows(); }
    void shouldHaveTheSameMessagesInEveryLanguage()
    {
        QFETCH(QString, language);

        const TsFile english = readTsFile(tsPath(QStringLiteral("en")));
        const TsFile ts = readTsFile(tsPath(language));

        QVERIFY2(ts.error.isEmpty(), qPrintable(ts.error));
        const QSet<QString> missing = keys(english) - keys(ts);
        const QSet<QString> extra = keys(ts) - keys(english);
        QVERIFY2(missing.isEmpty(), qPrintable(QStringLiteral("missing: ") + describe(missing)));
        QVERIFY2(extra.isEmpty(), qPrintable(QStringLiteral("not in English: ") + describe(extra)));
    }

    void shouldTranslateEnglishToTheSourceText()
    {
        const TsFile ts = readTsFile(tsPath(QStringLiteral("en")));

        QVERIFY2(ts.error.isEmpty(), qPrintable(ts.error));
        for (const TsMessage& message : ts.messages) {
            if (!message.numerus) {
                QCOMPARE(message.translations.value(0), message.source);
            }
        }
    }

    void shouldKeepThePlaceholdersOfTheSource_data() { addLanguageRows(); }
    void shouldKeepThePlaceholdersOfTheSource()
    {
        QFETCH(QString, language);

        const TsFile ts = readTsFile(tsPath(language));

        QVERIFY2(ts.error.isEmpty(), qPrintable(ts.error));
        const QStringList problems = placeholderProblems(ts);
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QStringLiteral("\n"))));
    }

    void shouldKeepTheAcceleratorsAndOuterBlanksOfTheSource_data() { addLanguageRows(); }
    void shouldKeepTheAcceleratorsAndOuterBlanksOfTheSource()
    {
        QFETCH(QString, language);

        const TsFile ts = readTsFile(tsPath(language));

        QVERIFY2(ts.error.isEmpty(), qPrintable(ts.error));
        const QStringList problems = acceleratorProblems(ts);
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QStringLiteral("\n"))));
    }

    void shouldLoadEveryTranslationFromTheResources_data() { addLanguageRows(); }
    void shouldLoadEveryTranslationFromTheResources()
    {
        QFETCH(QString, language);
        const QString path = QStringLiteral(":/translation/Nodescope_%1.qm").arg(language);
        QTranslator translator;

        QVERIFY2(QFileInfo::exists(path), qPrintable(path));
        QVERIFY(translator.load(path));

        // English is the source language: its file holds no translations at all.
        QCOMPARE(translator.isEmpty(), language == QLatin1String("en"));
    }

    void shouldTranslateKnownTexts_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("context");
        QTest::addColumn<QString>("source");

        const QStringList cjk = {QStringLiteral("ja"), QStringLiteral("ko"), QStringLiteral("zh")};
        for (const QString& language : cjk) {
            const QByteArray prefix = language.toLatin1() + ' ';
            QTest::newRow(prefix + "tree header")
                << language << QStringLiteral("FeatureTreeModel") << QStringLiteral("Value");
            QTest::newRow(prefix + "search field")
                << language << QStringLiteral("FeatureTreeWidgetClass")
                << QStringLiteral("Search for parameters");
            QTest::newRow(prefix + "table header")
                << language
                << QStringLiteral("Plugin::Nodescope::Internal::Model::CFeatureTableModel")
                << QStringLiteral("Feature");
            QTest::newRow(prefix + "unreadable value")
                << language << QStringLiteral("FeatureTreeINodeItem")
                << QStringLiteral("<not readable>");
            QTest::newRow(prefix + "options menu")
                << language << QStringLiteral("featuretreeoptionmenu")
                << QStringLiteral("Edit Feature Tabs");
        }
    }

    void shouldTranslateKnownTexts()
    {
        QFETCH(QString, language);
        QFETCH(QString, context);
        QFETCH(QString, source);
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral(":/translation/Nodescope_%1.qm").arg(language)));

        const QString text =
            translator.translate(context.toUtf8().constData(), source.toUtf8().constData());

        QVERIFY2(!text.isEmpty(), "no translation");
        QVERIFY2(text != source, qPrintable(text));
        QVERIFY2(hasNonLatinLetter(text), qPrintable(text));
    }

    void shouldKeepTheAcceleratorInTheTranslatedPollingBox()
    {
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral(":/translation/Nodescope_ja.qm")));

        const QString text = translator.translate("FeatureTreeWidgetClass", "P&olling");

        QCOMPARE(text, QString::fromUtf8("ポーリング(&O)"));
    }

    void shouldSwitchTheApplicationTextsWithThePluginLanguage()
    {
        // Given the plug-in's localisation with its base name and resource folder
        LocalizedPlugin plugin;

        // When Korean is asked for, then the widgets' texts are Korean
        QVERIFY(plugin.setLanguage(QStringLiteral("ko")));
        QCOMPARE(plugin.language(), QStringLiteral("ko"));
        QCOMPARE(QCoreApplication::translate("FeatureTreeModel", "Value"), QString::fromUtf8("값"));

        // When a language without a file is asked for, then English is installed
        QVERIFY(plugin.setLanguage(QStringLiteral("fr")));
        QCOMPARE(plugin.language(), QStringLiteral("en"));
        QCOMPARE(QCoreApplication::translate("FeatureTreeModel", "Value"), QStringLiteral("Value"));
    }

    void shouldTranslateQmlTextsInTheContextOfTheirFile()
    {
        // Given the Chinese translation installed for the application
        LocalizedPlugin plugin;
        QVERIFY(plugin.setLanguage(QStringLiteral("zh")));
        QQmlEngine engine;
        QQmlComponent component(&engine);

        // When a QML file of the options menu's name asks for a text
        component.setData("import QtQml 2.0\nQtObject { property string text: qsTr(\"Cancel\") }",
                          QUrl(QStringLiteral("qrc:/nodescope/featuretreeoptionmenu.qml")));
        QScopedPointer<QObject> object(component.create());

        // Then it gets the Chinese text of that file's context
        QVERIFY2(object, qPrintable(component.errorString()));
        QCOMPARE(object->property("text").toString(), QString::fromUtf8("取消"));
        QVERIFY(plugin.setLanguage(QStringLiteral("en")));
    }

    void shouldHaveEveryTextOfTheCodeInTheTranslations()
    {
        const QString lupdate = lupdatePath();
        if (lupdate.isEmpty()) {
            QSKIP("lupdate is not installed; cannot collect the texts of the code");
        }
        QTemporaryDir dir;
        QVERIFY(dir.isValid());
        const QString collected = dir.filePath(QStringLiteral("collected.ts"));
        const QDir root(sourceDir());

        // Given the texts that lupdate collects from the code, the way the .ts files are made
        const QString failure = collectCodeTexts(lupdate,
                                                 {root.filePath(QStringLiteral("src/nodescope")),
                                                  root.filePath(QStringLiteral("resources/qml"))},
                                                 collected);
        QVERIFY2(failure.isEmpty(), qPrintable(failure));
        const TsFile code = readTsFile(collected);
        QVERIFY2(code.error.isEmpty(), qPrintable(code.error));
        QVERIFY(!code.messages.isEmpty());

        // When they are compared with the English translation file
        const TsFile english = readTsFile(tsPath(QStringLiteral("en")));
        QVERIFY2(english.error.isEmpty(), qPrintable(english.error));
        const QSet<QString> missing = keys(code) - keys(english);
        const QSet<QString> stale = keys(english) - keys(code);

        // Then every text is there, and no text that the code no longer has
        QVERIFY2(
            missing.isEmpty(),
            qPrintable(QStringLiteral("not in the .ts files (run lupdate): ") + describe(missing)));
        QVERIFY2(stale.isEmpty(),
                 qPrintable(QStringLiteral("no longer in the code (run lupdate -no-obsolete): ") +
                            describe(stale)));
    }
};

QTEST_MAIN(TestTranslations)
#include "tst_translations.moc"
