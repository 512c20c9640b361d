#include "apptestsupport.h"

#include "windowservice.h"

#include <QDir>
#include <QFile>
#include <QMainWindow>
#include <QSettings>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using VantoViewer::WindowService;

class TestWindowService : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_settingsDir;

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_settingsDir.isValid());
        isolateSettings(m_settingsDir.path());
        QVERIFY(QSettings(QStringLiteral("Vanto"), QStringLiteral("Vanto Viewer"))
                    .fileName()
                    .startsWith(m_settingsDir.path()));
    }

    void restoreStateReturnsWhatWasSaved_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::newRow("integer") << QVariant(2);
        QTest::newRow("text") << QVariant(QStringLiteral("Width, Height"));
        QTest::newRow("bytes") << QVariant(QByteArray("\x01\x02\x00\x03", 4));
    }

    void restoreStateReturnsWhatWasSaved()
    {
        QFETCH(QVariant, value);
        WindowService service;
        service.saveState(Core::CId("Nodescope.Widget.All"), QStringLiteral("Visibility"), value);
        QCOMPARE(service.restoreState(Core::CId("Nodescope.Widget.All"),
                                      QStringLiteral("Visibility"), QVariant()),
                 value);
    }

    void restoreStateGivesTheDefaultWhenNothingWasSaved()
    {
        WindowService service;
        QCOMPARE(service.restoreState(Core::CId("Nodescope.Widget.Never"), QStringLiteral("Key"),
                                      QVariant(17)),
                 QVariant(17));
    }

    void statesOfDifferentPanelsDoNotOverwriteEachOther()
    {
        WindowService service;
        service.saveState(Core::CId("Panel.A"), QStringLiteral("Columns"), 1);
        service.saveState(Core::CId("Panel.B"), QStringLiteral("Columns"), 2);
        QCOMPARE(service.restoreState(Core::CId("Panel.A"), QStringLiteral("Columns"), 0), 1);
        QCOMPARE(service.restoreState(Core::CId("Panel.B"), QStringLiteral("Columns"), 0), 2);
    }

    void savedStateSurvivesTheServiceInTheApplicationSettings()
    {
        // Given a state saved by one run
        {
            WindowService first;
            first.saveState(Core::CId("Nodescope.Widget.Basic"), QStringLiteral("Expanded"),
                            QStringLiteral("Root/ImageFormatControl"));
        }
        // Then the next run and the settings file both have it.
        WindowService second;
        QCOMPARE(second
                     .restoreState(Core::CId("Nodescope.Widget.Basic"), QStringLiteral("Expanded"),
                                   QVariant())
                     .toString(),
                 QStringLiteral("Root/ImageFormatControl"));
        const QSettings settings(QStringLiteral("Vanto"), QStringLiteral("Vanto Viewer"));
        QVERIFY(settings.allKeys()
                    .join(QLatin1Char(' '))
                    .contains(QStringLiteral("Nodescope.Widget.Basic")));
    }

    void slashesInKeysDoNotMixPanels()
    {
        WindowService service;
        service.saveState(Core::CId("Panel/X"), QStringLiteral("Key"), 5);
        QCOMPARE(service.restoreState(Core::CId("Panel"), QStringLiteral("X/Key"), 0), 0);
        QCOMPARE(service.restoreState(Core::CId("Panel/X"), QStringLiteral("Key"), 0), 5);
    }

    void mainWindowIsTheHostWindowAndNullWithoutOne()
    {
        WindowService withoutWindow;
        QVERIFY(!withoutWindow.mainWindow());

        auto* window = new QMainWindow;
        WindowService service(window);
        QCOMPARE(service.mainWindow(), window);
        delete window;
        QVERIFY(!service.mainWindow());
    }

    void aStoreThatCannotBeWrittenIsReportedOnceAndAStoreThatCanIsNot()
    {
        // Given a service that saves into a writable store
        WindowService service;
        QSignalSpy reported(&service, &WindowService::settingsNotSaved);
        service.saveState(Core::CId("Panel.A"), QStringLiteral("Columns"), 1);
        QCOMPARE(reported.count(), 0);

        // When a folder takes the settings file's place
        const QString file =
            QSettings(QStringLiteral("Vanto"), QStringLiteral("Vanto Viewer")).fileName();
        QVERIFY(QFile::remove(file));
        QVERIFY(QDir().mkpath(file));
        service.saveState(Core::CId("Panel.A"), QStringLiteral("Columns"), 2);
        service.saveState(Core::CId("Panel.A"), QStringLiteral("Columns"), 3);

        // Then the failure is reported once, with the file and the reason
        QCOMPARE(reported.count(), 1);
        QCOMPARE(reported.first().at(0).toString(), file);
        QVERIFY(!reported.first().at(1).toString().isEmpty());
        QVERIFY(QDir(file).removeRecursively());
    }
};

QTEST_MAIN(TestWindowService)
#include "tst_windowservice.moc"
