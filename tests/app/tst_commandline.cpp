#include "commandline.h"

#include <QtTest>

using VantoViewer::CommandLine;

Q_DECLARE_METATYPE(CommandLine::Mode)

class TestCommandLine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldUnderstandEveryUseItOffers_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<CommandLine::Mode>("mode");
        QTest::addColumn<QString>("simulatedFile");

        const QString file = QStringLiteral("camera.xml");
        QTest::newRow("window") << QStringList() << CommandLine::Mode::Window << QString();
        QTest::newRow("built-in simulated")
            << QStringList{QStringLiteral("--simulate")} << CommandLine::Mode::Window << QString();
        QTest::newRow("simulated file")
            << QStringList{QStringLiteral("--simulate"), file} << CommandLine::Mode::Window << file;
        QTest::newRow("dump of a simulated file")
            << QStringList{QStringLiteral("--dump"), QStringLiteral("--simulate"), file}
            << CommandLine::Mode::Dump << file;
        QTest::newRow("dump of the built-in camera")
            << QStringList{QStringLiteral("--dump")} << CommandLine::Mode::Dump << QString();
        QTest::newRow("help") << QStringList{QStringLiteral("--help")} << CommandLine::Mode::Help
                              << QString();
        QTest::newRow("version") << QStringList{QStringLiteral("-v")} << CommandLine::Mode::Version
                                 << QString();
        QTest::newRow("discover") << QStringList{QStringLiteral("--discover")}
                                  << CommandLine::Mode::Discover << QString();
        QTest::newRow("grab from a simulated file")
            << QStringList{QStringLiteral("--simulate"), file, QStringLiteral("--grab"),
                           QStringLiteral("5")}
            << CommandLine::Mode::Grab << file;
        QTest::newRow("grab, save and dump")
            << QStringList{QStringLiteral("--grab"), QStringLiteral("3"),
                           QStringLiteral("--save-image"), QStringLiteral("a.png"),
                           QStringLiteral("--dump")}
            << CommandLine::Mode::Grab << QString();
        QTest::newRow("load features, then grab")
            << QStringList{QStringLiteral("--load-features"), QStringLiteral("a.txt"),
                           QStringLiteral("--grab"), QStringLiteral("3")}
            << CommandLine::Mode::Grab << QString();
        QTest::newRow("save features")
            << QStringList{QStringLiteral("--save-features"), QStringLiteral("a.txt")}
            << CommandLine::Mode::Features << QString();
        QTest::newRow("load features into a simulated file, then dump")
            << QStringList{QStringLiteral("--load-features"), QStringLiteral("a.txt"),
                           QStringLiteral("--dump"), QStringLiteral("--simulate"), file}
            << CommandLine::Mode::Dump << file;
        QTest::newRow("diff the simulated file's camera with a file")
            << QStringList{QStringLiteral("--simulate"), file, QStringLiteral("--diff-features"),
                           QStringLiteral("camera"), QStringLiteral("a.txt")}
            << CommandLine::Mode::DiffFeatures << file;
    }

    void shouldTakeTheTwoSidesOfADiffInTheirOrder()
    {
        CommandLine commandLine;
        QVERIFY2(
            commandLine.parse({QStringLiteral("vantoviewer"), QStringLiteral("--diff-features"),
                               QStringLiteral("b.txt"), QStringLiteral("a.txt")}),
            qPrintable(commandLine.errorText()));
        QCOMPARE(commandLine.diffFeatures(),
                 (QStringList{QStringLiteral("b.txt"), QStringLiteral("a.txt")}));
        QVERIFY(!commandLine.needsCamera());
        QVERIFY(
            commandLine.parse({QStringLiteral("vantoviewer"),
                               QStringLiteral("--diff-features=camera"), QStringLiteral("a.txt")}));
        QCOMPARE(commandLine.diffFeatures(),
                 (QStringList{QStringLiteral("camera"), QStringLiteral("a.txt")}));
        QVERIFY(commandLine.needsCamera());
        QVERIFY(commandLine.parse({QStringLiteral("vantoviewer"), QStringLiteral("--load-features"),
                                   QStringLiteral("in.txt"), QStringLiteral("--save-features"),
                                   QStringLiteral("out.txt")}));
        QCOMPARE(commandLine.loadFeatures(), QStringLiteral("in.txt"));
        QCOMPARE(commandLine.saveFeatures(), QStringLiteral("out.txt"));
    }

    void shouldTellWhatToGrab()
    {
        CommandLine commandLine;
        QVERIFY(commandLine.parse({QStringLiteral("vantoviewer"), QStringLiteral("--camera"),
                                   QStringLiteral("127.0.0.1"), QStringLiteral("--grab"),
                                   QStringLiteral("100"), QStringLiteral("--save-image"),
                                   QStringLiteral("last.png"), QStringLiteral("--dump")}));
        QCOMPARE(commandLine.mode(), CommandLine::Mode::Grab);
        QCOMPARE(commandLine.grabCount(), 100);
        QCOMPARE(commandLine.saveImage(), QStringLiteral("last.png"));
        QVERIFY(commandLine.dumpAfterGrab());
        QCOMPARE(commandLine.camera(), QStringLiteral("127.0.0.1"));

        QVERIFY(commandLine.parse(
            {QStringLiteral("vantoviewer"), QStringLiteral("--grab"), QStringLiteral("1")}));
        QVERIFY(!commandLine.dumpAfterGrab());
        QVERIFY(commandLine.saveImage().isEmpty());
        QVERIFY(commandLine.parse({QStringLiteral("vantoviewer"), QStringLiteral("--dump")}));
        QCOMPARE(commandLine.grabCount(), 0);
        QVERIFY(!commandLine.dumpAfterGrab());
    }

    void shouldUnderstandEveryUseItOffers()
    {
        QFETCH(QStringList, arguments);
        QFETCH(CommandLine::Mode, mode);
        QFETCH(QString, simulatedFile);
        CommandLine commandLine;

        QVERIFY2(commandLine.parse(QStringList{QStringLiteral("vantoviewer")} + arguments),
                 qPrintable(commandLine.errorText()));

        QCOMPARE(commandLine.mode(), mode);
        QCOMPARE(commandLine.simulatedFile(), simulatedFile);
        QVERIFY(commandLine.errorText().isEmpty());
    }

    void shouldRefuseWhatItDoesNotUnderstandAndSayWhat_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("error");

        const QString file = QStringLiteral("camera.xml");
        QTest::newRow("a file without --simulate")
            << QStringList{file} << QStringLiteral("only with --simulate");
        QTest::newRow("a file to dump without --simulate")
            << QStringList{QStringLiteral("--dump"), file}
            << QStringLiteral("only with --simulate");
        QTest::newRow("two files") << QStringList{QStringLiteral("--simulate"), file, file}
                                   << QStringLiteral("only one description file");
        QTest::newRow("an unknown option")
            << QStringList{QStringLiteral("--simulat")} << QStringLiteral("simulat");
        QTest::newRow("an option without its value")
            << QStringList{QStringLiteral("--camera")} << QStringLiteral("camera");
        QTest::newRow("simulated and real")
            << QStringList{QStringLiteral("--simulate"), QStringLiteral("--camera"),
                           QStringLiteral("10.0.0.2")}
            << QStringLiteral("cannot be used together");
        QTest::newRow("discovery while opening")
            << QStringList{QStringLiteral("--discover"), QStringLiteral("--dump")}
            << QStringLiteral("--discover");
        QTest::newRow("a screenshot of a dump")
            << QStringList{QStringLiteral("--dump"), QStringLiteral("--screenshot"),
                           QStringLiteral("a.png")}
            << QStringLiteral("--screenshot");
        QTest::newRow("a stray file after --version")
            << QStringList{QStringLiteral("--version"), file}
            << QStringLiteral("only with --simulate");
        QTest::newRow("an empty file name")
            << QStringList{QStringLiteral("--simulate"), QString()} << QStringLiteral("empty");
        QTest::newRow("a live dump")
            << QStringList{QStringLiteral("--dump"), QStringLiteral("--live")}
            << QStringLiteral("--live");
        QTest::newRow("a window size without height")
            << QStringList{QStringLiteral("--window-size"), QStringLiteral("1280")}
            << QStringLiteral("WIDTHxHEIGHT");
        QTest::newRow("an empty window")
            << QStringList{QStringLiteral("--window-size"), QStringLiteral("0x800")}
            << QStringLiteral("0x800");
        QTest::newRow("grab no frames")
            << QStringList{QStringLiteral("--grab"), QStringLiteral("0")}
            << QStringLiteral("1 or more");
        QTest::newRow("grab a word")
            << QStringList{QStringLiteral("--grab"), QStringLiteral("many")}
            << QStringLiteral("\"many\"");
        QTest::newRow("save without grab")
            << QStringList{QStringLiteral("--save-image"), QStringLiteral("a.png")}
            << QStringLiteral("needs --grab");
        QTest::newRow("save an image of an unknown kind")
            << QStringList{QStringLiteral("--grab"), QStringLiteral("2"),
                           QStringLiteral("--save-image"), QStringLiteral("a.jpg")}
            << QStringLiteral(".png, .tif, .tiff or .raw files, not a.jpg");
        QTest::newRow("grab and screenshot")
            << QStringList{QStringLiteral("--grab"), QStringLiteral("2"),
                           QStringLiteral("--screenshot"), QStringLiteral("a.png")}
            << QStringLiteral("--screenshot");
        QTest::newRow("grab while discovering")
            << QStringList{QStringLiteral("--discover"), QStringLiteral("--grab"),
                           QStringLiteral("2")}
            << QStringLiteral("--discover");
        QTest::newRow("a diff with one side")
            << QStringList{QStringLiteral("--diff-features"), QStringLiteral("a.txt")}
            << QStringLiteral("two sides");
        QTest::newRow("a diff of the camera with itself")
            << QStringList{QStringLiteral("--diff-features"), QStringLiteral("camera"),
                           QStringLiteral("camera")}
            << QStringLiteral("only one side");
        QTest::newRow("a diff and a load")
            << QStringList{QStringLiteral("--diff-features"), QStringLiteral("a.txt"),
                           QStringLiteral("b.txt"), QStringLiteral("--load-features"),
                           QStringLiteral("c.txt")}
            << QStringLiteral("run of its own");
        QTest::newRow("a load without a file")
            << QStringList{QStringLiteral("--load-features"), QString()}
            << QStringLiteral("needs a file name");
        QTest::newRow("a screenshot of a save")
            << QStringList{QStringLiteral("--save-features"), QStringLiteral("a.txt"),
                           QStringLiteral("--screenshot"), QStringLiteral("a.png")}
            << QStringLiteral("without a window");
        QTest::newRow("grab and save features")
            << QStringList{QStringLiteral("--grab"), QStringLiteral("2"),
                           QStringLiteral("--save-features"), QStringLiteral("a.txt")}
            << QStringLiteral("--load-features is what combines");
    }

    void shouldRefuseWhatItDoesNotUnderstandAndSayWhat()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, error);
        CommandLine commandLine;

        QVERIFY(!commandLine.parse(QStringList{QStringLiteral("vantoviewer")} + arguments));

        QVERIFY2(commandLine.errorText().contains(error), qPrintable(commandLine.errorText()));
    }

    void shouldStartLiveAtTheSizeAskedFor()
    {
        CommandLine commandLine;
        QVERIFY(commandLine.parse({QStringLiteral("vantoviewer"), QStringLiteral("--simulate"),
                                   QStringLiteral("--live"), QStringLiteral("--window-size"),
                                   QStringLiteral("1920x1080")}));
        QVERIFY(commandLine.live());
        QCOMPARE(commandLine.windowSize(), QSize(1920, 1080));

        QVERIFY(commandLine.parse({QStringLiteral("vantoviewer"), QStringLiteral("--simulate")}));
        QVERIFY(!commandLine.live());
        QVERIFY(!commandLine.windowSize().isValid());
    }

    void shouldOfferUsageThatNamesEveryOption()
    {
        CommandLine commandLine;
        commandLine.parse({QStringLiteral("vantoviewer"), QStringLiteral("--bogus")});

        const QString usage = commandLine.helpText();

        for (const char* option :
             {"--simulate", "--camera", "--dump", "--discover", "--plugin-dir", "--screenshot",
              "--lang", "--panel", "--live", "--window-size", "--grab", "--save-image",
              "--save-features", "--load-features", "--diff-features", "FILE.xml"}) {
            QVERIFY2(usage.contains(QLatin1String(option)), option);
        }
    }
};

QTEST_GUILESS_MAIN(TestCommandLine)
#include "tst_commandline.moc"
