#include "cameraname.h"

#include <camerainfo.h>

#include <QtTest>

using VantoViewer::CameraName;

class TestCameraName : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldUseWhatTheCameraReports()
    {
        const Backend::CameraInfo info(QStringLiteral("192.168.1.20"), QStringLiteral("Vanto"),
                                       QStringLiteral("VNT-GV-100"), QStringLiteral("GV0001"),
                                       QStringLiteral("GigEVision"));
        QCOMPARE(CameraName::of(info), QStringLiteral("Vanto VNT-GV-100 (GV0001)"));
    }

    void shouldFallBackToHowTheCameraWasOpened()
    {
        // A camera lost before it could be asked for its vendor and model
        const Backend::CameraInfo info(QStringLiteral("192.168.1.20"), QString(), QString(),
                                       QString(), QStringLiteral("GigEVision"));
        QCOMPARE(CameraName::of(info), QStringLiteral("192.168.1.20"));
    }
};

QTEST_GUILESS_MAIN(TestCameraName)
#include "tst_cameraname.moc"
