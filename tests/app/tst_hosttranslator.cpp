#include "hosttranslator.h"
#include "../translationfiles.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QtTest>

using namespace TranslationFiles;
using VantoViewer::HostTranslator;

namespace {

QString tsPath(const QString& language)
{
    return QDir(sourceDir())
        .filePath(QStringLiteral("app/translations/VantoViewer_%1.ts").arg(language));
}

// The window's texts as its classes ask for them.
QString windowText(const char* context, const char* source)
{
    return QCoreApplication::translate(context, source);
}

} // namespace

class TestHostTranslator : public QObject {
    Q_OBJECT

    void addLanguageRows()
    {
        QTest::addColumn<QString>("language");
        for (const QString& language : LANGUAGES) {
            QTest::newRow(qPrintable(language)) << language;
        }
    }

private Q_SLOTS:
    void initTestCase() { QVERIFY2(!sourceDir().isEmpty(), "NODESCOPE_SOURCE_DIR is not set"); }

    void everyMessageIsTranslated_data() { addLanguageRows(); }
    void everyMessageIsTranslated()
    {
        QFETCH(QString, language);
        const TsFile ts = readTsFile(tsPath(language));
        QVERIFY2(ts.error.isEmpty(), qPrintable(ts.error));
        QVERIFY2(ts.language.startsWith(language), qPrintable(ts.language));
        QVERIFY(!ts.messages.isEmpty());

        QStringList problems = untranslated(ts) + placeholderProblems(ts) + acceleratorProblems(ts);
        if (language != QLatin1String("en")) {
            // A translation that is still English slipped through.
            for (const TsMessage& message : ts.messages) {
                if (message.source != QLatin1String("Vanto Viewer") &&
                    !hasNonLatinLetter(message.translations.value(0))) {
                    problems.append(message.where() + QStringLiteral(" is not translated"));
                }
            }
        }
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QStringLiteral("\n"))));
        const TsFile english = readTsFile(tsPath(QStringLiteral("en")));
        QCOMPARE(keys(ts), keys(english));
    }

    void everyTextOfTheWindowIsInTheTranslations()
    {
        const QString lupdate = lupdatePath();
        if (lupdate.isEmpty()) {
            QSKIP("lupdate is not installed; cannot collect the texts of the code");
        }
        QTemporaryDir dir;
        const QString collected = dir.filePath(QStringLiteral("collected.ts"));
        const QString failure = collectCodeTexts(
            lupdate, {QDir(sourceDir()).filePath(QStringLiteral("app"))}, collected);
        QVERIFY2(failure.isEmpty(), qPrintable(failure));
        const TsFile code = readTsFile(collected);
        QVERIFY(!code.messages.isEmpty());

        const TsFile english = readTsFile(tsPath(QStringLiteral("en")));
        const QSet<QString> missing = keys(code) - keys(english);
        const QSet<QString> stale = keys(english) - keys(code);
        QVERIFY2(missing.isEmpty(),
                 qPrintable(QStringLiteral("not in app/translations (run lupdate): ") +
                            describe(missing)));
        QVERIFY2(stale.isEmpty(),
                 qPrintable(QStringLiteral("no longer in the code: ") + describe(stale)));
    }

    void installsTheLanguageAndSwitchesBack()
    {
        HostTranslator translator;
        QVERIFY(translator.install(QStringLiteral("ja")));
        QCOMPARE(translator.language(), QStringLiteral("ja"));
        QCOMPARE(windowText("VantoViewer::MainWindow", "Devices"), QStringLiteral("デバイス"));
        QCOMPARE(windowText("VantoViewer::VisibilityToolBar", "Guru"),
                 QStringLiteral("エキスパート"));

        QVERIFY(translator.install(QStringLiteral("zh")));
        QCOMPARE(windowText("VantoViewer::MainWindow", "Devices"), QStringLiteral("设备"));

        // English speaks the source texts, with proper plurals.
        QVERIFY(translator.install(QStringLiteral("en")));
        QCOMPARE(windowText("VantoViewer::MainWindow", "Devices"), QStringLiteral("Devices"));
        QCOMPARE(QCoreApplication::translate("VantoViewer::MainWindow", "%n camera(s) found",
                                             nullptr, 1),
                 QStringLiteral("1 camera found"));
        QCOMPARE(QCoreApplication::translate("VantoViewer::MainWindow", "%n camera(s) found",
                                             nullptr, 3),
                 QStringLiteral("3 cameras found"));
    }

    void refusesALanguageWithoutTranslations()
    {
        HostTranslator translator;
        QVERIFY(!translator.install(QStringLiteral("xx")));
        QVERIFY(!translator.install(QString()));
        QCOMPARE(translator.language(), QString());
        QCOMPARE(windowText("VantoViewer::MainWindow", "Devices"), QStringLiteral("Devices"));
    }
};

QTEST_GUILESS_MAIN(TestHostTranslator)
#include "tst_hosttranslator.moc"
