#include "testsupport.h"

#include "internal/legacy/featuretreeitem.h"
#include "internal/legacy/featuretreemodel.h"

#include <QApplication>
#include <QBrush>
#include <QFontMetrics>
#include <QPalette>
#include <QtTest>

// Plain items: the structure rows of the tree, without a parameter.
class tst_FeatureTreeItem : public QObject {
    Q_OBJECT

private:
    FeatureTreeModel m_model; // only as the items' extension

    // [Root[A[A1 A2] B[B1]]], full names "@Map/<name>".
    std::unique_ptr<FeatureTreeItem> makeTree()
    {
        auto root = std::make_unique<FeatureTreeItem>("", &m_model, "", nullptr, 0);
        auto* a = new FeatureTreeItem("A", &m_model, "@Map/A", root.get(), 1);
        auto* b = new FeatureTreeItem("B", &m_model, "@Map/B", root.get(), 1);
        root->appendChild(a);
        root->appendChild(b);
        a->appendChild(new FeatureTreeItem("A1", &m_model, "@Map/A1", a, 2));
        a->appendChild(new FeatureTreeItem("A2", &m_model, "@Map/A2", a, 2));
        b->appendChild(new FeatureTreeItem("B1", &m_model, "@Map/B1", b, 2));
        return root;
    }

private Q_SLOTS:
    void shouldStartWithUndefinedVisibilityNoEditorAndClearFlags()
    {
        FeatureTreeItem item("Name", &m_model, "@Map/Name", nullptr, 3);
        QCOMPARE(item.getVisibility(), int(GenApi::_UndefinedVisibility));
        QCOMPARE(item.editorType(), int(FeatureTreeItem::NoEditorType));
        QVERIFY(!item.usePersistentEditor());
        QVERIFY(!item.isEditable());
        QVERIFY(!item.hasDescription());
        QCOMPARE(item.getToolTip(), QString());
        QCOMPARE(item.level(), 3);
        QCOMPARE(item.getExtension(), static_cast<IFeatureTreeModelExtension*>(&m_model));
        QCOMPARE(item.columnCount(), FeatureTreeItem::DEFAULT_COLUMN_COUNT);
        QCOMPARE(FeatureTreeItem::DEFAULT_COLUMN_COUNT, 2);
        QVERIFY(!item.setData(1, 5, Qt::EditRole));
    }

    void shouldAnswerTheRolesOfAPlainItem()
    {
        FeatureTreeItem item("Shown", &m_model, "@Map/Tech", nullptr, 2);
        item.setToolTip("Tip");
        item.setVisibility(GenApi::Expert);
        QCOMPARE(item.data(0, Qt::DisplayRole).toString(), QStringLiteral("Shown"));
        QVERIFY(!item.data(1, Qt::DisplayRole).isValid());
        QVERIFY(!item.data(1, Qt::EditRole).isValid());
        QCOMPARE(item.data(0, Qt::ToolTipRole).toString(), QStringLiteral("Tip"));
        const int lineHeight = QFontMetrics(QApplication::font()).height();
        QCOMPARE(item.data(0, Qt::SizeHintRole).toSize().height(), lineHeight + 10);
        QVERIFY(!item.data(1, Qt::SizeHintRole).isValid());
        QCOMPARE(item.data(0, FeatureTreeItem::FullNameRole).toString(),
                 QStringLiteral("@Map/Tech"));
        QVERIFY(!item.data(0, FeatureTreeItem::TechnicalNameStringRole).isValid());
        QVERIFY(!item.data(0, FeatureTreeItem::NodemapNameRole).isValid());
        QVERIFY(!item.data(0, FeatureTreeItem::DisplayNameStringRole).isValid());
        QCOMPARE(item.data(0, FeatureTreeItem::IsCategoryRole).toBool(), false);
        QCOMPARE(item.data(0, FeatureTreeItem::VisibilityRole).toInt(), int(GenApi::Expert));
        QCOMPARE(item.data(0, FeatureTreeItem::UniqueIdRole).value<unsigned int>(),
                 static_cast<unsigned int>(qHash(QStringLiteral("@Map/Tech"), 0)));
        QCOMPARE(item.data(0, FeatureTreeItem::FullRowItemRole).toBool(), false);
        QCOMPARE(item.data(0, FeatureTreeItem::SpecialNodeRole).toBool(), false);
        QCOMPARE(item.data(0, FeatureTreeItem::VisibleRole).toBool(), true);
        QCOMPARE(item.data(0, FeatureTreeItem::HighlightedRole).toBool(), false);
        QCOMPARE(item.data(0, FeatureTreeItem::SearchedRole).toBool(), false);
        QCOMPARE(item.data(0, FeatureTreeItem::HasParameterChildrenRole).toBool(), false);
        QCOMPARE(item.data(0, FeatureTreeItem::LevelRole).toInt(), 2);
        QCOMPARE(item.data(0, FeatureTreeItem::TechnicalNameRole).toString(),
                 QStringLiteral("Tech"));
        QCOMPARE(item.data(0, FeatureTreeItem::FullNamePathRole).toString(),
                 QStringLiteral("@Map/Tech"));
        for (int unanswered : {263, 264, 265, 267, 275, 286, 289}) {
            QVERIFY2(!item.data(0, unanswered).isValid(), qPrintable(QString::number(unanswered)));
        }
    }

    void shouldReportItsFlagsThroughTheRoles()
    {
        FeatureTreeItem item("X", &m_model, "@Map/X", nullptr, 1);
        item.setIsFullRowItem(true);
        item.setIsSpecialNode(true);
        item.setIsCategory(true);
        item.setHighlighted(true);
        item.setSearched(true);
        QVERIFY(item.data(0, FeatureTreeItem::FullRowItemRole).toBool());
        QVERIFY(item.data(0, FeatureTreeItem::SpecialNodeRole).toBool());
        QVERIFY(item.data(0, FeatureTreeItem::IsCategoryRole).toBool());
        QVERIFY(item.data(0, FeatureTreeItem::HighlightedRole).toBool());
        QVERIFY(item.data(0, FeatureTreeItem::SearchedRole).toBool());
    }

    void shouldShareOneDisabledTextBrushForEveryPlainItem()
    {
        FeatureTreeItem a("A", &m_model, "@Map/A", nullptr, 1);
        FeatureTreeItem b("B", &m_model, "@Map/B", nullptr, 1);
        const QBrush expected = QPalette().brush(QPalette::Disabled, QPalette::Text);
        QCOMPARE(a.data(0, Qt::ForegroundRole).value<QBrush>(), expected);
        QCOMPARE(b.data(1, Qt::ForegroundRole).value<QBrush>(), expected);
    }

    void shouldBeVisibleUpToItsOwnLevel()
    {
        FeatureTreeItem item("X", &m_model, "@Map/X", nullptr, 1);
        QVERIFY(!item.showMe(GenApi::Guru)); // undefined visibility
        item.setVisibility(GenApi::Expert);
        QVERIFY(!item.showMe(GenApi::Beginner));
        QVERIFY(item.showMe(GenApi::Expert));
        QVERIFY(item.showMe(GenApi::Guru));
        item.setVisibility(GenApi::Invisible);
        QVERIFY(!item.data(0, FeatureTreeItem::VisibleRole).toBool());
    }

    void shouldTakeTheTechnicalNameFromTheFullName_data()
    {
        QTest::addColumn<QString>("fullName");
        QTest::addColumn<QString>("technical");
        QTest::newRow("feature") << "@CameraDevice/Width"
                                 << "Width";
        QTest::newRow("node map row") << "@CameraDevice*Root"
                                      << "Root";
        QTest::newRow("no separator") << "Plain"
                                      << "Plain";
        QTest::newRow("empty") << ""
                               << "";
    }
    void shouldTakeTheTechnicalNameFromTheFullName()
    {
        QFETCH(QString, fullName);
        QFETCH(QString, technical);
        FeatureTreeItem item("X", &m_model, fullName, nullptr, 1);
        QCOMPARE(item.getTechnicalName(), technical);
    }

    void shouldKeepDescriptionAndToolTipAbsentUntilSet()
    {
        FeatureTreeItem item("X", &m_model, "@Map/X", nullptr, 1);
        item.setDescription(QString());
        QVERIFY(!item.hasDescription());
        item.setDescription("Explains X");
        QVERIFY(item.hasDescription());
        QCOMPARE(item.getDescription(), QStringLiteral("Explains X"));
    }

    void shouldOwnAndOrderItsChildren()
    {
        auto root = makeTree();
        QCOMPARE(root->childCount(), 2);
        FeatureTreeItem* a = root->child(0);
        QCOMPARE(a->row(), 0);
        QCOMPARE(root->child(1)->row(), 1);
        QCOMPARE(a->parent(), root.get());
        QCOMPARE(root->row(), 0);
        QVERIFY(!root->child(2));
        QVERIFY(!root->child(-1));

        QPointer<FeatureTreeItem> a2 = a->child(1);
        a->insertChild(new FeatureTreeItem("A0", &m_model, "@Map/A0", a, 2), 0);
        QCOMPARE(a->child(0)->getDisplayedName(), QStringLiteral("A0"));
        QCOMPARE(a2->row(), 2);
        a->removeChild(2);
        QVERIFY(a2.isNull()); // removed children are deleted
        QCOMPARE(a->childCount(), 2);

        QPointer<FeatureTreeItem> b1 = root->child(1)->child(0);
        root->clearChildren();
        QVERIFY(!root->hasChildren());
        QVERIFY(b1.isNull());
    }

    void shouldHaveParameterChildrenOnlyForVisibleNonCategoryChildren()
    {
        auto root = makeTree();
        FeatureTreeItem* a = root->child(0);
        QVERIFY(!a->hasParameterChildren()); // undefined visibility is not visible
        a->child(0)->setVisibility(GenApi::Beginner);
        a->child(0)->setIsCategory(true);
        QVERIFY(!a->hasParameterChildren());
        a->child(1)->setVisibility(GenApi::Guru);
        QVERIFY(a->hasParameterChildren());
        QVERIFY(a->data(0, FeatureTreeItem::HasParameterChildrenRole).toBool());
    }

    void shouldSearchTheWholeSubtreeInPreOrder()
    {
        auto root = makeTree();
        FeatureTreeItem* a = root->child(0);
        FeatureTreeItem* b1 = root->child(1)->child(0);
        QVERIFY(root->findShallow(b1));
        QVERIFY(root->findShallow(root.get()));
        QVERIFY(!a->findShallow(b1));
        QCOMPARE(root->findByFullNameShallow("@Map/B1"), b1);
        QVERIFY(!root->findByFullNameShallow("@map/b1")); // exact match only
        // Two items answer the role: the first in pre-order wins
        a->child(1)->setSearched(true);
        b1->setSearched(true);
        QCOMPARE(root->findByRoleShallow(FeatureTreeItem::SearchedRole, true), a->child(1));
        QCOMPARE(root->findByRoleShallow(FeatureTreeItem::LevelRole, 1), a);
        QVERIFY(!root->findByRoleShallow(FeatureTreeItem::LevelRole, 7));
    }

    void shouldGiveNoEditorForANullItemOrIndex()
    {
        QCOMPARE(FeatureTreeItem::editorType(static_cast<const FeatureTreeItem*>(nullptr)),
                 int(FeatureTreeItem::NoEditorType));
        QCOMPARE(FeatureTreeItem::editorType(QModelIndex()), int(FeatureTreeItem::NoEditorType));
    }

    void shouldMapFullNamesToNodeMapNames_data()
    {
        QTest::addColumn<QString>("fullName");
        QTest::addColumn<QString>("nodeMap");
        QTest::newRow("camera instance") << "@CameraInstance/X"
                                         << "CameraInstance";
        QTest::newRow("transport layer") << "@DeviceTransportLayer/X"
                                         << "TransportLayer";
        QTest::newRow("first stream grabber") << "@StreamGrabber0/X"
                                              << "StreamGrabber";
        QTest::newRow("second stream grabber") << "@StreamGrabber1/X"
                                               << "Invalid";
        QTest::newRow("excel runner") << "@ExcelRunner/X"
                                      << "ExcelRunner";
        QTest::newRow("format converter") << "@ImageFormatConverter/X"
                                          << "ImageFormatConverter";
        QTest::newRow("deep viewer") << "@DeepViewer/X"
                                     << "DeepViewer";
        QTest::newRow("chunk data") << "@ChunkData/X"
                                    << "ChunkData";
        QTest::newRow("camera device") << "@CameraDevice/Width"
                                       << "CameraDevice";
        QTest::newRow("event grabber") << "@EventGrabber/X"
                                       << "EventGrabber";
        QTest::newRow("gentl") << "@GenTl/X"
                               << "Interface";
        QTest::newRow("case matters") << "@cameradevice/X"
                                      << "Invalid";
        QTest::newRow("no feature") << "@CameraDevice"
                                    << "CameraDevice";
        QTest::newRow("empty") << ""
                               << "Invalid";
    }
    void shouldMapFullNamesToNodeMapNames()
    {
        QFETCH(QString, fullName);
        QFETCH(QString, nodeMap);
        QCOMPARE(getNodemapName(fullName), nodeMap);
    }
};

QTEST_MAIN(tst_FeatureTreeItem)
#include "tst_featuretreeitem.moc"
