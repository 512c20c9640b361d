#include "testsupport.h"

#include "internal/style/treeviewheaderstyle.h"
#include "internal/view/treeviewheaderview.h"

#include <QImage>
#include <QPointer>
#include <QScreen>
#include <QStandardItemModel>
#include <QTreeView>
#include <QtTest>

using Plugin::Nodescope::Internal::Style::CTreeViewHeaderStyle;
using Plugin::Nodescope::Internal::View::CTreeViewHeaderView;

namespace {

qreal dpiScale(const QWidget& widget)
{
    return widget.screen()->logicalDotsPerInch() / 96.0;
}

QStandardItemModel* twoColumns(QObject* parent)
{
    auto* model = new QStandardItemModel(1, 2, parent);
    model->setHorizontalHeaderLabels({QStringLiteral("Category"), QStringLiteral("Value")});
    return model;
}

} // namespace

class tst_TreeViewHeaderView : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldUseBoldNinePointFont()
    {
        CTreeViewHeaderView header;
        QCOMPARE(header.orientation(), Qt::Horizontal);
        QCOMPARE(header.font().pointSize(), 9);
        QCOMPARE(header.font().weight(), 75);
        QVERIFY(header.font().bold());
    }

    void shouldAlignLabelsLeftAndElideThem()
    {
        CTreeViewHeaderView header;
        QVERIFY(header.defaultAlignment() & Qt::AlignLeft);
        QCOMPARE(header.textElideMode(), Qt::ElideRight);
        QVERIFY(header.stretchLastSection());
    }

    void shouldInstallAndOwnItsFlatStyle()
    {
        QPointer<QStyle> style;
        {
            CTreeViewHeaderView header;
            QVERIFY(qobject_cast<CTreeViewHeaderStyle*>(header.style()));
            QCOMPARE(header.style(), static_cast<QStyle*>(header.headerStyle()));
            style = header.style();
        }
        QVERIFY(style.isNull());
    }

    void shouldTakeHeightFromBoldFontPlusScaledPadding()
    {
        CTreeViewHeaderView header;
        header.setModel(twoColumns(&header));

        const QSize hint = header.sizeHint();

        const QFontMetrics bold(header.font(), &header);
        QCOMPARE(hint.height(), bold.height() + static_cast<int>(13.0 * dpiScale(header)));
        QCOMPARE(hint.width(), header.QHeaderView::sizeHint().width());
    }

    void shouldDrawFlatSectionsInTreeView()
    {
        // Given a tree under the header, with distinct base and midlight colours
        QTreeView view;
        auto* header = new CTreeViewHeaderView;
        view.setHeader(header);
        view.setModel(twoColumns(&view));
        QPalette palette = view.palette();
        palette.setColor(QPalette::Base, QColor(0xf0, 0xf8, 0xff));
        palette.setColor(QPalette::Midlight, QColor(0x20, 0x60, 0xa0));
        view.setPalette(palette);
        header->setPalette(palette);
        view.resize(400, 200);
        header->resizeSection(0, 150);
        view.show();

        // When the header is drawn
        const QImage image = header->grab().toImage();

        // Then it is as tall as it asks to be, flat on the base colour, with the line below the
        // labels and no separator: both sections are outer ones
        QCOMPARE(header->height(), header->sizeHint().height());
        const int lineY = header->height() - 1 - qRound(7.0 / dpiScale(*header));
        QCOMPARE(QColor(image.pixel(100, 1)), QColor(0xf0, 0xf8, 0xff));
        QCOMPARE(QColor(image.pixel(100, lineY)), QColor(0x20, 0x60, 0xa0));
        QCOMPARE(QColor(image.pixel(100, lineY + 1)), QColor(0xf0, 0xf8, 0xff));
        for (int x = 0; x < image.width(); ++x) {
            QCOMPARE(QColor(image.pixel(x, 2)), QColor(0xf0, 0xf8, 0xff));
        }
        QCOMPARE(QColor(image.pixel(image.width() - 2, 2)), QColor(0xf0, 0xf8, 0xff));
    }
};

QTEST_MAIN(tst_TreeViewHeaderView)
#include "tst_treeviewheaderview.moc"
