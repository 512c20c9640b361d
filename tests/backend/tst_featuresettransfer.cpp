#include "testsupport.h"

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <deviceworker.h>
#include <featureset.h>
#include <featuresetjob.h>
#include <featuresettransfer.h>
#include <simulateddevice.h>

#include <parametercollection/exception.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace ParameterCollection;
using Backend::DeviceParameterCollection;
using Backend::FeatureSet;
using Backend::FeatureSetJob;
using Backend::FeatureSetTransfer;

class tst_FeatureSetTransfer : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldRestoreTwentyChangedFeaturesAfterTheDefaultUserSet();
    void shouldApplyEveryGoodLineAndReportEachBadOneWithItsReason();
    void shouldWriteNothingFromABrokenFile_data();
    void shouldWriteNothingFromABrokenFile();
    void shouldReportTheLinesNotWrittenWhenCancelled();
    void shouldLoadIntoTheFakeGigECameraWhatWasSavedFromIt();
    void shouldSaveNoReadOnlySelectedFeatureOfADescriptionWithoutMarks();
    void shouldLeaveTheStreamsLockToTheAcquisition();
    void shouldReportTheValueFromBeforeTheLoadWhereAnEarlierLineChangedIt();
};

namespace {

DeviceParameterCollection* deviceCollection(Backend::CameraPool& pool,
                                            const QSharedPointer<Backend::CameraInfo>& info)
{
    return static_cast<DeviceParameterCollection*>(pool.getParameterCollection(info).data());
}

Backend::SimulatedDevice* simulated(DeviceParameterCollection* collection)
{
    Backend::SimulatedDevice* device = nullptr;
    collection->runOnDeviceThread(
        [&device](Backend::DeviceWorker& w) { device = w.simulatedDevice(0); });
    return device;
}

// Writes as a user does, one feature at a time; the error text, or empty.
QString set(DeviceParameterCollection* collection, const QString& feature, const QVariant& value)
{
    const auto parameter = collection->getParameter(QStringLiteral("@CameraDevice/") + feature);
    if (!parameter) {
        return feature + QStringLiteral(": no such feature");
    }
    try {
        parameter->setValue(value);
    } catch (const Exception& e) {
        return e.text();
    }
    collection->waitForDevice();
    return QString();
}

QString valueOf(DeviceParameterCollection* collection, const QString& feature)
{
    const auto data =
        collection->getParameter(QStringLiteral("@CameraDevice/") + feature)->getParameterData();
    return FeatureSetTransfer::valueText(data->type, data->value);
}

QStringList differences(const FeatureSet& a, const FeatureSet& b)
{
    QStringList rows;
    for (const auto& d : FeatureSet::compare(a, b)) {
        rows << QStringLiteral("%1: %2 / %3").arg(d.name, d.left, d.right);
    }
    return rows;
}

QStringList failures(const FeatureSetTransfer::LoadReport& report)
{
    QStringList rows;
    for (const auto& f : report.failures) {
        rows << QStringLiteral("%1 %2: %3 (%4)")
                    .arg(f.lineNumber)
                    .arg(f.name, FeatureSetTransfer::reasonText(f.reason), f.message);
    }
    return rows;
}

// Loads the lines of a feature set, given without its header and end.
FeatureSetTransfer::LoadReport loadLines(DeviceParameterCollection* collection,
                                         const QByteArray& lines)
{
    const QByteArray text = "Nodescope feature set\nFormat: 1\n\n" + lines + "[End]\n";
    return FeatureSetJob::loadAndWait(collection, FeatureSet::parse(text, QStringLiteral("lines")));
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile out(path);
    return out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size();
}

// "@CameraDevice/Gain 0->2.5" for every change the load reports, sorted.
QStringList changes(const FeatureSetTransfer::LoadReport& report)
{
    QStringList rows;
    for (const auto& applied : report.applied) {
        rows << applied.fullName + QLatin1Char(' ') + applied.before + QStringLiteral("->") +
                    applied.written;
    }
    rows.sort();
    return rows;
}

} // namespace

void tst_FeatureSetTransfer::shouldRestoreTwentyChangedFeaturesAfterTheDefaultUserSet()
{
    // Given the built-in camera with twenty features away from their start values, selected
    // ones included
    Backend::CameraPool pool;
    const auto info = pool.openSimulated();
    DeviceParameterCollection* camera = deviceCollection(pool, info);
    QSignalSpy refused(camera, &IParameterCollection::writeFailed);
    const QList<QPair<QString, QVariant>> changes = {
        {QStringLiteral("Width"), 1024},
        {QStringLiteral("Height"), 768},
        {QStringLiteral("OffsetX"), 64},
        {QStringLiteral("OffsetY"), 32},
        {QStringLiteral("PixelFormat"), QStringLiteral("Mono16")},
        {QStringLiteral("ReverseX"), true},
        {QStringLiteral("ExposureTime"), 12345.5},
        {QStringLiteral("AcquisitionFrameRateEnable"), true},
        {QStringLiteral("AcquisitionFrameRate"), 17.5},
        {QStringLiteral("VntGammaEnable"), true},
        {QStringLiteral("Gamma"), 0.8},
        {QStringLiteral("DeviceUserID"), QStringLiteral(" lab \"A\" ")},
        {QStringLiteral("GainSelector"), QStringLiteral("AnalogAll")},
        {QStringLiteral("Gain"), 3.5},
        {QStringLiteral("GainSelector"), QStringLiteral("DigitalAll")},
        {QStringLiteral("Gain"), 1.25},
        {QStringLiteral("TriggerSelector"), QStringLiteral("FrameStart")},
        {QStringLiteral("TriggerMode"), QStringLiteral("On")},
        {QStringLiteral("TriggerSource"), QStringLiteral("Line2")},
        {QStringLiteral("UserOutputSelector"), QStringLiteral("UserOutput1")},
        {QStringLiteral("UserOutputValue"), true},
        {QStringLiteral("BalanceRatioSelector"), QStringLiteral("Blue")},
        {QStringLiteral("BalanceRatio"), 1.75},
        {QStringLiteral("VntSharpeningEnable"), true},
        {QStringLiteral("VntSharpeningLevel"), 1.5},
    };
    for (const auto& change : changes) {
        QCOMPARE(set(camera, change.first, change.second), QString());
    }
    QCOMPARE(refused.count(), 0);
    const QString selectedGain = valueOf(camera, QStringLiteral("GainSelector"));

    // When its features are saved, the Default user set is loaded, and the file loaded back
    const FeatureSet saved = FeatureSetJob::saveAndWait(camera);
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("lab.txt"));
    {
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(saved.toText());
    }
    QCOMPARE(valueOf(camera, QStringLiteral("GainSelector")), selectedGain); // put back
    QCOMPARE(set(camera, QStringLiteral("UserSetSelector"), QStringLiteral("Default")), QString());
    QCOMPARE(set(camera, QStringLiteral("UserSetLoad"), true), QString());
    QCOMPARE(valueOf(camera, QStringLiteral("Width")), QStringLiteral("1920"));
    QVERIFY(!differences(saved, FeatureSetJob::saveAndWait(camera)).isEmpty());

    const FeatureSetTransfer::LoadReport report =
        FeatureSetJob::loadAndWait(camera, FeatureSet::read(file));

    // Then everything applies and the camera compares equal to the file
    QVERIFY2(report.failures.isEmpty(), qPrintable(failures(report).join(QLatin1Char('\n'))));
    QCOMPARE(differences(saved, FeatureSetJob::saveAndWait(camera)), QStringList());
    QCOMPARE(valueOf(camera, QStringLiteral("Width")), QStringLiteral("1024"));
    QCOMPARE(valueOf(camera, QStringLiteral("DeviceUserID")), QStringLiteral(" lab \"A\" "));
    QCOMPARE(valueOf(camera, QStringLiteral("GainSelector")), selectedGain);
    QCOMPARE(refused.count(), 0);
    // And the report names each change with its value before and after, for an undo
    bool sawGain = false;
    for (const auto& applied : report.applied) {
        if (applied.fullName == QLatin1String("@CameraDevice/Gain") &&
            applied.selectors.value(0).second == QLatin1String("AnalogAll")) {
            QCOMPARE(applied.before, QStringLiteral("0"));
            QCOMPARE(applied.written, QStringLiteral("3.5"));
            sawGain = true;
        }
    }
    QVERIFY(sawGain);
    qInfo("%d lines saved, %d applied in %d passes", int(saved.lines.size()),
          int(report.applied.size()), report.passes);
}

void tst_FeatureSetTransfer::shouldApplyEveryGoodLineAndReportEachBadOneWithItsReason()
{
    // Given a file with good lines and an unknown, a read-only, an out-of-range and an
    // unavailable feature
    Backend::CameraPool pool;
    DeviceParameterCollection* camera = deviceCollection(pool, pool.openSimulated());
    const QByteArray text = "Nodescope feature set\nFormat: 1\n\n"
                            "Width = 800\n"                  // 4
                            "NoSuchFeature = 1\n"            // 5
                            "DeviceVendorName = \"Other\"\n" // 6
                            "ExposureTime = -5\n"            // 7
                            "Gamma = 0.9\n"                  // 8
                            "ReverseY = true\n"              // 9
                            "[GainSelector = AnalogAll]\n"
                            "Gain = 2.5\n" // 11
                            "[End]\n";
    // When it is loaded
    const auto report =
        FeatureSetJob::loadAndWait(camera, FeatureSet::parse(text, QStringLiteral("mixed")));
    // Then the good lines are applied and each bad one is reported once, with its reason
    QCOMPARE(valueOf(camera, QStringLiteral("Width")), QStringLiteral("800"));
    QCOMPARE(valueOf(camera, QStringLiteral("ReverseY")), QStringLiteral("true"));
    QCOMPARE(set(camera, QStringLiteral("GainSelector"), QStringLiteral("AnalogAll")), QString());
    QCOMPARE(valueOf(camera, QStringLiteral("Gain")), QStringLiteral("2.5"));
    const QStringList rows = failures(report);
    QCOMPARE(rows.size(), 4);
    QVERIFY2(rows.at(0).startsWith(QStringLiteral("5 NoSuchFeature: unknown feature")),
             qPrintable(rows.at(0)));
    QVERIFY2(rows.at(1).startsWith(QStringLiteral("6 DeviceVendorName: read-only")),
             qPrintable(rows.at(1)));
    QVERIFY2(rows.at(2).startsWith(QStringLiteral("7 ExposureTime: out of range")),
             qPrintable(rows.at(2)));
    QVERIFY2(rows.at(3).startsWith(QStringLiteral("8 Gamma: not available")),
             qPrintable(rows.at(3)));
    // And the changes reported are the camera's: the selector walked and put back is none
    const QStringList changed = changes(report);
    QCOMPARE(changed, (QStringList{QStringLiteral("@CameraDevice/Gain 0->2.5"),
                                   QStringLiteral("@CameraDevice/ReverseY false->true"),
                                   QStringLiteral("@CameraDevice/Width 1920->800")}));
    QCOMPARE(report.failures.at(0).kind, Exception::NotFound);
    QCOMPARE(report.failures.at(1).kind, Exception::Access);
    QCOMPARE(report.failures.at(2).kind, Exception::Range);
    QCOMPARE(report.failures.at(3).kind, Exception::Access);
    qInfo("%s", qPrintable(rows.join(QLatin1Char('\n'))));
}

void tst_FeatureSetTransfer::shouldLeaveTheStreamsLockToTheAcquisition()
{
    Backend::CameraPool pool;
    DeviceParameterCollection* camera = deviceCollection(pool, pool.openSimulated());
    // Saved while the lock is on, as it is while streaming: the file does not carry it.
    QCOMPARE(set(camera, QStringLiteral("TLParamsLocked"), 1), QString());
    const FeatureSet saved = FeatureSetJob::saveAndWait(camera);
    QVERIFY(!saved.lines.isEmpty());
    for (const auto& line : saved.lines) {
        QVERIFY2(line.feature != QLatin1String("TLParamsLocked"), "the lock was saved");
    }
    QCOMPARE(set(camera, QStringLiteral("TLParamsLocked"), 0), QString());

    // A file that carries it anyway: the lock is reported, not written, and the rest applies.
    const auto report = loadLines(camera, "TLParamsLocked = 1\n" // 4
                                          "Width = 800\n");
    QCOMPARE(valueOf(camera, QStringLiteral("TLParamsLocked")), QStringLiteral("0"));
    QCOMPARE(valueOf(camera, QStringLiteral("Width")), QStringLiteral("800"));
    const QStringList rows = failures(report);
    QCOMPARE(rows, QStringList{QStringLiteral(
                       "4 TLParamsLocked: read-only (the acquisition sets it while it streams)")});
}

void tst_FeatureSetTransfer::shouldWriteNothingFromABrokenFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const QByteArray whole = "Nodescope feature set\nFormat: 1\n\nWidth = 800\nHeight = 600\n"
                             "[End]\n";
    QTest::newRow("binary") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16)
                            << QStringLiteral("not text");
    QTest::newRow("truncated") << whole.left(whole.indexOf("Height"))
                               << QStringLiteral("truncated");
}

void tst_FeatureSetTransfer::shouldWriteNothingFromABrokenFile()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    // Given the camera and a broken file
    Backend::CameraPool pool;
    DeviceParameterCollection* camera = deviceCollection(pool, pool.openSimulated());
    Backend::SimulatedDevice* device = simulated(camera);
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("broken.txt"));
    {
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(bytes);
    }
    camera->runOnDeviceThread([device](Backend::DeviceWorker&) { device->resetCounters(); });
    // When it is loaded
    FeatureSetJob job(camera);
    QSignalSpy failed(&job, &FeatureSetJob::failed);
    QSignalSpy loaded(&job, &FeatureSetJob::loaded);
    job.loadFile(file);
    camera->waitForDevice();
    // Then it is refused with the reason, and the camera saw no write at all
    QCOMPARE(failed.count(), 1);
    QVERIFY2(failed.at(0).at(0).toString().contains(reason),
             qPrintable(failed.at(0).at(0).toString()));
    QCOMPARE(loaded.count(), 0);
    QCOMPARE(device->writeCount(), 0);
}

void tst_FeatureSetTransfer::shouldReportTheLinesNotWrittenWhenCancelled()
{
    Backend::CameraPool pool;
    DeviceParameterCollection* camera = deviceCollection(pool, pool.openSimulated());
    const FeatureSet saved = FeatureSetJob::saveAndWait(camera);
    FeatureSetJob job(camera);
    QSignalSpy loaded(&job, &FeatureSetJob::loaded);
    // Cancelled at the first sign of progress
    connect(&job, &FeatureSetJob::progress, &job, [&job] { job.cancel(); });
    job.load(saved);
    QVERIFY(loaded.wait(20000));
    const auto report = loaded.at(0).at(0).value<FeatureSetTransfer::LoadReport>();
    qInfo("cancelled with %d of %d lines not written", int(report.failures.size()),
          int(saved.lines.size()));
    QVERIFY(report.cancelled);
    QVERIFY(!report.failures.isEmpty());
    QCOMPARE(report.failures.last().reason, FeatureSetTransfer::Reason::Cancelled);
}

void tst_FeatureSetTransfer::shouldLoadIntoTheFakeGigECameraWhatWasSavedFromIt()
{
    FakeGigECamera fakeCamera;
    const QString unavailable = fakeCamera.start();
    if (!unavailable.isEmpty()) {
        QSKIP(qPrintable(unavailable));
    }
    Backend::CameraPool pool;
    const QSharedPointer<Backend::CameraInfo> info = openFakeGigECamera(pool);
    QVERIFY2(info, "the fake camera did not answer on 127.0.0.1");
    DeviceParameterCollection* camera = deviceCollection(pool, info);

    // Given a file saved from the camera, and the camera changed afterwards
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("fake.txt"));
    const FeatureSet saved = FeatureSetJob::saveAndWait(camera);
    {
        QFile out(file);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(saved.toText());
    }
    QVERIFY(saved.lines.size() > 5);
    const QString width = valueOf(camera, QStringLiteral("Width"));
    QCOMPARE(set(camera, QStringLiteral("Width"), width == QLatin1String("256") ? 512 : 256),
             QString());
    QCOMPARE(set(camera, QStringLiteral("GainRaw"), 7), QString());
    QVERIFY(!differences(saved, FeatureSetJob::saveAndWait(camera)).isEmpty());

    // When the file is loaded
    FeatureSetJob job(camera);
    QSignalSpy loaded(&job, &FeatureSetJob::loaded);
    job.loadFile(file);
    QVERIFY(loaded.wait(30000));
    const auto report = loaded.at(0).at(0).value<FeatureSetTransfer::LoadReport>();
    camera->waitForDevice();

    // Then the camera holds what was saved
    QVERIFY2(report.failures.isEmpty(), qPrintable(failures(report).join(QLatin1Char('\n'))));
    QCOMPARE(valueOf(camera, QStringLiteral("Width")), width);
    QCOMPARE(differences(saved, FeatureSetJob::saveAndWait(camera)), QStringList());
    qInfo("%d lines from the fake camera, %d written back", int(saved.lines.size()),
          int(report.applied.size()));
}

void tst_FeatureSetTransfer::shouldSaveNoReadOnlySelectedFeatureOfADescriptionWithoutMarks()
{
    // Given the built-in description without its Streamable marks
    QFile builtIn(QStringLiteral(":/vantoviewer/genicam/VantoSimCamera.xml"));
    QVERIFY(builtIn.open(QIODevice::ReadOnly));
    QByteArray xml = builtIn.readAll();
    xml.replace("<Streamable>Yes</Streamable>", "");
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString file = dir.filePath(QStringLiteral("unmarked.xml"));
    QVERIFY(writeFile(file, xml));
    Backend::CameraPool pool;
    const auto info = pool.openSimulated(file);
    QVERIFY(info);

    // When it is saved
    const FeatureSet saved = FeatureSetJob::saveAndWait(deviceCollection(pool, info));
    pool.closeAll();

    // Then a selected feature is saved as one that no selector selects: only where it can be
    // written back
    QStringList features;
    for (const FeatureSet::Line& line : saved.lines) {
        features << line.feature;
    }
    QVERIFY(features.contains(QStringLiteral("Gain")));
    QVERIFY2(!features.contains(QStringLiteral("DeviceTemperature")),
             qPrintable(features.join(QLatin1Char(' '))));
}

void tst_FeatureSetTransfer::shouldReportTheValueFromBeforeTheLoadWhereAnEarlierLineChangedIt()
{
    // Given a camera where Low is the low byte of Whole's register: a write to Whole changes Low
    // (and each says so through pInvalidator, as a description must)
    const QByteArray xml = describedAs(
        "<Category Name=\"Root\"><pFeature>Whole</pFeature><pFeature>Low</pFeature></Category>\n"
        "<Integer Name=\"Whole\"><pValue>WholeReg</pValue><Min>0</Min><Max>65535</Max></Integer>\n"
        "<IntReg Name=\"WholeReg\"><Address>0x100</Address><Length>2</Length>"
        "<AccessMode>RW</AccessMode><pPort>Device</pPort><pInvalidator>LowReg</pInvalidator>"
        "<Sign>Unsigned</Sign><Endianess>LittleEndian</Endianess></IntReg>\n"
        "<Integer Name=\"Low\"><pValue>LowReg</pValue><Min>0</Min><Max>255</Max></Integer>\n"
        "<MaskedIntReg Name=\"LowReg\"><Address>0x100</Address><Length>2</Length>"
        "<AccessMode>RW</AccessMode><pPort>Device</pPort><pInvalidator>WholeReg</pInvalidator>"
        "<LSB>0</LSB><MSB>7</MSB>"
        "<Sign>Unsigned</Sign><Endianess>LittleEndian</Endianess></MaskedIntReg>\n");
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("overlap.xml"));
    QVERIFY(writeFile(file, xml));
    Backend::CameraPool pool;
    DeviceParameterCollection* camera = deviceCollection(pool, pool.openSimulated(file));
    QCOMPARE(set(camera, QStringLiteral("Whole"), 0x0101), QString());
    QCOMPARE(valueOf(camera, QStringLiteral("Low")), QStringLiteral("1"));

    // When a file sets Whole, which moves Low to 5 on the way, and then Low
    const auto report = loadLines(camera, "Whole = 1285\n" // 0x0505
                                          "Low = 9\n");
    QVERIFY2(report.failures.isEmpty(), qPrintable(failures(report).join(QLatin1Char('\n'))));
    QCOMPARE(valueOf(camera, QStringLiteral("Low")), QStringLiteral("9"));

    // Then Low is reported as it was before the load, not as the first line left it
    const QStringList changed = changes(report);
    QCOMPARE(changed, (QStringList{QStringLiteral("@CameraDevice/Low 1->9"),
                                   QStringLiteral("@CameraDevice/Whole 257->1285")}));
}

QTEST_GUILESS_MAIN(tst_FeatureSetTransfer)
#include "tst_featuresettransfer.moc"
