#include "testsupport.h"

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <featuresettransfer.h>

#include <parametercollection/exception.h>

#include <QtTest>

using namespace ParameterCollection;
using Backend::DeviceParameterCollection;

class tst_UserSetLogic : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void shouldRestoreTheFactoryValuesFromTheDefaultSet();
    void shouldRestoreWhatASetSaved();
    void shouldShowTheLoadCommandComplete();
    void shouldKeepTheDefaultSetFromBeingOverwritten();

private:
    QString set(const QString& feature, const QVariant& value);
    QString valueOf(const QString& feature) const;

    std::unique_ptr<Backend::CameraPool> m_pool;
    DeviceParameterCollection* m_camera = nullptr;
};

void tst_UserSetLogic::init()
{
    m_pool = std::make_unique<Backend::CameraPool>();
    m_camera = static_cast<DeviceParameterCollection*>(
        m_pool->getParameterCollection(m_pool->openSimulated()).data());
}

void tst_UserSetLogic::cleanup()
{
    m_pool.reset();
}

QString tst_UserSetLogic::set(const QString& feature, const QVariant& value)
{
    try {
        m_camera->getParameter(QStringLiteral("@CameraDevice/") + feature)->setValue(value);
    } catch (const Exception& e) {
        return e.text();
    }
    m_camera->waitForDevice();
    return QString();
}

QString tst_UserSetLogic::valueOf(const QString& feature) const
{
    const auto data =
        m_camera->getParameter(QStringLiteral("@CameraDevice/") + feature)->getParameterData();
    return Backend::FeatureSetTransfer::valueText(data->type, data->value);
}

void tst_UserSetLogic::shouldRestoreTheFactoryValuesFromTheDefaultSet()
{
    // Given a camera whose gain and width were changed
    QCOMPARE(set(QStringLiteral("Gain"), 12.5), QString());
    QCOMPARE(set(QStringLiteral("Width"), 640), QString());
    QCOMPARE(valueOf(QStringLiteral("Gain")), QStringLiteral("12.5"));
    // When the Default set is loaded
    QCOMPARE(set(QStringLiteral("UserSetSelector"), QStringLiteral("Default")), QString());
    QCOMPARE(set(QStringLiteral("UserSetLoad"), true), QString());
    // Then the collection shows the start values again, read past every cache
    QCOMPARE(valueOf(QStringLiteral("Gain")), QStringLiteral("0"));
    QCOMPARE(valueOf(QStringLiteral("Width")), QStringLiteral("1920"));
    m_camera->refresh({ParameterName(QStringLiteral("@CameraDevice/Gain"))});
    m_camera->waitForDevice();
    QCOMPARE(valueOf(QStringLiteral("Gain")), QStringLiteral("0"));
    QCOMPARE(valueOf(QStringLiteral("UserSetSelector")), QStringLiteral("Default"));
}

void tst_UserSetLogic::shouldRestoreWhatASetSaved()
{
    // Given a configuration saved in UserSet2, selected values included
    QCOMPARE(set(QStringLiteral("GainSelector"), QStringLiteral("DigitalAll")), QString());
    QCOMPARE(set(QStringLiteral("Gain"), 4.0), QString());
    QCOMPARE(set(QStringLiteral("ExposureTime"), 2500.0), QString());
    QCOMPARE(set(QStringLiteral("UserSetSelector"), QStringLiteral("UserSet2")), QString());
    QCOMPARE(set(QStringLiteral("UserSetSave"), true), QString());
    // And changed afterwards
    QCOMPARE(set(QStringLiteral("Gain"), 9.0), QString());
    QCOMPARE(set(QStringLiteral("ExposureTime"), 7000.0), QString());
    QCOMPARE(set(QStringLiteral("GainSelector"), QStringLiteral("All")), QString());
    // When the set is loaded
    QCOMPARE(set(QStringLiteral("UserSetLoad"), true), QString());
    // Then the saved values are back, and the set chosen stays chosen
    QCOMPARE(valueOf(QStringLiteral("ExposureTime")), QStringLiteral("2500"));
    QCOMPARE(valueOf(QStringLiteral("GainSelector")), QStringLiteral("DigitalAll"));
    QCOMPARE(valueOf(QStringLiteral("Gain")), QStringLiteral("4"));
    QCOMPARE(valueOf(QStringLiteral("UserSetSelector")), QStringLiteral("UserSet2"));
}

void tst_UserSetLogic::shouldShowTheLoadCommandComplete()
{
    const auto load = m_camera->getParameter(QStringLiteral("@CameraDevice/UserSetLoad"));
    load->setValue(true);
    QTRY_VERIFY(static_cast<const CommandParameterData&>(*load->getParameterData()).done);
}

void tst_UserSetLogic::shouldKeepTheDefaultSetFromBeingOverwritten()
{
    QCOMPARE(set(QStringLiteral("UserSetSelector"), QStringLiteral("Default")), QString());
    const QString refused = set(QStringLiteral("UserSetSave"), true);
    QVERIFY2(refused.contains(QStringLiteral("not available")), qPrintable(refused));
}

QTEST_GUILESS_MAIN(tst_UserSetLogic)
#include "tst_usersetlogic.moc"
