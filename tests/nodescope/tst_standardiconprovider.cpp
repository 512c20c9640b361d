#include "testsupport.h"

#include "internal/view/standardiconprovider.h"

#include <QApplication>
#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QStyle>
#include <QtTest>

using Plugin::Nodescope::Internal::View::CStandardIconProvider;

namespace {

bool hasVisiblePixels(const QPixmap& pixmap)
{
    const QImage image = pixmap.toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

class tst_StandardIconProvider : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldServePixmapsUnderItsId()
    {
        CStandardIconProvider provider;
        QCOMPARE(provider.imageType(), QQmlImageProviderBase::Pixmap);
        QCOMPARE(QString::fromLatin1(CStandardIconProvider::PROVIDER_ID),
                 QStringLiteral("standardIcons"));
    }

    void shouldReturnNullPixmapForUnknownId_data()
    {
        QTest::addColumn<QString>("id");
        QTest::newRow("unknown") << QStringLiteral("SP_NoSuchIcon");
        QTest::newRow("empty") << QString();
        QTest::newRow("other standard icon") << QStringLiteral("SP_TitleBarMinButton");
        QTest::newRow("wrong case") << QStringLiteral("sp_titlebarclosebutton");
    }

    void shouldReturnNullPixmapForUnknownId()
    {
        QFETCH(QString, id);
        CStandardIconProvider provider;
        MessageCapture messages;
        QSize size(-7, -7);

        const QPixmap pixmap = provider.requestPixmap(id, &size, QSize(16, 16));

        QVERIFY(pixmap.isNull());
        QCOMPARE(size, QSize(-7, -7));
        QCOMPARE(messages.lines(), QStringList());
    }

    void shouldServeCloseButtonAtRequestedSize_data()
    {
        QTest::addColumn<QSize>("requested");
        QTest::addColumn<QSize>("expected");
        QTest::newRow("16") << QSize(16, 16) << QSize(16, 16);
        QTest::newRow("32") << QSize(32, 32) << QSize(32, 32);
        QTest::newRow("8") << QSize(8, 8) << QSize(8, 8);
        QTest::newRow("width only") << QSize(20, 0) << QSize(20, 20);
        QTest::newRow("height only") << QSize(0, 12) << QSize(12, 12);
    }

    void shouldServeCloseButtonAtRequestedSize()
    {
        QFETCH(QSize, requested);
        QFETCH(QSize, expected);
        CStandardIconProvider provider;
        QSize size;

        const QPixmap pixmap =
            provider.requestPixmap(QStringLiteral("SP_TitleBarCloseButton"), &size, requested);

        QVERIFY(!pixmap.isNull());
        QCOMPARE(pixmap.size(), expected);
        QCOMPARE(size, expected);
        QVERIFY(hasVisiblePixels(pixmap));
    }

    void shouldServeCloseButtonAtItsOwnSizeWhenNoneIsRequested()
    {
        CStandardIconProvider provider;
        QSize size;
        const QIcon icon = QApplication::style()->standardIcon(QStyle::SP_TitleBarCloseButton);
        QVERIFY(!icon.availableSizes().isEmpty());

        const QPixmap pixmap =
            provider.requestPixmap(QStringLiteral("SP_TitleBarCloseButton"), &size, QSize());

        QCOMPARE(pixmap.size(), icon.availableSizes().first());
        QCOMPARE(size, pixmap.size());
    }

    void shouldServeCloseButtonToQml()
    {
        // Given an engine that knows the provider
        QQmlEngine engine;
        engine.addImageProvider(QLatin1String(CStandardIconProvider::PROVIDER_ID),
                                new CStandardIconProvider);
        QQmlComponent component(&engine);
        component.setData("import QtQuick 2.0\n"
                          "Image { source: \"image://standardIcons/SP_TitleBarCloseButton\";"
                          " sourceSize.width: 14; sourceSize.height: 14 }",
                          QUrl());

        // When an image asks for the remove icon
        std::unique_ptr<QObject> image(component.create());
        QVERIFY2(image, qPrintable(component.errorString()));

        // Then it gets it, at the size it asked for
        QTRY_COMPARE(image->property("status").toInt(), 1); // Image.Ready
        QCOMPARE(image->property("implicitWidth").toReal(), 14.0);
        QCOMPARE(image->property("implicitHeight").toReal(), 14.0);
    }
};

QTEST_MAIN(tst_StandardIconProvider)
#include "tst_standardiconprovider.moc"
