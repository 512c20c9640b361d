#include "testsupport.h"

#include <camerapool.h>
#include <deviceparametercollection.h>

#include <parametercollection/exception.h>

#include <QDirIterator>
#include <QElapsedTimer>
#include <QProcess>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QUdpSocket>
#include <QtTest>

#include <csignal>

using namespace ParameterCollection;

namespace {

int countVisibleFeatures(const IParameterCollection& collection, const QString& fullName,
                         int depth = 0)
{
    if (depth > 64) {
        return 0;
    }
    const auto parameter = collection.getParameter(fullName);
    if (!parameter) {
        return 0;
    }
    const auto data = parameter->getParameterData();
    if (data->type == CategoryType) {
        int count = 0;
        for (const QString& child : collection.getChildren(fullName)) {
            count += countVisibleFeatures(collection, child, depth + 1);
        }
        return count;
    }
    return data->visibility < GenApi::Invisible ? 1 : 0;
}

} // namespace

class tst_CameraPool : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void shouldOpenEveryVendorDescriptionOnSimulatedDevice_data();
    void shouldOpenEveryVendorDescriptionOnSimulatedDevice();
    void shouldReportMissingFileClearly();
    void shouldOpenFakeGigECameraByAddressAndNoticeItsDeath();
};

void tst_CameraPool::shouldOpenEveryVendorDescriptionOnSimulatedDevice_data()
{
    QTest::addColumn<QString>("file");
    QDirIterator it(sharedGenICamDir(), {QStringLiteral("*.xml")}, QDir::Files);
    while (it.hasNext()) {
        const QString file = it.next();
        QTest::newRow(qPrintable(QFileInfo(file).fileName())) << file;
    }
}

void tst_CameraPool::shouldOpenEveryVendorDescriptionOnSimulatedDevice()
{
    QFETCH(QString, file);
    if (file.isEmpty() || !QFileInfo::exists(file)) {
        QSKIP("no vendor descriptions: ../shared/genicam is absent");
    }
    Backend::DeviceParameterCollection collection(QFileInfo(file).fileName());
    QFile f(file);
    QVERIFY(f.open(QIODevice::ReadOnly));
    collection.attachSimulated(QStringLiteral("CameraDevice"), f.readAll());
    const int visible = countVisibleFeatures(collection, QStringLiteral("@CameraDevice/Root"));
    const auto structure = collection.structure(QStringLiteral("CameraDevice"));
    qInfo("%s: %d visible features, %d nodes, %d structural problems",
          qPrintable(QFileInfo(file).fileName()), visible, int(structure->nodes.size()),
          int(structure->problems.size()));
    QVERIFY(visible > 0);
}

void tst_CameraPool::shouldReportMissingFileClearly()
{
    Backend::CameraPool pool;
    try {
        pool.openSimulated(QStringLiteral("/nonexistent/camera.xml"));
        QFAIL("a missing file must not open");
    } catch (const NotFoundException& e) {
        QVERIFY2(QString::fromUtf8(e.what()).startsWith(QStringLiteral("[/nonexistent/camera.xml] cannot open")),
                 e.what());
    }
    QVERIFY(pool.getOpenDevices().isEmpty());
}

void tst_CameraPool::shouldOpenFakeGigECameraByAddressAndNoticeItsDeath()
{
    if (qgetenv("NODESCOPE_IN_NETNS") != "1") {
        QSKIP("needs a private network namespace (run through run-in-netns.sh)");
    }
    const QString fake = QStandardPaths::findExecutable(QStringLiteral("arv-fake-gv-camera-0.8"));
    if (fake.isEmpty()) {
        QSKIP("arv-fake-gv-camera-0.8 is not installed");
    }
    QProcess camera;
    camera.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    camera.start(fake, {QStringLiteral("-i"), QStringLiteral("127.0.0.1")});
    QVERIFY2(camera.waitForStarted(), qPrintable(camera.errorString()));
    const qint64 pid = camera.processId();
    auto stopCamera = qScopeGuard([&camera, pid] {
        if (camera.state() != QProcess::NotRunning) {
            ::kill(pid_t(pid), SIGKILL);
            camera.waitForFinished(5000);
        }
    });

    Backend::CameraPool pool;
    QSharedPointer<Backend::CameraInfo> info;
    // The fake camera needs a moment to bind its socket.
    QElapsedTimer waited;
    waited.start();
    while (!info && waited.elapsed() < 10000) {
        try {
            info = pool.openDevice(QStringLiteral("127.0.0.1"));
        } catch (const Exception&) {
            QTest::qWait(100);
        }
    }
    QVERIFY2(info, "the fake camera did not answer on 127.0.0.1");
    QVERIFY(info->isGigE());
    const auto collection = pool.getParameterCollection(info);
    const auto width = collection->getParameter(QStringLiteral("@CameraDevice/Width"));
    QVERIFY(width);
    QVERIFY(width->getParameterData()->readable);
    const qint64 newWidth = width->getParameterData()->value.toLongLong() == 512 ? 256 : 512;
    QSignalSpy changed(width.data(), &IParameter::parameterDataChanged);
    width->setValue(QVariant(newWidth));
    QTRY_VERIFY(changed.count() >= 1);
    static_cast<Backend::DeviceParameterCollection*>(collection.data())->waitForDevice();
    QCOMPARE(width->getParameterData()->value.toLongLong(), newWidth);
    width->getAdvancedParameterAccess()->scheduleForcedParameterDataChangedCheck();
    static_cast<Backend::DeviceParameterCollection*>(collection.data())->waitForDevice();
    QCOMPARE(width->getParameterData()->value.toLongLong(), newWidth); // read back from the camera

    // Kill the camera; the GUI thread must keep ticking while Aravis times out.
    QSignalSpy lost(collection.data(), &IParameterCollection::deviceLost);
    width->addObserver();
    ::kill(pid_t(pid), SIGKILL);
    QVERIFY(camera.waitForFinished(5000));
    QTimer ticker;
    ticker.setInterval(10);
    QElapsedTimer sinceTick;
    qint64 longestGap = 0;
    sinceTick.start();
    connect(&ticker, &QTimer::timeout, &ticker, [&] {
        longestGap = qMax(longestGap, sinceTick.restart());
    });
    ticker.start();
    QElapsedTimer lostAfter;
    lostAfter.start();
    collection->refresh();
    QVERIFY(lost.wait(20000) || lost.count() > 0);
    qInfo("lost after %lld ms; longest GUI gap %lld ms", lostAfter.elapsed(), longestGap);
    QVERIFY(collection->isLost());
    QVERIFY2(longestGap < 50, qPrintable(QStringLiteral("GUI stalled %1 ms").arg(longestGap)));
    try {
        width->setValue(QVariant(newWidth));
        QFAIL("a write to a lost device must throw");
    } catch (const DeviceLostException& e) {
        QCOMPARE(e.featureName(), QStringLiteral("Width"));
    }
}

QTEST_GUILESS_MAIN(tst_CameraPool)
#include "tst_camerapool.moc"
