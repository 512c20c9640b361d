#include "acquisitionactions.h"
#include "syntheticacquisition.h"

#include <camerapool.h>
#include <parametercollection/iparametercollection.h>

#include <QAction>
#include <QSignalSpy>
#include <QtTest>

using Plugin::Acquisition::IAcquisition;
using VantoViewer::AcquisitionActions;

class TestAcquisitionActions : public QObject {
    Q_OBJECT

    QSharedPointer<Backend::CameraPool> m_pool;
    QSharedPointer<ParameterCollection::IParameterCollection> m_collection;

    static QList<bool> enabled(const AcquisitionActions& actions)
    {
        QList<bool> states;
        for (QAction* action : actions.actions()) {
            states.append(action->isEnabled());
        }
        return states;
    }

private Q_SLOTS:
    void init()
    {
        m_pool = QSharedPointer<Backend::CameraPool>::create();
        m_collection = m_pool->getParameterCollection(m_pool->openSimulated());
        QVERIFY(m_collection);
    }
    void cleanup()
    {
        m_collection.reset();
        m_pool->closeAll();
        m_pool.reset();
    }

    void withoutACameraNothingIsEnabled()
    {
        AcquisitionActions actions;
        QCOMPARE(enabled(actions), QList<bool>({false, false, false, false}));
    }

    void shotsStartTheAcquisitionAndStopEndsIt()
    {
        // Given an idle camera
        SyntheticAcquisition acquisition;
        AcquisitionActions actions;
        actions.setCamera(&acquisition, m_collection);
        QCOMPARE(enabled(actions), QList<bool>({true, true, false, false}));

        // When Continuous Shot is pressed
        actions.continuousShot()->trigger();

        // Then the acquisition runs continuously and only Stop is offered
        QCOMPARE(acquisition.starts, QList<IAcquisition::Mode>({IAcquisition::Continuous}));
        QCOMPARE(enabled(actions), QList<bool>({false, false, true, false}));

        actions.stop()->trigger();
        QCOMPARE(acquisition.stops, 1);
        QCOMPARE(enabled(actions), QList<bool>({true, true, false, false}));

        actions.singleShot()->trigger();
        QCOMPARE(acquisition.starts,
                 QList<IAcquisition::Mode>({IAcquisition::Continuous, IAcquisition::SingleFrame}));
        // A single frame ends on its own.
        acquisition.setState(IAcquisition::Idle);
        QCOMPARE(enabled(actions), QList<bool>({true, true, false, false}));
    }

    void softwareTriggerFollowsTheTriggerMode()
    {
        SyntheticAcquisition acquisition;
        AcquisitionActions actions;
        actions.setCamera(&acquisition, m_collection);
        QVERIFY(!actions.softwareTrigger()->isEnabled());

        // When the user turns the trigger mode on in the features
        m_collection->getParameter(QStringLiteral("@CameraDevice/TriggerMode"))
            ->setValue(QStringLiteral("On"));

        // Then Software Trigger is offered, and executing it raises no error
        QTRY_VERIFY(actions.softwareTrigger()->isEnabled());
        QSignalSpy failed(&actions, &AcquisitionActions::failed);
        actions.softwareTrigger()->trigger();
        QCOMPARE(failed.count(), 0);

        m_collection->getParameter(QStringLiteral("@CameraDevice/TriggerMode"))
            ->setValue(QStringLiteral("Off"));
        QTRY_VERIFY(!actions.softwareTrigger()->isEnabled());
    }

    void anotherCameraLeavesTheFirstAcquiring()
    {
        SyntheticAcquisition first;
        SyntheticAcquisition second;
        AcquisitionActions actions;
        actions.setCamera(&first, m_collection);
        actions.continuousShot()->trigger();

        actions.setCamera(&second, m_collection);

        QCOMPARE(first.state(), IAcquisition::Acquiring);
        QCOMPARE(first.stops, 0);
        QCOMPARE(enabled(actions), QList<bool>({true, true, false, false}));
        actions.setCamera(&first, m_collection);
        QCOMPARE(enabled(actions), QList<bool>({false, false, true, false}));
    }

    void showsItsKeysInTheToolTips()
    {
        AcquisitionActions actions;
        QCOMPARE(actions.continuousShot()->shortcut(), QKeySequence(Qt::Key_F5));
        QVERIFY(actions.continuousShot()->toolTip().contains(QStringLiteral("F5")));
        for (QAction* action : actions.actions()) {
            QVERIFY(!action->shortcut().isEmpty());
            QVERIFY(action->toolTip().contains(action->shortcut().toString()));
        }
    }
};

QTEST_MAIN(TestAcquisitionActions)
#include "tst_acquisitionactions.moc"
