#include "faultycollection.h"
#include "testsupport.h"

#include "internal/legacy/featuretreehighlighter.h"
#include "internal/legacy/featuretreeinodeitem.h"
#include "internal/legacy/featuretreeitem.h"
#include "internal/legacy/featuretreemodel.h"
#include "internal/legacy/featuretreeproxymodel.h"
#include "internal/model/featuretablemodel.h"

#include <deviceparametercollection.h>
#include <deviceworker.h>
#include <simulateddevice.h>

#include <QMimeData>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QtTest>

#include <memory>

using namespace ParameterCollection;
using Plugin::Nodescope::Internal::Model::CFeatureTableModel;

namespace {

const char* const kPath = "src/nodescope/internal/model/featuretablemodel";

// What the default message pattern prints for a "path line message" log line.
QString logLine(int line, const QString& message)
{
    return QStringLiteral("%1   %2   %3").arg(QLatin1String(kPath)).arg(line).arg(message);
}

QString fullName(const QString& feature)
{
    return QStringLiteral("@CameraDevice/") + feature;
}

// The rows' full names, in order.
QStringList rowNames(const QAbstractItemModel& model)
{
    QStringList names;
    for (int row = 0; row < model.rowCount(); ++row) {
        names << model.index(row, 0).data(FeatureTreeItem::FullNameRole).toString();
    }
    return names;
}

QStringList fullNames(const QStringList& features)
{
    QStringList names;
    for (const QString& feature : features) {
        names << fullName(feature);
    }
    return names;
}

std::unique_ptr<QMimeData> textMime(const QString& text)
{
    auto mime = std::make_unique<QMimeData>();
    mime->setText(text);
    return mime;
}

// (start, end, destination row) of each rowsMoved emission.
QList<QList<int>> moves(const QSignalSpy& spy)
{
    QList<QList<int>> result;
    for (const QList<QVariant>& args : spy) {
        result << QList<int>{args.at(1).toInt(), args.at(2).toInt(), args.at(4).toInt()};
    }
    return result;
}

QList<QPair<int, int>> orderChanges(const QSignalSpy& spy)
{
    QList<QPair<int, int>> result;
    for (const QList<QVariant>& args : spy) {
        result << qMakePair(args.at(0).toInt(), args.at(1).toInt());
    }
    return result;
}

} // namespace

class tst_FeatureTableModel : public QObject {
    Q_OBJECT

private:
    QSharedPointer<Backend::DeviceParameterCollection> m_collection;
    std::unique_ptr<FeatureTreeModel> m_tree;
    std::unique_ptr<CFeatureTableModel> m_model;
    std::unique_ptr<FeatureTreeProxyModel> m_proxy;

    // The tree's items of the named features of tree.xml, as the feature tree widget hands
    // them over.
    QList<QObject*> items(const QStringList& features, FeatureTreeModel* tree = nullptr) const
    {
        FeatureTreeModel* model = tree ? tree : m_tree.get();
        QList<QObject*> list;
        for (const QString& feature : features) {
            list << model->getFeatureTreeItem(
                model->findItemByFullName(fullName(feature), nullptr, 0));
        }
        return list;
    }
    // Fills the table through its proxy, as the widget does.
    void show(const QStringList& features)
    {
        m_proxy->addParameterCollection(items(features), false);
    }
    QModelIndex row(const QString& feature, int column = 0) const
    {
        return m_model->findItemByFullName(fullName(feature), nullptr, column);
    }
    Backend::SimulatedDevice* device()
    {
        Backend::SimulatedDevice* result = nullptr;
        m_collection->runOnDeviceThread(
            [&result](Backend::DeviceWorker& worker) { result = worker.simulatedDevice(0); });
        return result;
    }
    qint64 registerValue(const char* node)
    {
        quint64 address = 0;
        quint32 length = 0;
        if (!device()->registerOf(node, &address, &length)) {
            return -1;
        }
        return device()->peekInt(address, length);
    }
    void pokeRegister(const char* node, qint64 value)
    {
        quint64 address = 0;
        quint32 length = 0;
        QVERIFY(device()->registerOf(node, &address, &length));
        m_collection->runOnDeviceThread([&](Backend::DeviceWorker& worker) {
            worker.simulatedDevice(0)->pokeInt(address, value, length);
        });
    }

private Q_SLOTS:
    void init()
    {
        m_collection = openTestDescription(QStringLiteral("tree"));
        m_tree = std::make_unique<FeatureTreeModel>();
        m_tree->addParameterCollection(m_collection, QStringLiteral("Camera"),
                                       QStringLiteral("@CameraDevice"), false);
        m_model = std::make_unique<CFeatureTableModel>();
        m_proxy = std::make_unique<FeatureTreeProxyModel>();
        m_proxy->setSourceModel(m_model.get());
        testModelStrictly(m_model.get());
        testModelStrictly(m_proxy.get());
    }

    void cleanup()
    {
        m_proxy.reset();
        m_model.reset();
        m_tree.reset();
        m_collection.reset();
    }

    void shouldStartEmptyWithTwoColumns()
    {
        QCOMPARE(m_model->rowCount(), 0);
        QCOMPARE(m_model->columnCount(), FeatureTreeItem::DEFAULT_COLUMN_COUNT);
        QCOMPARE(m_proxy->rowCount(), 0);
        QVERIFY(!m_model->index(0, 0).isValid());
        // Qt's convention for a model that takes drops
        QCOMPARE(m_model->flags(QModelIndex()), Qt::ItemIsDropEnabled);
        QCOMPARE(m_proxy->flags(QModelIndex()), Qt::ItemIsDropEnabled);
        QVERIFY(!m_model->data(QModelIndex()).isValid());
    }

    void shouldNameTheColumnsFeatureAndValue()
    {
        QCOMPARE(m_model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Feature"));
        QCOMPARE(m_model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Value"));
        QCOMPARE(m_proxy->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Feature"));
        QVERIFY(!m_model->headerData(2, Qt::Horizontal).isValid());
        QVERIFY(!m_model->headerData(0, Qt::Vertical).isValid());
        QVERIFY(!m_model->headerData(0, Qt::Horizontal, Qt::ToolTipRole).isValid());
    }

    void shouldListTheGivenFeaturesInTheGivenOrder()
    {
        // Given three features of the tree, not in tree order
        show({"FloatPlain", "IntPlain", "EnumFeat"});
        // Then the table lists them in the order given, as the proxy does
        const QStringList expected = fullNames({"FloatPlain", "IntPlain", "EnumFeat"});
        QCOMPARE(rowNames(*m_model), expected);
        QCOMPARE(rowNames(*m_proxy), expected);
        QCOMPARE(m_model->items(), items({"FloatPlain", "IntPlain", "EnumFeat"}));
        QCOMPARE(m_model->rowCount(m_model->index(0, 0)), 0);
        QVERIFY(!m_model->parent(m_model->index(1, 1)).isValid());
        QCOMPARE(m_model->index(1, 1).internalPointer(),
                 static_cast<void*>(items({"IntPlain"}).first()));
    }

    void shouldAnswerFromTheItemsAsTheTreeDoes()
    {
        show({"IntPlain", "FloatPlain", "EnumFeat", "ReadOnlyInt"});
        const int roles[] = {Qt::DisplayRole,
                             Qt::EditRole,
                             Qt::ToolTipRole,
                             Qt::ForegroundRole,
                             FeatureTreeItem::FullNameRole,
                             FeatureTreeItem::TechnicalNameStringRole,
                             FeatureTreeItem::DisplayNameStringRole,
                             FeatureTreeItem::IsCategoryRole,
                             FeatureTreeItem::VisibilityRole,
                             FeatureTreeItem::VisibleRole};
        for (int r = 0; r < m_model->rowCount(); ++r) {
            for (int column = 0; column < 2; ++column) {
                const QModelIndex table = m_model->index(r, column);
                const QModelIndex tree = m_tree->findItemByFullName(
                    table.data(FeatureTreeItem::FullNameRole).toString(), nullptr, column);
                for (int role : roles) {
                    QCOMPARE(table.data(role), tree.data(role));
                }
                QCOMPARE(m_model->flags(table) &
                             ~(Qt::ItemIsDropEnabled | Qt::ItemNeverHasChildren),
                         m_tree->flags(tree));
            }
        }
        QCOMPARE(row("IntPlain", 1).data().toString(), QStringLiteral("42"));
        QCOMPARE(row("FloatPlain", 1).data().toString(), QStringLiteral("12.5 dB"));
        QCOMPARE(row("EnumFeat", 1).data(Qt::EditRole).toString(), QStringLiteral("On"));
        QVERIFY(row("IntPlain", 1).flags() & Qt::ItemIsEditable);
        QVERIFY(!(row("ReadOnlyInt", 1).flags() & Qt::ItemIsEditable));
        QVERIFY(row("IntPlain", 0).flags() & Qt::ItemIsDragEnabled);
        QVERIFY(row("IntPlain", 0).flags() & Qt::ItemIsDropEnabled);
        QVERIFY(!(row("IntPlain", 1).flags() & Qt::ItemIsDropEnabled));
    }

    void shouldAnswerIsCategoryRoleSoThatTheProxyHidesCategoryRows()
    {
        // Given a category handed over together with two features
        show({"IntPlain", "Controls", "EnumFeat"});
        // Then the table holds all three, says which is a category, and the proxy hides it
        QCOMPARE(m_model->rowCount(), 3);
        QVERIFY(row("Controls").data(FeatureTreeItem::IsCategoryRole).toBool());
        QVERIFY(!row("IntPlain").data(FeatureTreeItem::IsCategoryRole).toBool());
        QCOMPARE(rowNames(*m_proxy), fullNames({"IntPlain", "EnumFeat"}));
        QCOMPARE(m_proxy->getVisibleMatchCount(), 2);
    }

    void shouldReplaceAllRowsWithOneRemovalAndOneInsertion()
    {
        show({"IntPlain", "IntLinear", "IntLog"});
        QSignalSpy removed(m_model.get(), &QAbstractItemModel::rowsRemoved);
        QSignalSpy inserted(m_model.get(), &QAbstractItemModel::rowsInserted);
        // When another list is handed over
        show({"EnumFeat", "BoolFeat"});
        // Then rows 0 to 2 went in one notification and rows 0 to 1 came in one
        QCOMPARE(removed.count(), 1);
        QCOMPARE(removed.at(0).at(1).toInt(), 0);
        QCOMPARE(removed.at(0).at(2).toInt(), 2);
        QCOMPARE(inserted.count(), 1);
        QCOMPARE(inserted.at(0).at(1).toInt(), 0);
        QCOMPARE(inserted.at(0).at(2).toInt(), 1);
        QCOMPARE(rowNames(*m_model), fullNames({"EnumFeat", "BoolFeat"}));
        QCOMPARE(rowNames(*m_proxy), fullNames({"EnumFeat", "BoolFeat"}));
    }

    void shouldEmptyTheTableForAnEmptyList()
    {
        show({"IntPlain", "IntLinear"});
        QSignalSpy removed(m_model.get(), &QAbstractItemModel::rowsRemoved);
        QSignalSpy inserted(m_model.get(), &QAbstractItemModel::rowsInserted);
        m_proxy->addParameterCollection({}, false);
        QCOMPARE(m_model->rowCount(), 0);
        QCOMPARE(m_proxy->rowCount(), 0);
        QCOMPARE(removed.count(), 1);
        QCOMPARE(inserted.count(), 0);
        // and an empty table stays quiet when emptied again
        m_proxy->addParameterCollection({}, false);
        QCOMPARE(removed.count(), 1);
    }

    void shouldLeaveOutNullsOtherObjectsAndRepeatedItems()
    {
        QObject stranger;
        // the tree's invisible root: an item, but no feature
        FeatureTreeItem* structural = m_tree->rootItem();
        QList<QObject*> list = items({"IntPlain"});
        list << nullptr << &stranger << structural << items({"IntPlain", "EnumFeat"});
        m_proxy->addParameterCollection(list, false);
        QCOMPARE(rowNames(*m_model), fullNames({"IntPlain", "EnumFeat"}));
    }

    void shouldWriteThroughTheItemToTheCamera()
    {
        show({"IntLinear", "IntPlain"});
        // When a value is set through the proxy, as the delegate does
        const QModelIndex value = m_proxy->index(1, 1);
        QVERIFY(m_proxy->setData(value, 64));
        m_collection->waitForDevice();
        // Then the camera holds it and the row shows it
        QCOMPARE(registerValue("IntPlainReg"), 64);
        QTRY_COMPARE(value.data().toString(), QStringLiteral("64"));
        QCOMPARE(
            m_collection->getParameter(fullName("IntPlain"))->getParameterData()->value.toInt(),
            64);
    }

    void shouldNotWriteAValueEqualToTheCurrentOne()
    {
        show({"IntPlain"});
        m_collection->waitForDevice();
        const int writesBefore = device()->writeCount();
        QVERIFY(m_model->setData(row("IntPlain", 1), 42));
        m_collection->waitForDevice();
        QCOMPARE(device()->writeCount(), writesBefore);
    }

    void shouldLogAndKeepTheValueWhenAWriteFails()
    {
        // Given a value above IntPlain's maximum of 1000
        show({"IntPlain"});
        QSignalSpy refused(m_model.get(), &CFeatureTableModel::writeRefused);
        MessageCapture log;
        // When it is written
        QVERIFY(!m_model->setData(row("IntPlain", 1), 5000));
        // Then the fixed line is logged and the row keeps its value
        QCOMPARE(log.lines(), QStringList{logLine(291, "Failed to set a feature value.")});
        QCOMPARE(refused.count(), 1);
        QCOMPARE(refused.at(0).at(0).toString(), fullName("IntPlain"));
        // naming the feature once, as the user knows it
        QCOMPARE(refused.at(0).at(1).toString(),
                 QStringLiteral("Plain Integer: 5000 is above the maximum 1000"));
        m_collection->waitForDevice();
        QCoreApplication::processEvents();
        QCOMPARE(row("IntPlain", 1).data(Qt::EditRole).toInt(), 42);
        QCOMPARE(registerValue("IntPlainReg"), 42);
    }

    void shouldRefuseOtherColumnsRolesAndInvalidValues()
    {
        show({"IntPlain"});
        const int writesBefore = device()->writeCount();
        MessageCapture log;
        QVERIFY(!m_model->setData(row("IntPlain", 0), 64));
        QVERIFY(!m_model->setData(row("IntPlain", 1), 64, Qt::DisplayRole));
        // Qt's views clear a moved cell with invalid values: that must never reach the camera
        QVERIFY(!m_model->setData(row("IntPlain", 1), QVariant()));
        QVERIFY(!m_model->setItemData(row("IntPlain", 1),
                                      {{Qt::EditRole, QVariant()}, {Qt::DisplayRole, QVariant()}}));
        QVERIFY(!m_model->setData(QModelIndex(), 64));
        QStandardItemModel other(1, 2);
        QVERIFY(!m_model->setData(other.index(0, 1), 64));
        m_collection->waitForDevice();
        QCOMPARE(device()->writeCount(), writesBefore);
        QVERIFY(log.lines().isEmpty());
    }

    void shouldRefuseToWriteWhileTheDeviceIsNotAlive()
    {
        show({"IntPlain"});
        m_proxy->setDeviceAlive(false);
        QVERIFY(!m_model->getDeviceAlive());
        const int writesBefore = device()->writeCount();
        MessageCapture log;
        QVERIFY(!m_model->setData(row("IntPlain", 1), 64));
        m_collection->waitForDevice();
        QCOMPARE(device()->writeCount(), writesBefore);
        QVERIFY(log.lines().isEmpty());
    }

    void shouldTurnDeviceUpdatesIntoDataChangedOfBothColumns()
    {
        show({"IntPlain", "IntLinear", "EnumFeat"});
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        QSignalSpy proxyChanged(m_proxy.get(), &QAbstractItemModel::dataChanged);
        // When someone else changes IntLinear, such as another panel on the same camera
        m_collection->getParameter(fullName("IntLinear"))->setValue(700);
        // Then the table reports its whole row, name and value
        QTRY_VERIFY(!changed.isEmpty());
        for (const QList<QVariant>& args : changed) {
            QCOMPARE(args.at(0).value<QModelIndex>(), m_model->index(1, 0));
            QCOMPARE(args.at(1).value<QModelIndex>(), m_model->index(1, 1));
        }
        QVERIFY(!proxyChanged.isEmpty());
        QCOMPARE(proxyChanged.at(0).at(0).value<QModelIndex>(), m_proxy->index(1, 0));
        QCOMPARE(proxyChanged.at(0).at(1).value<QModelIndex>(), m_proxy->index(1, 1));
        QCOMPARE(m_model->index(1, 1).data().toString(), QStringLiteral("700"));
    }

    void shouldStayQuietAboutUpdatesWhileTheDeviceIsNotAlive()
    {
        show({"IntLinear"});
        m_model->setDeviceAlive(false);
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        QSignalSpy treeChanged(m_tree.get(), &QAbstractItemModel::dataChanged);
        m_collection->getParameter(fullName("IntLinear"))->setValue(700);
        // The tree still hears of it, so the update did arrive
        QTRY_VERIFY(!treeChanged.isEmpty());
        QCOMPARE(changed.count(), 0);
    }

    void shouldLogOnlyTheFirstReadFailure()
    {
        // Given a table over a camera whose IntPlain cannot describe itself
        auto faulty = QSharedPointer<FaultyCollection>::create(m_collection);
        FeatureTreeModel tree;
        tree.addParameterCollection(faulty, "Camera", "@CameraDevice", false);
        m_proxy->addParameterCollection(items({"IntPlain", "IntLinear"}, &tree), false);
        faulty->parameter(fullName("IntPlain"))->throwOnProperty = true;
        const QModelIndex name = row("IntPlain");
        MessageCapture log;
        // When it fails three times, then a read succeeds, then it fails again
        QVERIFY(!m_model->data(name, Qt::ToolTipRole).isValid());
        QVERIFY(!m_model->data(name, Qt::ToolTipRole).isValid());
        QVERIFY(!m_model->data(name, Qt::ToolTipRole).isValid());
        QCOMPARE(m_model->data(name).toString(), QStringLiteral("Plain Integer"));
        QVERIFY(!m_model->data(name, Qt::ToolTipRole).isValid());
        QVERIFY(!m_proxy->index(0, 0).data(Qt::ToolTipRole).isValid());
        // Then only the first failure of the table's life is logged
        QCOMPARE(log.lines(), QStringList{logLine(266, "Failed to get a feature value")});
        // and another table logs its own first failure
        CFeatureTableModel other;
        testModelStrictly(&other);
        other.addParameterCollection(items({"IntPlain"}, &tree), false);
        QVERIFY(!other.index(0, 0).data(Qt::ToolTipRole).isValid());
        QCOMPARE(log.lines().size(), 2);
        m_proxy->addParameterCollection({}, false);
    }

    void shouldDragTheRowsFullNameAsPlainText()
    {
        show({"IntPlain", "EnumFeat"});
        QCOMPARE(m_model->mimeTypes(), QStringList{"text/plain"});
        QCOMPARE(m_model->supportedDropActions(), Qt::MoveAction);
        QCOMPARE(m_model->supportedDragActions(), Qt::MoveAction);
        // The first index decides, whichever column it is
        std::unique_ptr<QMimeData> mime(
            m_model->mimeData({m_model->index(1, 1), m_model->index(0, 0)}));
        QCOMPARE(mime->formats(), QStringList{"text/plain"});
        QCOMPARE(mime->text(), fullName("EnumFeat"));
        // through the proxy too
        std::unique_ptr<QMimeData> proxied(m_proxy->mimeData({m_proxy->index(0, 0)}));
        QCOMPARE(proxied->text(), fullName("IntPlain"));
        // and nothing is encoded without a row
        std::unique_ptr<QMimeData> none(m_model->mimeData({QModelIndex()}));
        QVERIFY(none->formats().isEmpty());
        std::unique_ptr<QMimeData> empty(m_model->mimeData({}));
        QVERIFY(empty->formats().isEmpty());
    }

    void shouldMoveARowDroppedOntoARowBelowIt()
    {
        show({"IntPlain", "IntLinear", "IntLog", "EnumFeat"});
        QSignalSpy moved(m_model.get(), &QAbstractItemModel::rowsMoved);
        QSignalSpy order(m_model.get(), &CFeatureTableModel::orderOfItemsChanged);
        // When IntPlain's name is dropped onto IntLog
        const auto mime = textMime(fullName("IntPlain"));
        QVERIFY(m_model->canDropMimeData(mime.get(), Qt::MoveAction, -1, -1, row("IntLog")));
        QVERIFY(m_model->dropMimeData(mime.get(), Qt::MoveAction, -1, -1, row("IntLog")));
        // Then it takes IntLog's place; Qt's destination for a downward move is one further
        QCOMPARE(rowNames(*m_model), fullNames({"IntLinear", "IntLog", "IntPlain", "EnumFeat"}));
        QCOMPARE(moves(moved), (QList<QList<int>>{{0, 0, 3}}));
        QCOMPARE(orderChanges(order), (QList<QPair<int, int>>{{0, 2}}));
        QCOMPARE(rowNames(*m_proxy), rowNames(*m_model));
    }

    void shouldMoveARowDroppedOntoARowAboveIt()
    {
        show({"IntPlain", "IntLinear", "IntLog", "EnumFeat"});
        QSignalSpy moved(m_model.get(), &QAbstractItemModel::rowsMoved);
        QSignalSpy order(m_model.get(), &CFeatureTableModel::orderOfItemsChanged);
        const auto mime = textMime(fullName("EnumFeat"));
        QVERIFY(m_model->dropMimeData(mime.get(), Qt::MoveAction, -1, -1, row("IntLinear")));
        QCOMPARE(rowNames(*m_model), fullNames({"IntPlain", "EnumFeat", "IntLinear", "IntLog"}));
        QCOMPARE(moves(moved), (QList<QList<int>>{{3, 3, 1}}));
        QCOMPARE(orderChanges(order), (QList<QPair<int, int>>{{3, 1}}));
    }

    void shouldTakeDropsThroughTheProxy()
    {
        show({"IntPlain", "Controls", "IntLinear", "IntLog"});
        // The category row is hidden: proxy row 1 is IntLinear, model row 2
        QCOMPARE(m_proxy->index(1, 0).data(FeatureTreeItem::FullNameRole).toString(),
                 fullName("IntLinear"));
        QSignalSpy order(m_model.get(), &CFeatureTableModel::orderOfItemsChanged);
        const auto mime = textMime(fullName("IntLog"));
        QVERIFY(m_proxy->canDropMimeData(mime.get(), Qt::MoveAction, -1, -1, m_proxy->index(1, 0)));
        QVERIFY(m_proxy->dropMimeData(mime.get(), Qt::MoveAction, -1, -1, m_proxy->index(1, 0)));
        QCOMPARE(orderChanges(order), (QList<QPair<int, int>>{{3, 2}}));
        QCOMPARE(rowNames(*m_proxy), fullNames({"IntPlain", "IntLog", "IntLinear"}));
    }

    void shouldRefuseADropOntoTheRowTheItemAlreadyOccupies()
    {
        show({"IntPlain", "IntLinear", "IntLog"});
        QSignalSpy moved(m_model.get(), &QAbstractItemModel::rowsMoved);
        QSignalSpy order(m_model.get(), &CFeatureTableModel::orderOfItemsChanged);
        const auto mime = textMime(fullName("IntLinear"));
        QVERIFY(!m_model->dropMimeData(mime.get(), Qt::MoveAction, -1, -1, row("IntLinear")));
        QCOMPARE(moved.count(), 0);
        QCOMPARE(order.count(), 0);
        QCOMPARE(rowNames(*m_model), fullNames({"IntPlain", "IntLinear", "IntLog"}));
    }

    void shouldRefuseDropsItCannotPlace_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("action");
        QTest::addColumn<int>("targetRow");
        QTest::addColumn<int>("targetColumn");
        QTest::addColumn<bool>("canDrop");

        const int move = Qt::MoveAction;
        QTest::newRow("unknown name") << fullName("Nothing") << move << 1 << 0 << true;
        QTest::newRow("name in other case") << fullName("intplain") << move << 1 << 0 << true;
        QTest::newRow("plain feature name") << QStringLiteral("IntPlain") << move << 1 << 0 << true;
        QTest::newRow("feature not in the table") << fullName("EnumFeat") << move << 1 << 0 << true;
        QTest::newRow("copy") << fullName("IntPlain") << int(Qt::CopyAction) << 1 << 0 << false;
        QTest::newRow("link") << fullName("IntPlain") << int(Qt::LinkAction) << 1 << 0 << false;
        QTest::newRow("onto the value column") << fullName("IntPlain") << move << 1 << 1 << false;
        QTest::newRow("onto no row") << fullName("IntPlain") << move << -1 << 0 << false;
        QTest::newRow("no text") << QString() << move << 1 << 0 << false;
    }

    void shouldRefuseDropsItCannotPlace()
    {
        QFETCH(QString, text);
        QFETCH(int, action);
        QFETCH(int, targetRow);
        QFETCH(int, targetColumn);
        QFETCH(bool, canDrop);
        show({"IntPlain", "IntLinear", "IntLog"});
        QSignalSpy moved(m_model.get(), &QAbstractItemModel::rowsMoved);
        QSignalSpy order(m_model.get(), &CFeatureTableModel::orderOfItemsChanged);
        MessageCapture log;
        QMimeData mime;
        if (!text.isNull()) {
            mime.setText(text);
        }
        const QModelIndex target = m_model->index(targetRow, targetColumn);
        const auto dropAction = static_cast<Qt::DropAction>(action);
        QCOMPARE(m_model->canDropMimeData(&mime, dropAction, -1, -1, target), canDrop);
        QVERIFY(!m_model->dropMimeData(&mime, dropAction, -1, -1, target));
        QCOMPARE(moved.count(), 0);
        QCOMPARE(order.count(), 0);
        QVERIFY(log.lines().isEmpty());
        QCOMPARE(rowNames(*m_model), fullNames({"IntPlain", "IntLinear", "IntLog"}));
    }

    void shouldRefuseDropsOntoAnotherModelsRow()
    {
        show({"IntPlain", "IntLinear"});
        QStandardItemModel other(2, 2);
        const auto mime = textMime(fullName("IntPlain"));
        QVERIFY(!m_model->canDropMimeData(mime.get(), Qt::MoveAction, -1, -1, other.index(1, 0)));
        QVERIFY(!m_model->dropMimeData(mime.get(), Qt::MoveAction, -1, -1, other.index(1, 0)));
        // a proxy index is another model's index too: the proxy maps it first
        QVERIFY(!m_model->dropMimeData(mime.get(), Qt::MoveAction, -1, -1, m_proxy->index(1, 0)));
        QVERIFY(!m_model->dropMimeData(nullptr, Qt::MoveAction, -1, -1, m_model->index(1, 0)));
        QCOMPARE(rowNames(*m_model), fullNames({"IntPlain", "IntLinear"}));
    }

    void shouldMoveAFavoriteUpOntoTheRowAbove()
    {
        show({"IntPlain", "IntLinear", "IntLog"});
        QSignalSpy moved(m_model.get(), &QAbstractItemModel::rowsMoved);
        QSignalSpy order(m_model.get(), &CFeatureTableModel::orderOfItemsChanged);
        QVERIFY(m_model->moveFavorite(m_model->index(2, 0), m_model->index(1, 0), true));
        QCOMPARE(rowNames(*m_model), fullNames({"IntPlain", "IntLog", "IntLinear"}));
        QCOMPARE(moves(moved), (QList<QList<int>>{{2, 2, 1}}));
        QCOMPARE(orderChanges(order), (QList<QPair<int, int>>{{2, 1}}));
        QCOMPARE(rowNames(*m_proxy), rowNames(*m_model));
    }

    void shouldMoveAFavoriteDownOntoTheRowBelow()
    {
        show({"IntPlain", "IntLinear", "IntLog"});
        QSignalSpy moved(m_model.get(), &QAbstractItemModel::rowsMoved);
        QSignalSpy order(m_model.get(), &CFeatureTableModel::orderOfItemsChanged);
        QVERIFY(m_model->moveFavorite(m_model->index(0, 1), m_model->index(1, 1), false));
        QCOMPARE(rowNames(*m_model), fullNames({"IntLinear", "IntPlain", "IntLog"}));
        // downwards Qt wants the row after the neighbour as destination
        QCOMPARE(moves(moved), (QList<QList<int>>{{0, 0, 2}}));
        QCOMPARE(orderChanges(order), (QList<QPair<int, int>>{{0, 1}}));
    }

    void shouldNotMoveTheLastRowDownOrTheFirstRowUp()
    {
        show({"IntPlain", "IntLinear", "IntLog"});
        QSignalSpy moved(m_model.get(), &QAbstractItemModel::rowsMoved);
        QSignalSpy order(m_model.get(), &CFeatureTableModel::orderOfItemsChanged);
        // The neighbours past either end are no valid indexes
        QVERIFY(!m_model->moveFavorite(m_model->index(2, 0), m_model->index(3, 0), false));
        QVERIFY(!m_model->moveFavorite(m_model->index(0, 0), m_model->index(-1, 0), true));
        QVERIFY(!m_model->moveFavorite(QModelIndex(), m_model->index(1, 0), true));
        // nor is a neighbour on the wrong side, the row itself, or another model's row
        QVERIFY(!m_model->moveFavorite(m_model->index(1, 0), m_model->index(2, 0), true));
        QVERIFY(!m_model->moveFavorite(m_model->index(1, 0), m_model->index(0, 0), false));
        QVERIFY(!m_model->moveFavorite(m_model->index(1, 0), m_model->index(1, 1), true));
        QVERIFY(!m_model->moveFavorite(m_proxy->index(1, 0), m_proxy->index(0, 0), true));
        QCOMPARE(moved.count(), 0);
        QCOMPARE(order.count(), 0);
        QCOMPARE(rowNames(*m_model), fullNames({"IntPlain", "IntLinear", "IntLog"}));
    }

    void shouldDropTheRowOfAnItemTheTreeDeletes()
    {
        // Given a table of three features
        show({"IntPlain", "IntLinear", "IntLog"});
        QSignalSpy removed(m_model.get(), &QAbstractItemModel::rowsRemoved);
        // When the tree deletes IntLinear's item
        FeatureTreeItem* controls = m_tree->getFeatureTreeItem(
            m_tree->findItemByFullName(fullName("Controls"), nullptr, 0));
        FeatureTreeItem* intLinear = m_tree->getFeatureTreeItem(
            m_tree->findItemByFullName(fullName("IntLinear"), nullptr, 0));
        controls->removeChild(intLinear->row());
        // Then its row is gone, once, and the others still work
        QCOMPARE(removed.count(), 1);
        QCOMPARE(removed.at(0).at(1).toInt(), 1);
        QCOMPARE(removed.at(0).at(2).toInt(), 1);
        QCOMPARE(rowNames(*m_model), fullNames({"IntPlain", "IntLog"}));
        QCOMPARE(rowNames(*m_proxy), fullNames({"IntPlain", "IntLog"}));
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        m_collection->getParameter(fullName("IntLinear"))->setValue(700);
        m_collection->getParameter(fullName("IntLog"))->setValue(1000);
        QTRY_COMPARE(row("IntLog", 1).data().toString(), QStringLiteral("1000"));
        for (const QList<QVariant>& args : changed) {
            QCOMPARE(args.at(0).value<QModelIndex>().row(), 1);
        }
        const auto mime = textMime(fullName("IntLog"));
        QVERIFY(m_model->dropMimeData(mime.get(), Qt::MoveAction, -1, -1, row("IntPlain")));
        QCOMPARE(rowNames(*m_model), fullNames({"IntLog", "IntPlain"}));
    }

    void shouldEmptyWhenTheTreeIsCleared()
    {
        // Given features and, as a row too, the category that holds two of them
        show({"IntPlain", "Controls", "EnumFeat", "IntLinear"});
        QSignalSpy removed(m_model.get(), &QAbstractItemModel::rowsRemoved);
        // Views read the other rows while one goes; the category is half destroyed by then
        QStringList seen;
        connect(m_model.get(), &QAbstractItemModel::rowsAboutToBeRemoved, this, [&] {
            for (int r = 0; r < m_model->rowCount(); ++r) {
                seen << m_model->index(r, 0).data(FeatureTreeItem::FullNameRole).toString();
            }
        });
        // When the tree drops everything
        m_tree->clear();
        // Then every row went, one at a time, and no row answered for a dying item
        QCOMPARE(m_model->rowCount(), 0);
        QCOMPARE(m_proxy->rowCount(), 0);
        QCOMPARE(removed.count(), 4);
        QVERIFY(m_model->items().isEmpty());
        QVERIFY(!seen.contains(fullName("Controls")));
        QVERIFY(seen.contains(QString()));
    }

    void shouldClearEveryRow()
    {
        show({"IntPlain", "EnumFeat"});
        QSignalSpy removed(m_model.get(), &QAbstractItemModel::rowsRemoved);
        m_proxy->clear();
        QCOMPARE(m_model->rowCount(), 0);
        QCOMPARE(removed.count(), 1);
        QCOMPARE(removed.at(0).at(2).toInt(), 1);
        // A cleared row hears nothing of its feature any more
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        QSignalSpy treeChanged(m_tree.get(), &QAbstractItemModel::dataChanged);
        m_collection->getParameter(fullName("IntPlain"))->setValue(7);
        QTRY_VERIFY(!treeChanged.isEmpty());
        QCOMPARE(changed.count(), 0);
    }

    void shouldFindRowsByItemFullNameAndRole()
    {
        show({"IntPlain", "IntLinear", "EnumFeat"});
        auto* enumItem = static_cast<FeatureTreeItem*>(items({"EnumFeat"}).first());
        auto* outside = static_cast<FeatureTreeItem*>(items({"BoolFeat"}).first());
        QCOMPARE(m_model->findItem(enumItem, nullptr, 1), m_model->index(2, 1));
        QVERIFY(!m_model->findItem(outside, nullptr, 0).isValid());
        QCOMPARE(m_model->indexForItem(enumItem, 0), m_model->index(2, 0));
        QVERIFY(!m_model->indexForItem(nullptr, 0).isValid());
        QCOMPARE(m_model->findItemByFullName(fullName("IntLinear"), nullptr, 1),
                 m_model->index(1, 1));
        QVERIFY(!m_model->findItemByFullName(fullName("BoolFeat"), nullptr, 0).isValid());
        QCOMPARE(m_model->findItemByRole(FeatureTreeItem::TechnicalNameStringRole,
                                         QStringLiteral("EnumFeat"), nullptr, 0),
                 m_model->index(2, 0));
        QCOMPARE(m_model->getFeatureTreeItem(m_model->index(2, 1)), enumItem);
        QCOMPARE(m_proxy->getFeatureTreeItem(m_proxy->index(2, 1)), enumItem);
        QVERIFY(!m_model->getFeatureTreeItem(QModelIndex()));
        // and through the proxy, as proxy indexes
        QCOMPARE(m_proxy->findItemByFullName(fullName("IntLinear"), nullptr, 0),
                 m_proxy->index(1, 0));
    }

    void shouldMarkSearchMatchesAndHighlightsOnItsRows()
    {
        show({"IntPlain", "IntLinear", "EnumFeat"});
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        m_proxy->setSearchRegExp(QStringLiteral("intl"));
        QVERIFY(!row("IntPlain").data(FeatureTreeItem::SearchedRole).toBool());
        QVERIFY(row("IntLinear").data(FeatureTreeItem::SearchedRole).toBool());
        QCOMPARE(changed.count(), 1);
        // Searching hides nothing
        QCOMPARE(m_proxy->rowCount(), 3);
        m_proxy->setSearchRegExp(QString());
        QVERIFY(!row("IntLinear").data(FeatureTreeItem::SearchedRole).toBool());

        m_proxy->setParameterHighlightList({ParameterName(fullName("EnumFeat"))});
        QVERIFY(row("EnumFeat").data(FeatureTreeItem::HighlightedRole).toBool());
        QVERIFY(!row("IntPlain").data(FeatureTreeItem::HighlightedRole).toBool());
        auto* intPlain = static_cast<FeatureTreeINodeItem*>(items({"IntPlain"}).first());
        m_model->setParameterHighlightListRecursive(intPlain,
                                                    {ParameterName(fullName("IntPlain"))});
        QVERIFY(row("IntPlain").data(FeatureTreeItem::HighlightedRole).toBool());
        m_model->setSearchRegExpRecursive(intPlain, QStringLiteral("plain"));
        QVERIFY(row("IntPlain").data(FeatureTreeItem::SearchedRole).toBool());
    }

    void shouldHideRowsAboveTheProxysLevel()
    {
        // IntPlain is Beginner, IntHex Expert, FloatLinear Guru
        show({"IntPlain", "IntHex", "FloatLinear"});
        m_proxy->setVisibility(GenApi::Beginner);
        QCOMPARE(m_model->getVisibility(), GenApi::Beginner);
        QCOMPARE(rowNames(*m_proxy), fullNames({"IntPlain"}));
        QCOMPARE(m_proxy->getVisibleMatchCount(), 1);
        QCOMPARE(m_proxy->getInvisibleMatchCount(), 2);
        m_proxy->setVisibility(GenApi::Guru);
        QCOMPARE(rowNames(*m_proxy), fullNames({"IntPlain", "IntHex", "FloatLinear"}));
        // A feature tab's use case narrows the list further; the proxy does the filtering
        m_proxy->setParameterFilterList({ParameterName(fullName("IntHex"))});
        QCOMPARE(rowNames(*m_proxy), fullNames({"IntHex"}));
        // while the model only keeps a list it is given
        QList<ParameterName> stored;
        m_model->getParameterFilterList(stored);
        QVERIFY(stored.isEmpty());
        m_model->setParameterFilterList({ParameterName(fullName("IntPlain"))});
        m_model->getParameterFilterList(stored);
        QCOMPARE(stored, QList<ParameterName>{ParameterName(fullName("IntPlain"))});
        QCOMPARE(m_model->rowCount(), 3);
    }

    void shouldShowUnavailableRowsOnlyWhenAskedTo()
    {
        show({"IntPlain", "NotAvail"});
        QCOMPARE(rowNames(*m_proxy), fullNames({"IntPlain"}));
        m_proxy->setShowUnavailableParameters(true);
        QVERIFY(m_model->getShowUnavailableParameters());
        QCOMPARE(rowNames(*m_proxy), fullNames({"IntPlain", "NotAvail"}));
    }

    void shouldRereadTheNamedRowsPastTheCache()
    {
        show({"IntPlain", "IntLinear"});
        // Given registers changed inside the camera without the host knowing
        pokeRegister("IntPlainReg", 99);
        pokeRegister("IntLinearReg", 300);
        QCOMPARE(row("IntPlain", 1).data().toString(), QStringLiteral("42"));
        // When only IntPlain is refreshed, it shows the camera's value
        m_proxy->refresh({ParameterName(fullName("IntPlain"))});
        QTRY_COMPARE(row("IntPlain", 1).data().toString(), QStringLiteral("99"));
        m_collection->waitForDevice();
        QCoreApplication::processEvents();
        QCOMPARE(row("IntLinear", 1).data().toString(), QStringLiteral("500"));
        // and an empty list re-reads every row
        m_proxy->refresh({});
        QTRY_COMPARE(row("IntLinear", 1).data().toString(), QStringLiteral("300"));
    }

    void shouldRereadEveryRowOnAPollOrASpecialRefresh()
    {
        show({"IntPlain"});
        pokeRegister("IntPlainReg", 77);
        m_model->onTimerPoll();
        QTRY_COMPARE(row("IntPlain", 1).data().toString(), QStringLiteral("77"));
        pokeRegister("IntPlainReg", 78);
        m_proxy->refreshSpecialItems();
        QTRY_COMPARE(row("IntPlain", 1).data().toString(), QStringLiteral("78"));
        // but not from a device that is gone
        pokeRegister("IntPlainReg", 79);
        m_model->setDeviceAlive(false);
        m_model->onTimerPoll();
        m_collection->waitForDevice();
        QCoreApplication::processEvents();
        QCOMPARE(row("IntPlain", 1).data().toString(), QStringLiteral("78"));
    }

    void shouldKeepOrIgnoreWhatMeansNothingForAFlatList()
    {
        show({"IntPlain"});
        m_proxy->enablePolling(true);
        QVERIFY(!m_model->getPolling());
        m_proxy->setGenICamCallbacksEnable(false);
        QVERIFY(m_model->getGenICamCallbackEnable());
        QVERIFY(!m_model->isUtf8Encoded());
        m_proxy->setMonitorMode(true);
        FeatureTreeHighlighter highlighter;
        m_proxy->setHighlighter(&highlighter);
        QCOMPARE(m_model->highlighter(), &highlighter);
        auto* item = static_cast<FeatureTreeINodeItem*>(items({"IntPlain"}).first());
        m_model->addChildren(item, item->node());
        QCOMPARE(m_model->rowCount(), 1);
        QCOMPARE(m_model->rowCount(m_model->index(0, 0)), 0);
        QCOMPARE(m_model->getVisibility(), GenApi::Guru);
        m_model->setVisibility(GenApi::Expert);
        QCOMPARE(m_model->getVisibility(), GenApi::Expert);
    }

    void shouldNameTheCollectionOfItsRows()
    {
        auto camera = openSimulatedCamera();
        show({"IntPlain"});
        QCOMPARE(m_proxy->getParameterCollectionName(m_collection), m_collection->getName());
        QVERIFY(!m_collection->getName().isEmpty());
        QCOMPARE(m_proxy->getParameterCollectionName(camera->collection), QString());
        QCOMPARE(m_model->getParameterCollectionName({}), QString());
    }

    void shouldGiveTheProxyTheTableModelOnlyWhenItIsTheSource()
    {
        QCOMPARE(m_proxy->getFeatureTableModel(), m_model.get());
        QVERIFY(!m_proxy->getFeatureTreeModel());
        FeatureTreeProxyModel treeProxy;
        treeProxy.setSourceModel(m_tree.get());
        QVERIFY(!treeProxy.getFeatureTableModel());
        QCOMPARE(treeProxy.getFeatureTreeModel(), m_tree.get());
        // A tree source ignores a list of rows
        const int rows = m_tree->rowCount();
        treeProxy.addParameterCollection(items({"IntPlain"}), false);
        QCOMPARE(m_tree->rowCount(), rows);
        FeatureTreeProxyModel empty;
        QVERIFY(!empty.getFeatureTableModel());
        empty.addParameterCollection(items({"IntPlain"}), false);
        QCOMPARE(empty.getParameterCollectionName(m_collection), QString());
    }

    void shouldServeTheBuiltInCamerasFeatures()
    {
        // Given the features of a feature tab on the built-in camera
        auto camera = openSimulatedCamera();
        auto* device = dynamic_cast<Backend::DeviceParameterCollection*>(camera->collection.data());
        QVERIFY(device);
        FeatureTreeModel tree;
        tree.addParameterCollection(camera->collection, "Camera", "@CameraDevice", false);
        QList<QObject*> list;
        for (const QString& feature :
             QStringList{"Width", "ExposureTime", "PixelFormat", "DeviceUserID"}) {
            list << tree.getFeatureTreeItem(tree.findItemByFullName(fullName(feature), nullptr, 0));
        }
        m_proxy->addParameterCollection(list, false);
        QCOMPARE(rowNames(*m_proxy),
                 fullNames({"Width", "ExposureTime", "PixelFormat", "DeviceUserID"}));
        QVERIFY(!row("ExposureTime", 1).data().toString().isEmpty());
        // When the width is changed through the table
        const qint64 width = row("Width", 1).data(Qt::EditRole).toLongLong();
        const qint64 wanted = width == 640 ? 800 : 640;
        QSignalSpy changed(m_model.get(), &QAbstractItemModel::dataChanged);
        QVERIFY(m_model->setData(row("Width", 1), wanted));
        device->waitForDevice();
        // Then the camera has it and the row follows
        QCOMPARE(camera->collection->getParameter(fullName("Width"))
                     ->getParameterData()
                     ->value.toLongLong(),
                 wanted);
        QTRY_COMPARE(row("Width", 1).data(Qt::EditRole).toLongLong(), wanted);
        QVERIFY(!changed.isEmpty());
        m_proxy->addParameterCollection({}, false);
    }
};

QTEST_MAIN(tst_FeatureTableModel)
#include "tst_featuretablemodel.moc"
