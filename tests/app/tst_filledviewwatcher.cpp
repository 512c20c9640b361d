#include "filledviewwatcher.h"

#include <QAbstractItemModelTester>
#include <QStandardItemModel>
#include <QTreeView>
#include <QtTest>

#include <memory>

using VantoViewer::FilledViewWatcher;

namespace {

// Paints the view's viewport now, through its event filters, as the window system would.
void paintNow(QTreeView& view)
{
    view.viewport()->repaint();
}

} // namespace

class TestFilledViewWatcher : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldTellOnceWhenAViewWithRowsFirstPaints()
    {
        // Given a shown view whose model has rows
        QStandardItemModel model;
        new QAbstractItemModelTester(&model, &model);
        model.appendRow(new QStandardItem(QStringLiteral("Root")));
        QTreeView view;
        view.setModel(&model);
        FilledViewWatcher watcher(&view);
        QSignalSpy filled(&watcher, &FilledViewWatcher::filledPaint);

        // When it is shown and paints
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QTRY_COMPARE(filled.count(), 1);
        QVERIFY(watcher.hasSeenFilledPaint());

        // Then later paints do not tell again
        paintNow(view);
        paintNow(view);
        QCOMPARE(filled.count(), 1);
    }

    void shouldWaitWhileTheModelIsEmptyAndTellOnTheFirstPaintWithRows()
    {
        // Given a shown view that paints with an empty model
        QStandardItemModel model;
        new QAbstractItemModelTester(&model, &model);
        QTreeView view;
        view.setModel(&model);
        FilledViewWatcher watcher(&view);
        QSignalSpy filled(&watcher, &FilledViewWatcher::filledPaint);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        paintNow(view);
        QCOMPARE(filled.count(), 0);
        QVERIFY(!watcher.hasSeenFilledPaint());

        // When a row arrives, the view repaints
        model.appendRow(new QStandardItem(QStringLiteral("Feature")));

        // Then that paint is the one told
        QVERIFY(filled.wait());
        QCOMPARE(filled.count(), 1);
        QVERIFY(watcher.hasSeenFilledPaint());
    }

    void shouldIgnoreAViewWithoutModelUntilItGetsOne()
    {
        QTreeView view;
        FilledViewWatcher watcher(&view);
        QSignalSpy filled(&watcher, &FilledViewWatcher::filledPaint);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        paintNow(view);
        QCOMPARE(filled.count(), 0);

        // A model set later, already filled, counts from its first paint
        QStandardItemModel model;
        model.appendRow(new QStandardItem(QStringLiteral("Root")));
        view.setModel(&model);
        QVERIFY(filled.wait());
        QCOMPARE(filled.count(), 1);
    }

    void shouldIgnorePaintsOfOtherWidgets()
    {
        // Given a watcher on a view with rows that is never shown
        QStandardItemModel model;
        model.appendRow(new QStandardItem(QStringLiteral("Root")));
        QTreeView watched;
        watched.setModel(&model);
        FilledViewWatcher watcher(&watched);
        QSignalSpy filled(&watcher, &FilledViewWatcher::filledPaint);

        // When another view on the same model paints
        QTreeView other;
        other.setModel(&model);
        other.show();
        QVERIFY(QTest::qWaitForWindowExposed(&other));
        paintNow(other);

        // Then nothing is told
        QCOMPARE(filled.count(), 0);
    }

    void shouldSurviveTheViewGoingFirstAndANullView()
    {
        auto view = std::make_unique<QTreeView>();
        FilledViewWatcher watcher(view.get());
        view.reset();
        QVERIFY(!watcher.hasSeenFilledPaint());

        FilledViewWatcher none(nullptr);
        QVERIFY(!none.hasSeenFilledPaint());
    }
};

QTEST_MAIN(TestFilledViewWatcher)
#include "tst_filledviewwatcher.moc"
