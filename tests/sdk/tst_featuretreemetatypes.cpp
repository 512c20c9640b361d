#include "fakebaseinfo.h"

#include <camerapool/icamerainfo.h>
#include <core/cid.h>
#include <featuretree/featuretreemetatypes.h>
#include <genapi/genapitypes.h>
#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>
#include <parametercollection/parameterdata.h>

#include <QMetaType>
#include <QtTest>

using Plugin::CameraPool::BaseInfoPtr;

namespace {

// Declared with the typedef name on both ends, as older host code does.
class Sender : public QObject {
    Q_OBJECT
Q_SIGNALS:
    void deviceOpened(Plugin::CameraPool::BaseInfoPtr info);
};

class Receiver : public QObject {
    Q_OBJECT
public:
    QList<BaseInfoPtr> received;
public Q_SLOTS:
    void onDeviceOpened(Plugin::CameraPool::BaseInfoPtr info) { received.append(info); }
};

struct Expected {
    const char* name;
    int (*id)();
};

// Ids are looked up only after registration: asking for one registers the type as a side
// effect, which would hide a name that registerFeatureTreeMetaTypes() forgot.
const Expected EXPECTED[] = {
    {"Plugin::CameraPool::BaseInfoPtr", [] { return qMetaTypeId<BaseInfoPtr>(); }},
    {"QSharedPointer<Plugin::CameraPool::IBaseInfo>", [] { return qMetaTypeId<BaseInfoPtr>(); }},
    {"Plugin::CameraPool::CameraInfoPtr",
     [] { return qMetaTypeId<Plugin::CameraPool::CameraInfoPtr>(); }},
    {"QSharedPointer<Plugin::CameraPool::ICameraInfo>",
     [] { return qMetaTypeId<Plugin::CameraPool::CameraInfoPtr>(); }},
    {"GenApi::EVisibility", [] { return qMetaTypeId<GenApi::EVisibility>(); }},
    {"GenApi::EAccessMode", [] { return qMetaTypeId<GenApi::EAccessMode>(); }},
    {"QSharedPointer<ParameterCollection::IParameter>",
     [] { return qMetaTypeId<QSharedPointer<ParameterCollection::IParameter>>(); }},
    {"QSharedPointer<const ParameterCollection::ParameterData>",
     [] { return qMetaTypeId<QSharedPointer<const ParameterCollection::ParameterData>>(); }},
    {"QSharedPointer<ParameterCollection::IParameterCollection>",
     [] { return qMetaTypeId<QSharedPointer<ParameterCollection::IParameterCollection>>(); }},
    {"Core::CId", [] { return qMetaTypeId<Core::CId>(); }},
};

} // namespace

class TestFeatureTreeMetaTypes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const Expected& expected : EXPECTED) {
            QVERIFY2(QMetaType::type(expected.name) == QMetaType::UnknownType, expected.name);
        }
        Plugin::FeatureTree::registerFeatureTreeMetaTypes();
    }

    void shouldRegisterEveryName_data()
    {
        QTest::addColumn<int>("row");
        for (int row = 0; row < int(sizeof(EXPECTED) / sizeof(EXPECTED[0])); ++row) {
            QTest::newRow(EXPECTED[row].name) << row;
        }
    }

    void shouldRegisterEveryName()
    {
        QFETCH(int, row);
        const Expected& expected = EXPECTED[row];

        const int id = QMetaType::type(expected.name);

        QVERIFY(id != QMetaType::UnknownType);
        QCOMPARE(id, expected.id());
    }

    void shouldKeepTheIdsWhenCalledAgain()
    {
        const int before = QMetaType::type("Plugin::CameraPool::BaseInfoPtr");

        Plugin::FeatureTree::registerFeatureTreeMetaTypes();

        QCOMPARE(QMetaType::type("Plugin::CameraPool::BaseInfoPtr"), before);
    }

    void shouldCarryTheCameraThroughAQueuedConnectionByTypedefName()
    {
        Sender sender;
        Receiver receiver;
        QVERIFY(QObject::connect(&sender, SIGNAL(deviceOpened(Plugin::CameraPool::BaseInfoPtr)),
                                 &receiver, SLOT(onDeviceOpened(Plugin::CameraPool::BaseInfoPtr)),
                                 Qt::QueuedConnection));
        const BaseInfoPtr camera(new FakeBaseInfo(QStringLiteral("SIM0001")));

        Q_EMIT sender.deviceOpened(camera);
        QVERIFY(receiver.received.isEmpty());

        QTRY_COMPARE(receiver.received.size(), 1);
        QCOMPARE(receiver.received.first(), camera);
    }
};

QTEST_GUILESS_MAIN(TestFeatureTreeMetaTypes)
#include "tst_featuretreemetatypes.moc"
