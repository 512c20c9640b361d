#include "openingprogress.h"

#include <QMainWindow>
#include <QProgressDialog>
#include <QPushButton>
#include <QtTest>

#include <memory>

using VantoViewer::OpeningProgress;

class TestOpeningProgress : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldShowAWindowModalProgressWithACancelForItsLifetime()
    {
        QMainWindow window;
        window.show();
        int cancels = 0;

        auto progress = std::make_unique<OpeningProgress>(&window, QStringLiteral("Opening A..."),
                                                          [&cancels] { ++cancels; });

        // Then the window shows it, modal to the window only, with the label given
        auto* dialog =
            window.findChild<QProgressDialog*>(QLatin1String(OpeningProgress::OBJECT_NAME));
        QVERIFY(dialog);
        QVERIFY(dialog->isVisible());
        QCOMPARE(dialog->windowModality(), Qt::WindowModal);
        QCOMPARE(dialog->labelText(), QStringLiteral("Opening A..."));
        QVERIFY(!progress->wasCancelled());

        // When the user presses Cancel, the caller hears of it once
        QTest::mouseClick(dialog->findChild<QPushButton*>(), Qt::LeftButton);
        QCOMPARE(cancels, 1);
        QVERIFY(progress->wasCancelled());

        // And the dialog goes with the progress
        QPointer<QProgressDialog> watched(dialog);
        progress.reset();
        QVERIFY(watched.isNull());
    }
};

QTEST_MAIN(TestOpeningProgress)
#include "tst_openingprogress.moc"
