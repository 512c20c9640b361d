#include "changejournal.h"
#include "changespanel.h"
#include "changesmodel.h"
#include "journaltestsupport.h"

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <parametercollection/iparameter.h>

#include <QTableView>
#include <QtTest>

#include <memory>

using VantoViewer::ChangeJournal;
using VantoViewer::ChangesPanel;

class TestChangesPanel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void listsTheActiveCamerasChangesAndKeepsTheNewestInView()
    {
        const auto cameras = std::make_unique<JournalCameras>();
        ChangeJournal journal;
        journal.setMergeWindow(0);
        ChangesPanel panel(&journal);
        panel.resize(400, 80);
        panel.show();
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        const auto info = cameras->open(journal);
        const auto collection = cameras->collection(info);
        QCOMPARE(panel.view()->model(), panel.model());
        QVERIFY(panel.view()->editTriggers() == QAbstractItemView::NoEditTriggers);

        for (int i = 1; i <= 20; ++i) {
            collection->getParameter(QStringLiteral("@CameraDevice/Gain"))->setValue(double(i));
        }
        QTRY_COMPARE(panel.view()->model()->rowCount(), 20);
        const QModelIndex newest = panel.model()->index(19, 0);
        QTRY_VERIFY(panel.view()->visualRect(newest).intersects(panel.view()->viewport()->rect()));
    }
};

QTEST_MAIN(TestChangesPanel)
#include "tst_changespanel.moc"
