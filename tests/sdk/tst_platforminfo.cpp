#include <utils/platforminfo.h>

#include <QApplication>
#include <QCoreApplication>
#include <QMetaProperty>
#include <QPointer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QScreen>
#include <QtTest>

#include <cstdio>

namespace {

// Children of this test print "<dpi> <screenScale>" of a PlatformInfo made in a process of
// the given kind: screen settings are read once per process.
const char PRINT_CORE[] = "--print-core";
const char PRINT_GUI[] = "--print-gui";

int printValues()
{
    const Utils::PlatformInfo info;
    std::printf("%g %g", info.dpi(), info.screenScale());
    return 0;
}

QStringList childValues(const char* mode, const QString& fontDpi, QString* error)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    if (fontDpi.isEmpty()) {
        environment.remove(QStringLiteral("QT_FONT_DPI"));
    } else {
        environment.insert(QStringLiteral("QT_FONT_DPI"), fontDpi);
    }
    QProcess child;
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(mode)});
    if (!child.waitForFinished(30000) || child.exitCode() != 0) {
        *error = child.errorString() + QString::fromLocal8Bit(child.readAllStandardError());
        return {};
    }
    return QString::fromUtf8(child.readAllStandardOutput()).split(QLatin1Char(' '));
}

} // namespace

class TestPlatformInfo : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldNameTheOperatingSystem()
    {
        const Utils::PlatformInfo info;
#if defined(Q_OS_LINUX)
        QCOMPARE(info.os(), QStringLiteral("linux"));
        QVERIFY(info.isLinux());
        QVERIFY(!info.isWindows());
        QVERIFY(!info.isMacOS());
#elif defined(Q_OS_WIN)
        QCOMPARE(info.os(), QStringLiteral("windows"));
        QVERIFY(!info.isLinux());
        QVERIFY(info.isWindows());
        QVERIFY(!info.isMacOS());
#elif defined(Q_OS_MACOS)
        QCOMPARE(info.os(), QStringLiteral("macos"));
        QVERIFY(!info.isLinux());
        QVERIFY(!info.isWindows());
        QVERIFY(info.isMacOS());
#endif
    }

    void shouldExposeConstantPropertiesToQml_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("type");
        QTest::newRow("os") << "os" << int(QMetaType::QString);
        QTest::newRow("isLinux") << "isLinux" << int(QMetaType::Bool);
        QTest::newRow("isWindows") << "isWindows" << int(QMetaType::Bool);
        QTest::newRow("isMacOS") << "isMacOS" << int(QMetaType::Bool);
        QTest::newRow("screenScale") << "screenScale" << int(QMetaType::Double);
        QTest::newRow("dpi") << "dpi" << int(QMetaType::Double);
    }

    void shouldExposeConstantPropertiesToQml()
    {
        QFETCH(QString, name);
        QFETCH(int, type);
        const Utils::PlatformInfo info;
        const QMetaObject* meta = info.metaObject();

        const int index = meta->indexOfProperty(name.toLatin1().constData());
        QVERIFY2(index >= 0, qPrintable(name));
        const QMetaProperty property = meta->property(index);
        QCOMPARE(property.userType(), type);
        QVERIFY(property.isConstant());
        QVERIFY(!property.isWritable());
        QVERIFY(info.property(name.toLatin1().constData()).isValid());
    }

    void shouldAnswerThroughPropertiesAsThroughGetters()
    {
        const Utils::PlatformInfo info;
        QCOMPARE(info.property("os").toString(), info.os());
        QCOMPARE(info.property("isLinux").toBool(), info.isLinux());
        QCOMPARE(info.property("screenScale").toDouble(), info.screenScale());
        QCOMPARE(info.property("dpi").toDouble(), info.dpi());
    }

    void shouldFollowThePrimaryScreen()
    {
        QScreen* screen = QGuiApplication::primaryScreen();
        QVERIFY(screen);
        const Utils::PlatformInfo info;
        QCOMPARE(info.dpi(), screen->logicalDotsPerInch());
        QCOMPARE(info.screenScale(), screen->logicalDotsPerInch() / 96.0);
    }

    void shouldScaleByLogicalDotsPerInch()
    {
        // A screen of 144 logical dots per inch scales pixel sizes by one and a half.
        QString error;
        const QStringList values = childValues(PRINT_GUI, QStringLiteral("144"), &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(values, QStringList({QStringLiteral("144"), QStringLiteral("1.5")}));
    }

    void shouldNotScaleWithoutAScreen()
    {
        QString error;
        const QStringList values = childValues(PRINT_CORE, QStringLiteral("144"), &error);
        QVERIFY2(error.isEmpty(), qPrintable(error));
        QCOMPARE(values, QStringList({QStringLiteral("96"), QStringLiteral("1")}));
    }

    void shouldBeOwnedByItsParent()
    {
        auto* parent = new QObject;
        const QPointer<Utils::PlatformInfo> info = new Utils::PlatformInfo(parent);
        QCOMPARE(info->parent(), parent);

        delete parent;

        QVERIFY(info.isNull());
    }
};

int main(int argc, char** argv)
{
    if (argc > 1 && qstrcmp(argv[1], PRINT_CORE) == 0) {
        QCoreApplication app(argc, argv);
        return printValues();
    }
    if (argc > 1 && qstrcmp(argv[1], PRINT_GUI) == 0) {
        QGuiApplication app(argc, argv);
        return printValues();
    }
    QApplication app(argc, argv);
    TestPlatformInfo test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_platforminfo.moc"
