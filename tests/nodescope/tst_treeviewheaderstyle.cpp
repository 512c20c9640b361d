#include "testsupport.h"

#include "internal/style/treeviewheaderstyle.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QScreen>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <QStyleOptionHeader>
#include <QtTest>

using Plugin::Nodescope::Internal::Style::CTreeViewHeaderStyle;

Q_DECLARE_METATYPE(QStyleOptionHeader::SectionPosition)

namespace {

const QColor kBase(0x10, 0xc0, 0x20);
const QColor kMidlight(0xc0, 0x10, 0x10);
const QColor kText(0x00, 0x00, 0xff);
const QColor kUnpainted(0x80, 0x80, 0x80);
const QRect kSection(0, 0, 120, 30);

// Without a widget the style goes by the primary screen.
int lineY(const QRect& rect)
{
    const qreal scale = QGuiApplication::primaryScreen()->logicalDotsPerInch() / 96.0;
    return rect.bottom() - qRound(7.0 / scale);
}

QStyleOptionHeader headerOption(const QRect& rect)
{
    QStyleOptionHeader option;
    option.rect = rect;
    option.state = QStyle::State_Enabled;
    option.palette.setColor(QPalette::Base, kBase);
    option.palette.setColor(QPalette::Midlight, kMidlight);
    option.palette.setColor(QPalette::Text, kText);
    option.orientation = Qt::Horizontal;
    return option;
}

QImage draw(const QStyle& style, QStyle::ControlElement element, const QStyleOption& option,
            const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(kUnpainted);
    QPainter painter(&image);
    style.drawControl(element, &option, &painter, nullptr);
    painter.end();
    return image;
}

QRect inkOf(const QImage& image, const QColor& colour)
{
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel(image.pixel(x, y));
            // Anti-aliased text blends into the unpainted grey: any clearly blue pixel counts.
            if (colour == kText ? pixel.blue() - pixel.red() > 40 : pixel == colour) {
                box |= QRect(x, y, 1, 1);
            }
        }
    }
    return box;
}

} // namespace

class tst_TreeViewHeaderStyle : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldFillSectionWithBaseAndDrawMidlightLine_data()
    {
        QTest::addColumn<QStyleOptionHeader::SectionPosition>("position");
        QTest::addColumn<bool>("separator");
        QTest::newRow("first") << QStyleOptionHeader::Beginning << false;
        QTest::newRow("middle") << QStyleOptionHeader::Middle << true;
        QTest::newRow("last") << QStyleOptionHeader::End << false;
        QTest::newRow("only") << QStyleOptionHeader::OnlyOneSection << false;
    }

    void shouldFillSectionWithBaseAndDrawMidlightLine()
    {
        QFETCH(QStyleOptionHeader::SectionPosition, position);
        QFETCH(bool, separator);
        // Given a section at some position
        CTreeViewHeaderStyle style;
        QStyleOptionHeader option = headerOption(kSection);
        option.position = position;

        // When the style draws it
        const QImage image = draw(style, QStyle::CE_HeaderSection, option, kSection.size());

        // Then it is filled with the base colour, no bevel, the line crosses it near the bottom
        const int y = lineY(kSection);
        QCOMPARE(QColor(image.pixel(60, 2)), kBase);
        QCOMPARE(QColor(image.pixel(60, kSection.bottom())), kBase);
        QCOMPARE(QColor(image.pixel(kSection.right(), 2)), kBase);
        for (int x = 0; x <= kSection.right(); ++x) {
            QCOMPARE(QColor(image.pixel(x, y)), kMidlight);
        }
        QCOMPARE(QColor(image.pixel(60, y - 1)), kBase);
        QCOMPARE(QColor(image.pixel(60, y + 1)), kBase);
        // And the separator at its left edge runs from the top down to the line, below it never
        QCOMPARE(QColor(image.pixel(0, 0)), separator ? kMidlight : kBase);
        QCOMPARE(QColor(image.pixel(0, y - 1)), separator ? kMidlight : kBase);
        QCOMPARE(QColor(image.pixel(0, y + 2)), kBase);
    }

    void shouldPutSeparatorOnRightEdgeRightToLeft()
    {
        CTreeViewHeaderStyle style;
        QStyleOptionHeader option = headerOption(kSection);
        option.position = QStyleOptionHeader::Middle;
        option.direction = Qt::RightToLeft;

        const QImage image = draw(style, QStyle::CE_HeaderSection, option, kSection.size());

        QCOMPARE(QColor(image.pixel(kSection.right(), 2)), kMidlight);
        QCOMPARE(QColor(image.pixel(0, 2)), kBase);
    }

    void shouldDrawLabelLeftAlignedAboveTheLine()
    {
        // Given a label in a section with the header's margin around it
        CTreeViewHeaderStyle style;
        const int margin = style.pixelMetric(QStyle::PM_HeaderMargin);
        QStyleOptionHeader option =
            headerOption(kSection.adjusted(margin, margin, -margin, -margin));
        option.text = QStringLiteral("Category");

        // When the style draws it
        const QImage image = draw(style, QStyle::CE_HeaderLabel, option, kSection.size());

        // Then the text, in the text colour, starts at the label's left and stays above the line
        const QRect ink = inkOf(image, kText);
        QVERIFY(!ink.isNull());
        QVERIFY2(ink.left() - option.rect.left() <= 2, qPrintable(QString::number(ink.left())));
        QVERIFY(ink.bottom() < lineY(kSection));
        QVERIFY(ink.top() >= kSection.top());
        // And nothing but the text is painted
        QCOMPARE(QColor(image.pixel(kSection.right(), kSection.bottom())), kUnpainted);
    }

    void shouldElideLongLabel()
    {
        // Given a label too long for its place
        CTreeViewHeaderStyle style;
        const QRect label(4, 4, 60, 22);
        QStyleOptionHeader option = headerOption(label);
        option.text = QStringLiteral("Category of every feature of the camera");
        // The font the style takes without a widget, scaled by the primary screen's dpi
        QImage device(QSize(400, 30), QImage::Format_ARGB32_Premultiplied);
        QFont font = QPainter(&device).font();
        font.setPointSizeF(font.pointSizeF() /
                           (QGuiApplication::primaryScreen()->logicalDotsPerInch() / 96.0));
        const QString elided =
            QFontMetrics(font, &device).elidedText(option.text, Qt::ElideRight, label.width());
        QVERIFY(elided.endsWith(QChar(0x2026)));

        // When the style draws it
        const QImage drawn = draw(style, QStyle::CE_HeaderLabel, option, device.size());

        // Then it looks as the elided text does, inside the label
        option.text = elided;
        QCOMPARE(drawn, draw(style, QStyle::CE_HeaderLabel, option, device.size()));
        const QRect ink = inkOf(drawn, kText);
        QVERIFY(!ink.isNull());
        QVERIFY(ink.right() <= label.right());
    }

    void shouldLeaveOtherElementsToTheBaseStyle()
    {
        // Given the proxy and a plain instance of the style it is based on
        CTreeViewHeaderStyle style(QStyleFactory::create(QStringLiteral("fusion")));
        std::unique_ptr<QStyle> plain(QStyleFactory::create(QStringLiteral("fusion")));
        QStyleOptionButton option;
        option.rect = QRect(0, 0, 80, 24);
        option.state = QStyle::State_Enabled | QStyle::State_Raised;
        option.text = QStringLiteral("Execute");
        option.palette = QGuiApplication::palette();

        // Then a push button looks the same through both
        QCOMPARE(draw(style, QStyle::CE_PushButton, option, QSize(80, 24)),
                 draw(*plain, QStyle::CE_PushButton, option, QSize(80, 24)));
    }
};

QTEST_MAIN(tst_TreeViewHeaderStyle)
#include "tst_treeviewheaderstyle.moc"
