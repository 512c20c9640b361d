#include <languagehelper/languagehelper.h>

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QtTest>

#include <cstdio>

namespace {

// The system locale is read once per process, so each locale is tried in a child process
// of this test that prints what loadLanguageId() gives and exits.
const char PRINT_LANGUAGE_ID[] = "--print-language-id";

QString languageIdInLocale(const QString& locale, QString* error)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_ALL"), locale);
    environment.insert(QStringLiteral("LANG"), locale);
    environment.remove(QStringLiteral("LANGUAGE"));
    QProcess child;
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(PRINT_LANGUAGE_ID)});
    if (!child.waitForFinished(30000) || child.exitCode() != 0) {
        *error = child.errorString() + QString::fromLocal8Bit(child.readAllStandardError());
        return QString();
    }
    return QString::fromUtf8(child.readAllStandardOutput());
}

} // namespace

class TestLanguageHelper : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { LanguageHelper::setLanguageId(QString()); }

    void shouldTakeTheSystemLanguage_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("expected");
        QTest::newRow("Korean") << QStringLiteral("ko_KR.UTF-8") << QStringLiteral("ko");
        QTest::newRow("Japanese") << QStringLiteral("ja_JP.UTF-8") << QStringLiteral("ja");
        QTest::newRow("Chinese") << QStringLiteral("zh_CN") << QStringLiteral("zh");
        QTest::newRow("German") << QStringLiteral("de_DE.UTF-8") << QStringLiteral("de");
        QTest::newRow("POSIX locale C") << QStringLiteral("C") << QStringLiteral("en");
        QTest::newRow("POSIX locale") << QStringLiteral("POSIX") << QStringLiteral("en");
    }

    void shouldTakeTheSystemLanguage()
    {
        QFETCH(QString, locale);
        QFETCH(QString, expected);
        QString error;
        QCOMPARE(languageIdInLocale(locale, &error), expected);
        QVERIFY2(error.isEmpty(), qPrintable(error));
    }

    void shouldPreferTheOverride_data()
    {
        QTest::addColumn<QString>("given");
        QTest::addColumn<QString>("expected");
        QTest::newRow("code") << QStringLiteral("ja") << QStringLiteral("ja");
        QTest::newRow("upper case") << QStringLiteral("KO") << QStringLiteral("ko");
        QTest::newRow("locale name") << QStringLiteral("zh_CN") << QStringLiteral("zh");
        QTest::newRow("tag") << QStringLiteral("ja-JP") << QStringLiteral("ja");
    }

    void shouldPreferTheOverride()
    {
        QFETCH(QString, given);
        QFETCH(QString, expected);
        const QString system = LanguageHelper::loadLanguageId();

        LanguageHelper::setLanguageId(given);
        QCOMPARE(LanguageHelper::loadLanguageId(), expected);

        LanguageHelper::setLanguageId(QString());
        QCOMPARE(LanguageHelper::loadLanguageId(), system);
    }

    void shouldIgnoreAnInvalidOverride()
    {
        LanguageHelper::setLanguageId(QStringLiteral("ja"));

        QTest::ignoreMessage(QtDebugMsg, QRegularExpression("ignoring the language"));
        LanguageHelper::setLanguageId(QStringLiteral("japanese"));

        QCOMPARE(LanguageHelper::loadLanguageId(), QStringLiteral("ja"));
    }

    void shouldListTheShippedLanguages()
    {
        const QStringList expected{QStringLiteral("en"), QStringLiteral("ja"), QStringLiteral("ko"),
                                   QStringLiteral("zh")};
        QCOMPARE(LanguageHelper::supportedLanguages(), expected);
    }
};

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc > 1 && qstrcmp(argv[1], PRINT_LANGUAGE_ID) == 0) {
        std::fputs(LanguageHelper::loadLanguageId().toUtf8().constData(), stdout);
        return 0;
    }
    TestLanguageHelper test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_languagehelper.moc"
