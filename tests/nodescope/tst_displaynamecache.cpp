#include "displaynamecache.h"

#include <QCoreApplication>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <thread>
#include <vector>

using Plugin::Nodescope::Internal::CDisplayNameCache;

namespace {

const QString kGroup = QStringLiteral("Nodescope");
const QString kKey = QStringLiteral("DisplayNameCache");

void store(const QString& text)
{
    QSettings settings;
    settings.beginGroup(kGroup);
    settings.setValue(kKey, text);
}

QVariant stored()
{
    QSettings settings;
    settings.beginGroup(kGroup);
    return settings.value(kKey);
}

} // namespace

class tst_DisplayNameCache : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();

    void shouldIgnoreStoredRecordsWithoutExactlyOneColon();
    void shouldParseWhatItSerializesWithoutTheEntriesItCannotHold();
    void shouldServeButNotSaveDisplayNameWithColon();
    void shouldYieldEmptyMapFromEmptyStore();
    void shouldWriteEmptyStringWhenSavingEmptyMap();

    void shouldRestoreSavedNamesOnNextLoad();
    void shouldSaveRecordsInFeatureNameOrder();
    void shouldReplaceDisplayNameOfKnownFeature();
    void shouldLetLaterStoredRecordWin();
    void shouldNotSaveEntryWithSemicolon();
    void shouldForgetUnsavedNamesOnLoad();
    void shouldDropUnsaveableEntriesFromStore();
    void shouldKeepEveryNameCachedFromManyThreads();

private:
    QTemporaryDir m_settingsDir;
};

void tst_DisplayNameCache::initTestCase()
{
    // Keep the user's real settings out of reach: own names, own folder.
    QVERIFY(m_settingsDir.isValid());
    QStandardPaths::setTestModeEnabled(true);
    QCoreApplication::setOrganizationName(QStringLiteral("NodescopeTests"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_displaynamecache"));
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_settingsDir.path());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settingsDir.path());
    QSettings::setPath(QSettings::NativeFormat, QSettings::SystemScope, m_settingsDir.path());
    QSettings::setPath(QSettings::IniFormat, QSettings::SystemScope, m_settingsDir.path());
    QVERIFY2(QSettings().fileName().startsWith(m_settingsDir.path()),
             qPrintable(QSettings().fileName()));
}

void tst_DisplayNameCache::init()
{
    {
        QSettings settings;
        settings.remove(kGroup);
    }
    // Loading from the emptied store also empties the process-wide map.
    CDisplayNameCache::init();
}

void tst_DisplayNameCache::shouldIgnoreStoredRecordsWithoutExactlyOneColon()
{
    // Given a record with two colons between two good ones
    store(QStringLiteral("A:x;B:y:z;C:;"));

    CDisplayNameCache::init();

    // Then A and C are known, C with an empty display name, and B is not
    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("A")), QStringLiteral("x"));
    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("B")), QString());
    // Only saving tells an empty display name from no entry at all
    CDisplayNameCache::persist();
    QCOMPARE(stored().toString(), QStringLiteral("A:x;C:;"));
}

void tst_DisplayNameCache::shouldServeButNotSaveDisplayNameWithColon()
{
    CDisplayNameCache::cacheDisplayName(QStringLiteral("GainRatio"), QStringLiteral("Ratio: Gain"));
    CDisplayNameCache::cacheDisplayName(QStringLiteral("Gain"), QStringLiteral("Gain"));

    // Then it is served during the run
    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("GainRatio")),
             QStringLiteral("Ratio: Gain"));

    // But left out of the store, and still served after saving
    CDisplayNameCache::persist();
    QCOMPARE(stored().toString(), QStringLiteral("Gain:Gain;"));
    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("GainRatio")),
             QStringLiteral("Ratio: Gain"));

    // And gone on the next run
    CDisplayNameCache::init();
    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("GainRatio")), QString());
}

void tst_DisplayNameCache::shouldYieldEmptyMapFromEmptyStore()
{
    // Given no value in the store (init() removed it)
    QVERIFY(!stored().isValid());

    CDisplayNameCache::init();

    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("ExposureTime")), QString());
    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("Gain")), QString());
    QCOMPARE(CDisplayNameCache::getDisplayName(QString()), QString());
    CDisplayNameCache::persist();
    QCOMPARE(stored().toString(), QString());
}

void tst_DisplayNameCache::shouldWriteEmptyStringWhenSavingEmptyMap()
{
    // Given an empty map, and a value from elsewhere in the store
    store(QStringLiteral("Old:Entry;"));

    CDisplayNameCache::persist();

    const QVariant value = stored();
    QVERIFY(value.isValid());
    QCOMPARE(value.toString(), QString(""));
}

void tst_DisplayNameCache::shouldRestoreSavedNamesOnNextLoad()
{
    CDisplayNameCache::cacheDisplayName(QStringLiteral("ExposureTime"),
                                        QStringLiteral("Exposure Time"));
    CDisplayNameCache::cacheDisplayName(QStringLiteral("PixelFormat"),
                                        QStringLiteral("Pixel Format"));
    CDisplayNameCache::cacheDisplayName(QStringLiteral("Unnamed"), QString());
    CDisplayNameCache::persist();

    CDisplayNameCache::init();

    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("ExposureTime")),
             QStringLiteral("Exposure Time"));
    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("PixelFormat")),
             QStringLiteral("Pixel Format"));
    CDisplayNameCache::persist();
    QCOMPARE(stored().toString(),
             QStringLiteral("ExposureTime:Exposure Time;PixelFormat:Pixel Format;Unnamed:;"));
}

void tst_DisplayNameCache::shouldSaveRecordsInFeatureNameOrder()
{
    CDisplayNameCache::cacheDisplayName(QStringLiteral("Gain"), QStringLiteral("Gain"));
    CDisplayNameCache::cacheDisplayName(QStringLiteral("ExposureTime"),
                                        QStringLiteral("Exposure Time"));
    CDisplayNameCache::cacheDisplayName(QStringLiteral("AcquisitionMode"),
                                        QStringLiteral("Acquisition Mode"));

    CDisplayNameCache::persist();

    QCOMPARE(stored().toString(), QStringLiteral("AcquisitionMode:Acquisition Mode;"
                                                 "ExposureTime:Exposure Time;Gain:Gain;"));
}

void tst_DisplayNameCache::shouldReplaceDisplayNameOfKnownFeature()
{
    CDisplayNameCache::cacheDisplayName(QStringLiteral("Gain"), QStringLiteral("Gain"));

    CDisplayNameCache::cacheDisplayName(QStringLiteral("Gain"), QStringLiteral("Analog Gain"));

    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("Gain")),
             QStringLiteral("Analog Gain"));
    CDisplayNameCache::persist();
    QCOMPARE(stored().toString(), QStringLiteral("Gain:Analog Gain;"));
}

void tst_DisplayNameCache::shouldLetLaterStoredRecordWin()
{
    store(QStringLiteral("Gain:First;Width:Width;Gain:Second;"));

    CDisplayNameCache::init();

    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("Gain")), QStringLiteral("Second"));
    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("Width")), QStringLiteral("Width"));
}

void tst_DisplayNameCache::shouldNotSaveEntryWithSemicolon()
{
    CDisplayNameCache::cacheDisplayName(QStringLiteral("A;B"), QStringLiteral("Both"));
    CDisplayNameCache::cacheDisplayName(QStringLiteral("Mode"), QStringLiteral("Mode; Legacy"));
    CDisplayNameCache::cacheDisplayName(QStringLiteral("Ratio:Gain"), QStringLiteral("Ratio"));
    CDisplayNameCache::cacheDisplayName(QStringLiteral("Width"), QStringLiteral("Width"));

    CDisplayNameCache::persist();

    QCOMPARE(stored().toString(), QStringLiteral("Width:Width;"));
    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("A;B")), QStringLiteral("Both"));
}

void tst_DisplayNameCache::shouldForgetUnsavedNamesOnLoad()
{
    store(QStringLiteral("Width:Width;"));
    CDisplayNameCache::cacheDisplayName(QStringLiteral("Gain"), QStringLiteral("Gain"));

    CDisplayNameCache::init();

    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("Gain")), QString());
    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("Width")), QStringLiteral("Width"));
}

void tst_DisplayNameCache::shouldDropUnsaveableEntriesFromStore()
{
    // Given a store written by an older run
    store(QStringLiteral("Gain:Gain;Width:Width;"));
    CDisplayNameCache::init();
    CDisplayNameCache::cacheDisplayName(QStringLiteral("Gain"), QStringLiteral("Gain: Analog"));

    CDisplayNameCache::persist();

    // Then the old record is not kept beside the new value that cannot be saved
    QCOMPARE(stored().toString(), QStringLiteral("Width:Width;"));
}

void tst_DisplayNameCache::shouldKeepEveryNameCachedFromManyThreads()
{
    // Tree items of several cameras cache names while the options menu reads them.
    constexpr int kThreads = 4;
    constexpr int kNamesPerThread = 500;
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([t] {
            for (int i = 0; i < kNamesPerThread; ++i) {
                const QString name =
                    QStringLiteral("F%1_%2").arg(t).arg(i, 3, 10, QLatin1Char('0'));
                CDisplayNameCache::cacheDisplayName(name, name.toLower());
                CDisplayNameCache::getDisplayName(QStringLiteral("F0_000"));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }

    CDisplayNameCache::persist();
    const QStringList records = stored().toString().split(QLatin1Char(';'), Qt::SkipEmptyParts);
    QCOMPARE(records.size(), kThreads * kNamesPerThread);
    QCOMPARE(records.first(), QStringLiteral("F0_000:f0_000"));
    QCOMPARE(records.last(), QStringLiteral("F3_499:f3_499"));
    QCOMPARE(CDisplayNameCache::getDisplayName(QStringLiteral("F2_123")), QStringLiteral("f2_123"));
}

void tst_DisplayNameCache::shouldParseWhatItSerializesWithoutTheEntriesItCannotHold()
{
    const QMap<QString, QString> map{
        {QStringLiteral("Gain"), QStringLiteral("Gain")},
        {QStringLiteral("Ratio"), QStringLiteral("Ratio: Gain")},
        {QStringLiteral("A;B"), QStringLiteral("x")},
        {QStringLiteral("ExposureTime"), QStringLiteral("Exposure Time")}};
    const QString written = CDisplayNameCache::serialize(map);
    QCOMPARE(written, QStringLiteral("ExposureTime:Exposure Time;Gain:Gain;"));
    const QMap<QString, QString> expected{
        {QStringLiteral("ExposureTime"), QStringLiteral("Exposure Time")},
        {QStringLiteral("Gain"), QStringLiteral("Gain")}};
    QCOMPARE(CDisplayNameCache::parse(written), expected);
}

QTEST_GUILESS_MAIN(tst_DisplayNameCache)

#include "tst_displaynamecache.moc"
