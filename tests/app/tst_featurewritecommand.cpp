#include "featurewritecommand.h"

#include <QUndoStack>
#include <QtTest>

using VantoViewer::FeatureWriteCommand;

namespace {

const QString kGain = QStringLiteral("@CameraDevice/Gain");
const QString kWidth = QStringLiteral("@CameraDevice/Width");
const QDateTime kStart = QDateTime(QDate(2026, 1, 1), QTime(12, 0));

FeatureWriteCommand* gainStep(double from, double to, int atMs, int windowMs = 500)
{
    return new FeatureWriteCommand(QStringLiteral("Set Gain to %1").arg(to),
                                   {{kGain, from, QString::number(from), to, QString::number(to)}},
                                   kStart.addMSecs(atMs), windowMs);
}

} // namespace

class TestFeatureWriteCommand : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void changesOfOneFeatureWithinTheWindowMerge()
    {
        QUndoStack stack;
        stack.push(gainStep(0, 1, 0));
        stack.push(gainStep(1, 2, 200));
        stack.push(gainStep(2, 3, 650));

        QCOMPARE(stack.count(), 1);
        const auto* step = static_cast<const FeatureWriteCommand*>(stack.command(0));
        QCOMPARE(step->changes().size(), 1);
        QCOMPARE(step->changes().first().oldValue.toDouble(), 0.0);
        QCOMPARE(step->changes().first().newValue.toDouble(), 3.0);
        QCOMPARE(step->text(), QStringLiteral("Set Gain to 3"));
    }

    void changesFartherApartStaySteps()
    {
        QUndoStack stack;
        stack.push(gainStep(0, 1, 0));
        stack.push(gainStep(1, 2, 501));
        QCOMPARE(stack.count(), 2);
    }

    void noWindowMergesNothing()
    {
        QUndoStack stack;
        stack.push(gainStep(0, 1, 0, 0));
        stack.push(gainStep(1, 2, 0, 0));
        QCOMPARE(stack.count(), 2);
    }

    void otherFeaturesAndGroupsNeverMerge()
    {
        QUndoStack stack;
        stack.push(gainStep(0, 1, 0));
        stack.push(new FeatureWriteCommand(
            QStringLiteral("Set Width to 800"),
            {{kWidth, 1920, QStringLiteral("1920"), 800, QStringLiteral("800")}},
            kStart.addMSecs(10), 500));
        QCOMPARE(stack.count(), 2);
        stack.push(new FeatureWriteCommand(
            QStringLiteral("Load"),
            {{kGain, 1.0, QStringLiteral("1"), 2.0, QStringLiteral("2")},
             {kWidth, 800, QStringLiteral("800"), 640, QStringLiteral("640")}},
            kStart.addMSecs(20), 500));
        stack.push(gainStep(2, 3, 30));
        QCOMPARE(stack.count(), 4);
        QCOMPARE(static_cast<const FeatureWriteCommand*>(stack.command(2))->changes().size(), 2);
    }

    void undoAndRedoWriteNothingThemselves()
    {
        // The journal writes; the stack only keeps the place. Undo on a bare stack must not
        // reach for any device.
        QUndoStack stack;
        stack.push(gainStep(0, 1, 0));
        stack.undo();
        QCOMPARE(stack.index(), 0);
        stack.redo();
        QCOMPARE(stack.index(), 1);
    }
};

QTEST_MAIN(TestFeatureWriteCommand)
#include "tst_featurewritecommand.moc"
