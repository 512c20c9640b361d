#include "apptestsupport.h"

#include "changejournal.h"
#include "changespanel.h"
#include "changesmodel.h"

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <parametercollection/iparameter.h>

#include <QTableView>
#include <QTemporaryDir>
#include <QtTest>

using VantoViewer::ChangeJournal;
using VantoViewer::ChangesPanel;

class TestChangesPanel : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_settingsDir;

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_settingsDir.isValid());
        isolateSettings(m_settingsDir.path());
    }

    void listsTheActiveCamerasChangesAndKeepsTheNewestInView()
    {
        const auto pool = QSharedPointer<Backend::CameraPool>::create();
        ChangeJournal journal;
        journal.setMergeWindow(0);
        ChangesPanel panel(&journal);
        panel.resize(400, 80);
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        const auto info = pool->openSimulated();
        const auto collection = pool->getParameterCollection(info);
        journal.addCamera(info, collection);
        journal.setActiveCamera(info);
        QCOMPARE(panel.view()->model(), panel.model());
        QVERIFY(panel.view()->editTriggers() == QAbstractItemView::NoEditTriggers);

        for (int i = 1; i <= 20; ++i) {
            collection->getParameter(QStringLiteral("@CameraDevice/Gain"))->setValue(double(i));
        }
        QTRY_COMPARE(panel.view()->model()->rowCount(), 20);
        const QModelIndex newest = panel.model()->index(19, 0);
        QTRY_VERIFY(panel.view()->visualRect(newest).intersects(panel.view()->viewport()->rect()));
        pool->closeAll();
    }
};

QTEST_MAIN(TestChangesPanel)
#include "tst_changespanel.moc"
