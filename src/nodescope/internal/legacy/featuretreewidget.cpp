#include "featuretreewidget.h"

#include "screenscale.h"

#include "ui_featuretreewidget.h"

#include "editnotice.h"
#include "featuredumper.h"
#include "featuretreedelegate.h"
#include "featuretreehighlighter.h"
#include "featuretreeinodeitem.h"
#include "featuretreeitem.h"
#include "featuretreemodel.h"
#include "featuretreeproxymodel.h"
#include "featuretreeview.h"
#include "nodemapfilter.h"
#include "searchedit.h"

#include "internal/model/featuretablemodel.h"
#include "internal/view/featuretableview.h"
#include "internal/view/treeviewheaderview.h"
#include "internal/view/usecaseedit.h"
#include "nodescoperesources.h"

#include <parametercollection/parameterdata.h>

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDebug>
#include <QFontMetrics>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMenu>
#include <QScreen>
#include <QSet>
#include <QShortcut>
#include <QSplitter>

using namespace ParameterCollection;
using Plugin::Nodescope::Internal::Model::CFeatureTableModel;
using Plugin::Nodescope::Internal::View::CFeatureTableView;
using Plugin::Nodescope::Internal::View::CTreeViewHeaderView;

bool FeatureTreeWidget::s_escapePressed = false;

namespace {

const char* const kMoveUpIcon = ":/vantoviewercomponents/Resources/Move_Up.png";
const char* const kMoveDownIcon = ":/vantoviewercomponents/Resources/Move_Down.png";
// Tree and table share the width; the names in the tree want the larger part.
const int kTreeStretch = 3;
const int kTableStretch = 2;
// Until someone chooses a width, names take this share of their view.
const double kNameColumnShare = 0.45;
const int kMinimumNameColumn = 80;

QString withAt(const QString& nodemapName)
{
    return nodemapName.startsWith(QLatin1Char('@')) ? nodemapName : QLatin1Char('@') + nodemapName;
}

QList<ParameterName> parameterNames(const QStringList& fullNames)
{
    QList<ParameterName> names;
    names.reserve(fullNames.size());
    for (const QString& fullName : fullNames) {
        names.append(ParameterName(fullName));
    }
    return names;
}

} // namespace

FeatureTreeWidget::FeatureTreeWidget(const QString& cameraType,
                                     QSharedPointer<Plugin::CameraPool::IBaseInfo> info,
                                     QWidget* parent, GenApi::EVisibility visibility, bool isGigE)
    : QWidget(parent), ui(std::make_unique<Ui_FeatureTreeWidgetClass>()), m_cameraType(cameraType),
      m_info(std::move(info)), m_isGigE(isGigE)
{
    Plugin::Nodescope::initNodescopeResources();
    ui->setupUi(this);

    // Replaced before anything is shown: a header set on a visible tree stays hidden.
    ui->treeView->setHeader(new CTreeViewHeaderView(ui->treeView));
    ui->nodescopeTableView->setHorizontalHeader(new CTreeViewHeaderView(ui->nodescopeTableView));
    ui->nodescopeTableView->horizontalHeader()->setStretchLastSection(true);

    ui->useCaseEdit->hide();
    // The use case edit stands in for the box; both show text of the same size.
    QFont boxFont = ui->useCaseComboBox->font();
    boxFont.setPointSize(8);
    ui->useCaseComboBox->setFont(boxFont);
    ui->splitter->setStretchFactor(0, kTreeStretch);
    ui->splitter->setStretchFactor(1, 0);
    ui->splitter->setStretchFactor(2, kTableStretch);
    // The search field clears on a second Escape in a row, and any other key breaks the row,
    // also one that the search field, a view or an editor takes for itself and never passes on.
    ui->resetButton->installEventFilter(this);
    // The name columns follow the width of their views.
    ui->treeView->viewport()->installEventFilter(this);
    ui->nodescopeTableView->viewport()->installEventFilter(this);

    createActions();
    createShortcuts();
    connectSignals();

    setIsFilteredTreeWidget(false);
    setUseCaseMap({});
    setVisibility(visibility);
}

FeatureTreeWidget::~FeatureTreeWidget()
{
    qApp->removeEventFilter(this);
    // The children are deleted after this part of the object is gone: none of them may call
    // back into it while they go.
    const QList<QObject*> children = findChildren<QObject*>();
    for (QObject* child : children) {
        disconnect(child, nullptr, this, nullptr);
        child->removeEventFilter(this);
    }
    for (const SParameterCollectionItem& item : qAsConst(m_collections)) {
        if (item.collection) {
            disconnect(item.collection.data(), nullptr, this, nullptr);
        }
    }
    // The table holds items of the tree: it lets go of them before the tree deletes them.
    if (FeatureTreeProxyModel* table = tableProxy()) {
        table->clear();
    }
}

void FeatureTreeWidget::createActions()
{
    m_actionTogglePolling = new QAction(tr("Polling"), this);
    m_actionTogglePolling->setObjectName(QStringLiteral("actionTogglePolling"));
    m_actionTogglePolling->setCheckable(true);

    m_actionMoveFavouriteUp =
        new QAction(QIcon(QString::fromLatin1(kMoveUpIcon)), tr("Move Up"), this);
    m_actionMoveFavouriteUp->setObjectName(QStringLiteral("actionMoveFavouriteUp"));
    m_actionMoveFavouriteUp->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Up));

    m_actionMoveFavouriteDown =
        new QAction(QIcon(QString::fromLatin1(kMoveDownIcon)), tr("Move Down"), this);
    m_actionMoveFavouriteDown->setObjectName(QStringLiteral("actionMoveFavouriteDown"));
    m_actionMoveFavouriteDown->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Down));

    for (QAction* action : {m_actionMoveFavouriteUp, m_actionMoveFavouriteDown}) {
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        action->setEnabled(false);
        // The shortcuts work only for actions that belong to a widget.
        addAction(action);
    }
    connect(m_actionMoveFavouriteUp, SIGNAL(triggered()), this, SLOT(onFavoriteMoveUp_triggered()));
    connect(m_actionMoveFavouriteDown, SIGNAL(triggered()), this,
            SLOT(onFavoriteMoveDown_triggered()));
}

void FeatureTreeWidget::createShortcuts()
{
    const auto shortcut = [this](const QKeySequence& keys, const QString& name) {
        auto* result = new QShortcut(keys, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
        result->setObjectName(name);
        return result;
    };
    connect(shortcut(QKeySequence(Qt::Key_F3), QStringLiteral("findShortcut")), SIGNAL(activated()),
            ui->filterEdit, SLOT(setFocus()));
    connect(shortcut(QKeySequence(Qt::CTRL | Qt::Key_F), QStringLiteral("searchShortcut")),
            SIGNAL(activated()), ui->filterEdit, SLOT(setFocus()));
    connect(shortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::ALT | Qt::Key_Minus),
                     QStringLiteral("collapseShortcut")),
            SIGNAL(activated()), ui->treeView, SLOT(collapseAll()));
    connect(shortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::ALT | Qt::Key_Plus),
                     QStringLiteral("expandShortcut")),
            SIGNAL(activated()), this, SLOT(expandTree()));
}

void FeatureTreeWidget::connectSignals()
{
    connect(ui->addNewFavoriteButton, &QPushButton::clicked, this,
            &FeatureTreeWidget::on_addNewFavoriteButton_clicked);
    connect(ui->checkBoxPolling, &QCheckBox::clicked, this,
            &FeatureTreeWidget::on_checkBoxPolling_clicked);
    connect(m_actionTogglePolling, &QAction::triggered, this,
            [this](bool checked) { Q_EMIT pollingStateChanged(checked); });
    connect(ui->resetButton, &QToolButton::clicked, this,
            &FeatureTreeWidget::on_resetButton_clicked);
    connect(ui->checkBoxUnavailableFavs, &QCheckBox::toggled, this,
            &FeatureTreeWidget::onCheckBoxUnavailableFavsTriggered);
    connect(ui->filterEdit, &QLineEdit::textChanged, this, &FeatureTreeWidget::onFilterTextChanged);
    connect(ui->useCaseComboBox, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &FeatureTreeWidget::onUseCaseComboBoxCurrentIndexChanged);
    // The cross ends the use case: back to "Common Tasks", which brings the box back.
    connect(ui->useCaseEdit,
            &Plugin::Nodescope::Internal::View::CUseCaseEdit::onCrossActionTriggered, this,
            [this] { ui->useCaseComboBox->setCurrentIndex(0); });

    FeatureTreeView* tree = ui->treeView;
    CFeatureTableView* table = ui->nodescopeTableView;
    connect(tree->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &FeatureTreeWidget::onSelectedChanged);
    connect(tree, &FeatureTreeView::onCurrentChanged, this,
            qOverload<const QModelIndex&>(&FeatureTreeWidget::onCurrentChanged));
    connect(table, &CFeatureTableView::onCurrentChanged, this,
            qOverload<const QModelIndex&>(&FeatureTreeWidget::onCurrentChanged));
    connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &FeatureTreeWidget::onTableSelectionChanged);
    // Moves and re-filtering change rows without a selection change.
    FeatureTreeProxyModel* tableRows = tableProxy();
    connect(tableRows, &QAbstractItemModel::rowsInserted, this,
            &FeatureTreeWidget::onTableSelectionChanged);
    connect(tableRows, &QAbstractItemModel::rowsRemoved, this,
            &FeatureTreeWidget::onTableSelectionChanged);
    connect(tableRows, &QAbstractItemModel::rowsMoved, this,
            &FeatureTreeWidget::onTableSelectionChanged);
    connect(tableRows, &QAbstractItemModel::layoutChanged, this,
            &FeatureTreeWidget::onTableSelectionChanged);
    connect(tableRows, &QAbstractItemModel::modelReset, this,
            &FeatureTreeWidget::onTableSelectionChanged);
    connect(table, &CFeatureTableView::orderOfTableItemsChanged, this,
            &FeatureTreeWidget::orderOfTableItemsChanged);

    connect(ui->splitter, &QSplitter::splitterMoved, this, &FeatureTreeWidget::splitterMoved);
    connect(tree->header(), &QHeaderView::sectionResized, this, [this](int section, int, int size) {
        if (section == 0) {
            m_treeColumnChosen = m_treeColumnChosen || !m_resizingColumnsInCode;
            Q_EMIT firstSectionSizeChanged(size, !m_resizingColumnsInCode);
        }
    });

    connect(tree, &FeatureTreeView::contextualMenuRequested, this, [this](const QPoint& position) {
        contextualMenu(ui->treeView->viewport()->mapToGlobal(position));
    });
    connect(table, &CFeatureTableView::contextualMenuRequested, this,
            [this](const QPoint& position) {
                contextualMenu(ui->nodescopeTableView->viewport()->mapToGlobal(position));
            });

    // Refused writes reach the status line with their reason.
    const auto report = [this](const QString&, const QString& message) {
        Q_EMIT onNewText(message);
    };
    if (FeatureTreeModel* model = proxyModel()->getFeatureTreeModel()) {
        connect(model, &FeatureTreeModel::writeRefused, this, report);
    }
    connect(table->getFeatureTableModel(), &CFeatureTableModel::writeRefused, this, report);
    connect(proxyModel(), &QAbstractItemModel::dataChanged, this,
            &FeatureTreeWidget::onRowsChanged);
    connect(tableRows, &QAbstractItemModel::dataChanged, this, &FeatureTreeWidget::onRowsChanged);
    // And so does what an editor did not write as typed.
    for (QAbstractItemView* view :
         {static_cast<QAbstractItemView*>(tree), static_cast<QAbstractItemView*>(table)}) {
        if (auto* delegate = qobject_cast<FeatureTreeDelegate*>(view->itemDelegate())) {
            connect(delegate, &FeatureTreeDelegate::notice, this, &FeatureTreeWidget::onNewText);
        }
    }
}

void FeatureTreeWidget::onDeviceLost()
{
    deviceIsClosed();
    // Editors already open keep the last values, greyed; new ones open greyed too.
    for (QAbstractItemView* view : {static_cast<QAbstractItemView*>(ui->treeView),
                                    static_cast<QAbstractItemView*>(ui->nodescopeTableView)}) {
        const QList<QWidget*> editors =
            view->viewport()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget* editor : editors) {
            editor->setEnabled(false);
            editor->setToolTip(FeatureTreeINodeItem::lostText());
        }
        // The models stay silent once the device is gone; the cells show the loss as drawn.
        view->viewport()->update();
    }
    // The loss itself is the host's to report, with the camera's name: every panel of the
    // camera saying it again would only push that report out of the status line.
}

FeatureTreeView* FeatureTreeWidget::treeView() const
{
    return ui->treeView;
}

FeatureTreeProxyModel* FeatureTreeWidget::proxyModel() const
{
    return ui->treeView->proxyModel();
}

bool FeatureTreeWidget::selectFeature(const QString& fullName)
{
    FeatureTreeProxyModel* proxy = proxyModel();
    const QModelIndex index =
        proxy ? proxy->findItemByFullName(fullName, nullptr, 0) : QModelIndex();
    if (!index.isValid()) {
        return false;
    }
    for (QModelIndex parent = index.parent(); parent.isValid(); parent = parent.parent()) {
        ui->treeView->expand(parent);
    }
    ui->treeView->setCurrentIndex(index);
    ui->treeView->scrollTo(index);
    return true;
}

CFeatureTableView* FeatureTreeWidget::tableView() const
{
    return ui->nodescopeTableView;
}

FeatureTreeProxyModel* FeatureTreeWidget::tableProxy() const
{
    return ui->nodescopeTableView->getProxyModel();
}

GenApi::EVisibility FeatureTreeWidget::visibility() const
{
    FeatureTreeProxyModel* proxy = proxyModel();
    return proxy ? proxy->getVisibility() : ui->treeView->getVisibility();
}

void FeatureTreeWidget::setVisibility(GenApi::EVisibility visibility)
{
    if (FeatureTreeProxyModel* proxy = proxyModel()) {
        proxy->setVisibility(visibility);
    }
    ui->treeView->setVisibility(visibility);
    ui->nodescopeTableView->setVisibility(visibility);
    refreshTree();
    reportFilterMatches();
}

void FeatureTreeWidget::setCameraType(const QString& cameraType)
{
    m_cameraType = cameraType;
}

void FeatureTreeWidget::injectDeviceParameterService(
    QSharedPointer<Plugin::CameraPool::IDeviceParameterService> service)
{
    m_deviceParameterService = std::move(service);
}

void FeatureTreeWidget::deviceIsClosed()
{
    if (FeatureTreeProxyModel* proxy = proxyModel()) {
        proxy->setDeviceAlive(false);
    }
    if (FeatureTreeProxyModel* table = tableProxy()) {
        table->setDeviceAlive(false);
    }
}

void FeatureTreeWidget::clear()
{
    // The table first: its rows are the tree's items.
    if (FeatureTreeProxyModel* table = tableProxy()) {
        table->clear();
    }
    if (FeatureTreeProxyModel* proxy = proxyModel()) {
        proxy->clear();
    }
    m_collections.clear();
}

void FeatureTreeWidget::invalidateModel()
{
    if (FeatureTreeProxyModel* proxy = proxyModel()) {
        proxy->invalidate();
    }
    if (FeatureTreeProxyModel* table = tableProxy()) {
        table->invalidate();
    }
}

void FeatureTreeWidget::addParameterCollection(QSharedPointer<IParameterCollection> collection,
                                               const QString& displayName,
                                               const QString& nodemapName, bool show)
{
    FeatureTreeProxyModel* proxy = proxyModel();
    if (!collection || !proxy) {
        return;
    }
    const QString prefix = withAt(nodemapName);
    bool knownCollection = false;
    for (const SParameterCollectionItem& item : qAsConst(m_collections)) {
        knownCollection = knownCollection || item.collection == collection;
    }
    m_collections.append({collection, displayName, prefix, show});
    if (!show) {
        return;
    }
    if (!knownCollection) {
        // A write the device refused after the editor let go is the host's to report, with
        // the rest of what the camera does on its own (its loss among them): one message per
        // event, however many panels show the camera. The editor reverts with the re-read.
        connect(collection.data(), &IParameterCollection::deviceLost, this,
                &FeatureTreeWidget::onDeviceLost);
    }

    // Filtered before the tree reads the node map, so its rows start out with the imposed
    // visibility and access.
    QString filterProblem;
    NodeMapFilter::applyFilter(collection, m_info, prefix, &filterProblem);
    proxy->addParameterCollection(collection, displayName, prefix, false);
    if (!m_filterText.isEmpty()) {
        // The new rows have not been searched yet.
        proxy->setSearchRegExp(m_filterText);
    }
    proxy->invalidate();
    if (m_isFilteredTreeWidget) {
        fillTableInListOrder(proxy->getParameterFilterList());
    }
    if (hasActiveFilter()) {
        expandTree();
    } else {
        expandFirstRootNode();
    }
    reportFilterMatches();
    if (!filterProblem.isEmpty()) {
        Q_EMIT filterFileProblem(filterProblem);
    }
}

void FeatureTreeWidget::setParameterFilterList(const QList<ParameterName>& names)
{
    if (!m_deviceParameterService) {
        qDebug() << "Plugin::CameraPool::IDeviceParameterService not set!";
        return;
    }
    applyFilterList(names);
    if (m_isFilteredTreeWidget) {
        fillTableInListOrder(names);
    }
    if (!names.isEmpty()) {
        expandTree();
    }
    invalidateModel();
    reportFilterMatches();
}

void FeatureTreeWidget::applyFilterList(const QList<ParameterName>& names)
{
    // The models only keep the list; the proxies filter by it.
    if (FeatureTreeProxyModel* proxy = proxyModel()) {
        if (IFeatureTreeModelExtension* model = ui->treeView->getFeatureExtension()) {
            model->setParameterFilterList(names);
        }
        proxy->setParameterFilterList(names);
    }
    if (FeatureTreeProxyModel* table = tableProxy()) {
        if (IFeatureTreeModelExtension* model = ui->nodescopeTableView->getFeatureExtension()) {
            model->setParameterFilterList(names);
        }
        table->setParameterFilterList(names);
    }
}

void FeatureTreeWidget::fillTableInListOrder(const QList<ParameterName>& names)
{
    FeatureTreeProxyModel* proxy = proxyModel();
    FeatureTreeProxyModel* table = tableProxy();
    FeatureTreeModel* model = proxy ? proxy->getFeatureTreeModel() : nullptr;
    if (!model || !table) {
        return;
    }
    QList<QObject*> items;
    for (const ParameterName& name : names) {
        const QModelIndex index = model->findItemByFullName(name.toString(), nullptr, 0);
        auto* item = dynamic_cast<FeatureTreeINodeItem*>(model->getFeatureTreeItem(index));
        if (item && !item->isCategory()) {
            items.append(item);
        }
    }
    table->addParameterCollection(items, table->isUtf8Encoded());
}

QList<ParameterName> FeatureTreeWidget::currentUseCaseNames() const
{
    const int index = ui->useCaseComboBox->currentIndex();
    if (index < 1) {
        return {};
    }
    return parameterNames(ui->useCaseComboBox->itemData(index, Qt::UserRole).toStringList());
}

bool FeatureTreeWidget::hasActiveFilter() const
{
    FeatureTreeProxyModel* proxy = proxyModel();
    return !m_filterText.isEmpty() || (proxy && !proxy->getParameterFilterList().isEmpty());
}

void FeatureTreeWidget::setUseCaseMap(const QMap<QString, QVariant>& map)
{
    QComboBox* box = ui->useCaseComboBox;
    disconnect(box, qOverload<int>(&QComboBox::currentIndexChanged), this,
               &FeatureTreeWidget::onUseCaseComboBoxCurrentIndexChanged);
    box->clear();

    const qreal scale = screenScale(this);
    const QFontMetrics metrics(box->font());
    int widest = 0;
    for (auto it = map.constBegin(); it != map.constEnd(); ++it) {
        widest = qMax(widest, metrics.horizontalAdvance(tr(it.key().toUtf8().constData())));
    }
    box->view()->setMinimumWidth(widest + static_cast<int>(scale * 20.0));

    for (auto it = map.constBegin(); it != map.constEnd(); ++it) {
        box->addItem(tr(it.key().toUtf8().constData()), it.value().toStringList());
    }
    box->insertItem(0, tr("Common Tasks"), QStringList());

    box->setCurrentIndex(m_useCaseIndex >= 0 && m_useCaseIndex < box->count() ? m_useCaseIndex : 0);
    m_useCaseIndex = -1;
    onUseCaseComboBoxCurrentIndexChanged(box->currentIndex());
    connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &FeatureTreeWidget::onUseCaseComboBoxCurrentIndexChanged);
}

void FeatureTreeWidget::onUseCaseComboBoxCurrentIndexChanged(int index)
{
    if (index == m_useCaseIndex || !proxyModel() || !tableProxy()) {
        return;
    }
    QList<ParameterName> names;
    if (index < 1) {
        applyFilterList(names);
        if (!m_isFilteredTreeWidget) {
            ui->useCaseEdit->hide();
            ui->useCaseEdit->setText(QString());
            ui->useCaseComboBox->show();
        }
    } else {
        names = parameterNames(ui->useCaseComboBox->itemData(index, Qt::UserRole).toStringList());
        applyFilterList(names);
        if (!m_isFilteredTreeWidget) {
            ui->useCaseEdit->setText(ui->useCaseComboBox->itemText(index));
            ui->useCaseEdit->show();
            ui->useCaseComboBox->hide();
        }
    }
    m_useCaseIndex = index;
    if (!names.isEmpty()) {
        expandTree();
    }
    invalidateModel();
    reportFilterMatches();
}

void FeatureTreeWidget::setPolling(bool on)
{
    FeatureTreeProxyModel* proxy = proxyModel();
    if (!proxy || m_isFilteredTreeWidget) {
        return;
    }
    proxy->enablePolling(on);
    ui->checkBoxPolling->setChecked(on);
    m_actionTogglePolling->setChecked(on);
}

bool FeatureTreeWidget::getPolling() const
{
    FeatureTreeProxyModel* proxy = proxyModel();
    return proxy && proxy->getPolling();
}

void FeatureTreeWidget::setMonitorMode(bool on)
{
    if (FeatureTreeProxyModel* proxy = proxyModel()) {
        proxy->setMonitorMode(on);
    }
}

void FeatureTreeWidget::enableGenICamCallbacks(bool on)
{
    if (FeatureTreeProxyModel* proxy = proxyModel()) {
        proxy->setGenICamCallbacksEnable(on);
    }
}

void FeatureTreeWidget::setFeatureColumnSize(int width)
{
    if (width < 0) {
        return;
    }
    m_treeColumnChosen = true;
    m_resizingColumnsInCode = true;
    ui->treeView->header()->resizeSection(0, width);
    m_resizingColumnsInCode = false;
}

void FeatureTreeWidget::fitNameColumn(QAbstractItemView* view, QHeaderView* header)
{
    const int available = view->viewport()->width();
    if (available <= 0 || header->count() < 2) {
        return;
    }
    m_resizingColumnsInCode = true;
    header->resizeSection(0,
                          qMax(kMinimumNameColumn, static_cast<int>(available * kNameColumnShare)));
    m_resizingColumnsInCode = false;
}

void FeatureTreeWidget::setCategoryColumnSize(int width)
{
    QSplitter* splitter = ui->splitter;
    if (width < 0 || splitter->count() != 3) {
        return;
    }
    QList<int> sizes = splitter->sizes();
    const int outer = sizes.at(0) + sizes.at(2);
    if (width >= outer) {
        return;
    }
    sizes[0] = width;
    sizes[2] = outer - width;
    splitter->setSizes(sizes);
}

void FeatureTreeWidget::setIsFilteredTreeWidget(const bool& filtered)
{
    m_isFilteredTreeWidget = filtered;
    for (QWidget* widget :
         {static_cast<QWidget*>(ui->useCaseEdit), static_cast<QWidget*>(ui->useCaseComboBox),
          static_cast<QWidget*>(ui->filterEdit), static_cast<QWidget*>(ui->treeView),
          static_cast<QWidget*>(ui->line), static_cast<QWidget*>(ui->addNewFavoriteButton),
          static_cast<QWidget*>(ui->checkBoxPolling)}) {
        widget->setHidden(filtered);
    }
    // Without the tree the top bar holds nothing.
    ui->frame->setHidden(filtered);
    if (!filtered) {
        // The edit only stands in for the box while a use case is active.
        const bool useCaseActive = ui->useCaseComboBox->currentIndex() > 0;
        ui->useCaseEdit->setVisible(useCaseActive);
        ui->useCaseComboBox->setVisible(!useCaseActive);
    }
    ui->checkBoxUnavailableFavs->setVisible(filtered);
    ui->nodescopeTableView->setIsConnectedToTreeView(!filtered);
    ui->nodescopeTableView->horizontalHeader()->setStretchLastSection(true);
    onTableSelectionChanged();
}

void FeatureTreeWidget::setAddNewFavoriteButtonVisible(bool visible)
{
    ui->addNewFavoriteButton->setVisible(visible);
}

void FeatureTreeWidget::setPollingVisible(bool visible)
{
    ui->checkBoxPolling->setVisible(visible);
}

void FeatureTreeWidget::expandTree()
{
    ui->treeView->expandAll();
}

void FeatureTreeWidget::expandRootNodes()
{
    QAbstractItemModel* model = ui->treeView->model();
    if (!model) {
        return;
    }
    const int rows = model->rowCount();
    for (int row = 0; row < rows; ++row) {
        ui->treeView->expand(model->index(row, 0));
    }
}

void FeatureTreeWidget::expandFirstRootNode()
{
    QAbstractItemModel* model = ui->treeView->model();
    if (model && model->rowCount() > 0) {
        ui->treeView->expand(model->index(0, 0));
    }
}

void FeatureTreeWidget::refreshTree()
{
    // Rows the proxy took away and gave back come back collapsed.
    if (hasActiveFilter()) {
        expandTree();
        return;
    }
    expandFirstRootNode();
    ui->treeView->updateRows(QModelIndex());
}

QString FeatureTreeWidget::featuresAsText() const
{
    QStringList lines;
    for (const SParameterCollectionItem& item : m_collections) {
        if (!item.show || !item.collection) {
            continue;
        }
        if (!lines.isEmpty()) {
            lines.append(QString());
        }
        QString collectionName;
        try {
            collectionName = item.collection->getName();
        } catch (...) {
            // The heading goes without it.
        }
        lines.append(tr("%1 from parameter collection %2").arg(item.displayName, collectionName));
        FeatureDumper dumper(item.collection);
        dumper.dumpCategory(withAt(item.nodemapName) + QStringLiteral("/Root"), 1, lines);
        if (dumper.truncated()) {
            break;
        }
    }
    if (lines.isEmpty()) {
        return QString();
    }
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

void FeatureTreeWidget::copyToClipboard()
{
    if (QClipboard* clipboard = QApplication::clipboard()) {
        clipboard->setText(featuresAsText());
    }
}

void FeatureTreeWidget::on_addNewFavoriteButton_clicked()
{
    Q_EMIT addFavoriteButtonClicked();
}

void FeatureTreeWidget::on_checkBoxPolling_clicked()
{
    Q_EMIT pollingStateChanged(ui->checkBoxPolling->isChecked());
}

void FeatureTreeWidget::onPollingStateChanged(bool on)
{
    setPolling(on);
}

void FeatureTreeWidget::on_resetButton_clicked()
{
    FeatureTreeProxyModel* proxy = proxyModel();
    if (!proxy) {
        return;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    proxy->refresh({});
    QApplication::restoreOverrideCursor();
}

void FeatureTreeWidget::onCheckBoxUnavailableFavsTriggered(bool checked)
{
    FeatureTreeProxyModel* proxy = proxyModel();
    FeatureTreeProxyModel* table = tableProxy();
    if (!proxy || !table) {
        return;
    }
    proxy->setShowUnavailableParameters(checked);
    table->setShowUnavailableParameters(checked);
}

void FeatureTreeWidget::onFilterTextChanged(const QString& text)
{
    m_filterText = text;
    const bool busy = m_busyCursorOnNextFilter;
    if (busy) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    // Searching marks rows and hides none; the delegates paint the marks from the text.
    if (FeatureTreeProxyModel* proxy = proxyModel()) {
        proxy->setSearchRegExp(text);
    }
    if (FeatureTreeProxyModel* table = tableProxy()) {
        table->setSearchRegExp(text);
    }
    ui->treeView->getHighlighter()->setTextToHighlight(text);
    ui->nodescopeTableView->getHighlighter()->setTextToHighlight(text);
    if (busy) {
        QApplication::restoreOverrideCursor();
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    m_busyCursorOnNextFilter = false;
    if (!text.isEmpty()) {
        expandTree();
    }
    invalidateModel();
    reportFilterMatches();
}

void FeatureTreeWidget::reportFilterMatches()
{
    FeatureTreeProxyModel* proxy = proxyModel();
    FeatureTreeModel* model = proxy ? proxy->getFeatureTreeModel() : nullptr;
    int visibleMatches = 0;
    int invisibleMatches = 0;
    if (model && !m_filterText.isEmpty()) {
        QSet<QString> allowed;
        for (const ParameterName& name : proxy->getParameterFilterList()) {
            allowed.insert(name.toString());
        }
        const GenApi::EVisibility level = proxy->getVisibility();
        const bool showUnavailable = proxy->getShowUnavailableParameters();
        // One feature may stand in two categories; it counts once.
        QSet<const void*> counted;
        QList<FeatureTreeItem*> pending{model->rootItem()};
        while (!pending.isEmpty()) {
            FeatureTreeItem* item = pending.takeLast();
            const int children = item->childCount();
            for (int row = 0; row < children; ++row) {
                pending.append(item->child(row));
            }
            auto* node = dynamic_cast<FeatureTreeINodeItem*>(item);
            if (!node || !node->isSearched() || node->isCategory() ||
                counted.contains(node->featureKey())) {
                continue;
            }
            counted.insert(node->featureKey());
            const QSharedPointer<const ParameterData> data = node->getParameterData();
            if (!data || !data->implemented || (!data->available && !showUnavailable) ||
                (!allowed.isEmpty() && !allowed.contains(node->getFullName()))) {
                continue;
            }
            if (data->visibility <= level) {
                ++visibleMatches;
            } else if (data->visibility < GenApi::Invisible) {
                ++invisibleMatches;
            }
        }
    }
    Q_EMIT filterMatchesChanged(visibleMatches, invisibleMatches);
}

void FeatureTreeWidget::onVisibilityChanged(int level)
{
    if (level < GenApi::Beginner || level > GenApi::Invisible) {
        return;
    }
    const auto visibility = static_cast<GenApi::EVisibility>(level);
    setVisibility(visibility);
    // Every row is judged again: worth the wait cursor.
    m_busyCursorOnNextFilter = true;
    onFilterTextChanged(m_filterText);
    Q_EMIT visibilityChanged(visibility);
    refreshTree();
}

QList<QObject*> FeatureTreeWidget::tableItemsFor(FeatureTreeItem* item) const
{
    auto* node = dynamic_cast<FeatureTreeINodeItem*>(item);
    if (!node) {
        return {};
    }
    // A feature shows with its neighbours: the features of its category.
    auto* category =
        node->isCategory() ? node : dynamic_cast<FeatureTreeINodeItem*>(node->parent());
    if (!category || !category->isCategory()) {
        return {};
    }
    QList<QObject*> features;
    const int children = category->childCount();
    for (int row = 0; row < children; ++row) {
        auto* child = dynamic_cast<FeatureTreeINodeItem*>(category->child(row));
        if (child && !child->isCategory()) {
            features.append(child);
        }
    }
    return features;
}

void FeatureTreeWidget::onSelectedChanged()
{
    FeatureTreeProxyModel* proxy = proxyModel();
    FeatureTreeProxyModel* table = tableProxy();
    QItemSelectionModel* selection = ui->treeView->selectionModel();
    if (m_isFilteredTreeWidget || !proxy || !table || !selection) {
        return;
    }
    const QModelIndexList selected = selection->selectedIndexes();
    if (selected.isEmpty()) {
        return;
    }
    const QList<QObject*> features = tableItemsFor(proxy->getFeatureTreeItem(selected.first()));
    if (!features.isEmpty()) {
        table->addParameterCollection(features, table->isUtf8Encoded());
    }
    table->setParameterFilterList(currentUseCaseNames());
    table->refresh({});
}

void FeatureTreeWidget::onCurrentChanged(const QModelIndex& index)
{
    const bool searching = ui->filterEdit->hasFocus();
    m_current = QPersistentModelIndex();
    m_currentState.clear();
    if (!index.isValid()) {
        // Nothing is current any more, as after the current row was hidden.
        if (!searching) {
            Q_EMIT onCurrentChanged(QSharedPointer<IParameter>());
        }
        return;
    }
    const auto* extension = dynamic_cast<const IFeatureTreeModelExtension*>(index.model());
    FeatureTreeItem* item = extension ? extension->getFeatureTreeItem(index) : nullptr;
    if (!item) {
        qDebug() << "Only the invalid/empty model index is allowed to have an internal pointer "
                    "of nullptr";
        Q_EMIT onCurrentChanged(QSharedPointer<IParameter>());
        return;
    }
    auto* node = dynamic_cast<FeatureTreeINodeItem*>(item);
    if (!searching) {
        Q_EMIT onCurrentChanged(node ? node->node() : QSharedPointer<IParameter>());
    }
    if (!node && item->hasDescription()) {
        Q_EMIT onNewText(item->getDescription());
    }
    m_current = index;
    m_currentState = node ? stateText(*node) : QString();
    if (!m_currentState.isEmpty()) {
        Q_EMIT onNewText(m_currentState);
    }
}

void FeatureTreeWidget::onRowsChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight)
{
    if (!m_current.isValid() || m_current.model() != topLeft.model() ||
        m_current.parent() != topLeft.parent() || m_current.row() < topLeft.row() ||
        m_current.row() > bottomRight.row()) {
        return;
    }
    const auto* extension = dynamic_cast<const IFeatureTreeModelExtension*>(m_current.model());
    auto* node = extension
                     ? dynamic_cast<FeatureTreeINodeItem*>(extension->getFeatureTreeItem(m_current))
                     : nullptr;
    const QString state = node ? stateText(*node) : QString();
    if (state == m_currentState) {
        return;
    }
    m_currentState = state;
    if (!state.isEmpty()) {
        Q_EMIT onNewText(state);
    }
}

QString FeatureTreeWidget::stateText(const FeatureTreeINodeItem& node) const
{
    const QSharedPointer<const ParameterData> data = node.getParameterData();
    if (!data || node.isCategory()) {
        return QString();
    }
    // Why the value is missing, then why it can't be changed: the two things a user asks.
    QStringList reasons;
    if (data->hasError()) {
        reasons.append(data->errorText);
    }
    if (node.isDeviceLost()) {
        reasons.append(tr("the camera is lost"));
    } else if (!data->restriction.isEmpty()) {
        reasons.append(data->restriction);
    }
    if (reasons.isEmpty()) {
        return QString();
    }
    return tr("%1: %2").arg(node.getDisplayedName(), reasons.join(QStringLiteral("; ")));
}

void FeatureTreeWidget::onTableSelectionChanged()
{
    bool canMoveUp = false;
    bool canMoveDown = false;
    QAbstractItemModel* model = ui->nodescopeTableView->model();
    QItemSelectionModel* selection = ui->nodescopeTableView->selectionModel();
    if (m_isFilteredTreeWidget && model && selection) {
        const QModelIndexList selected = selection->selectedIndexes();
        if (!selected.isEmpty() && selected.first().isValid()) {
            const int row = selected.first().row();
            canMoveUp = row > 0;
            canMoveDown = row < model->rowCount() - 1;
        }
    }
    m_actionMoveFavouriteUp->setEnabled(canMoveUp);
    m_actionMoveFavouriteDown->setEnabled(canMoveDown);
}

void FeatureTreeWidget::onFavoriteMoveUp_triggered()
{
    moveCurrentFavorite(true);
}

void FeatureTreeWidget::onFavoriteMoveDown_triggered()
{
    moveCurrentFavorite(false);
}

void FeatureTreeWidget::moveCurrentFavorite(bool up)
{
    CFeatureTableView* table = ui->nodescopeTableView;
    FeatureTreeProxyModel* proxy = tableProxy();
    CFeatureTableModel* model = table->getFeatureTableModel();
    const QModelIndex current = table->currentIndex();
    if (!proxy || !model || !current.isValid() || current.model() != proxy) {
        return;
    }
    // The neighbour the user sees, which need not be the next row of the model when some
    // rows are filtered out.
    const QModelIndex neighbour = proxy->index(current.row() + (up ? -1 : 1), 0);
    if (!neighbour.isValid()) {
        return;
    }
    model->moveFavorite(proxy->mapToSource(current.sibling(current.row(), 0)),
                        proxy->mapToSource(neighbour), up);
    onTableSelectionChanged();
}

void FeatureTreeWidget::splitterMoved(int, int)
{
    const QList<int> sizes = ui->splitter->sizes();
    if (!sizes.isEmpty()) {
        Q_EMIT categoryColumnWidthChanged(sizes.first());
    }
}

void FeatureTreeWidget::contextualMenu(const QPoint& position)
{
    // Whoever shows the menu keeps it as long as it needs it.
    QSharedPointer<QMenu> menu(new QMenu, &QObject::deleteLater);
    if (m_isFilteredTreeWidget && ui->nodescopeTableView->currentIndex().isValid()) {
        menu->addAction(m_actionMoveFavouriteUp);
        menu->addAction(m_actionMoveFavouriteDown);
        menu->addSeparator();
    }
    Q_EMIT contextMenuRequested(position, menu);
}

void FeatureTreeWidget::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        if (s_escapePressed) {
            ui->filterEdit->clear();
            s_escapePressed = false;
        } else {
            s_escapePressed = true;
            // Keys that the views and editors take never reach this widget: while the row is
            // armed, the application's keys are watched so that any of them disarms it.
            qApp->installEventFilter(this);
        }
    } else {
        s_escapePressed = false;
    }
    QWidget::keyPressEvent(event);
}

bool FeatureTreeWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize) {
        if (watched == ui->treeView->viewport() && !m_treeColumnChosen) {
            fitNameColumn(ui->treeView, ui->treeView->header());
        } else if (watched == ui->nodescopeTableView->viewport()) {
            // The table is narrower than the tree beside it: its names get their share of it.
            fitNameColumn(ui->nodescopeTableView, ui->nodescopeTableView->horizontalHeader());
        }
    }
    if ((event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride) &&
        static_cast<QKeyEvent*>(event)->key() != Qt::Key_Escape && watched->isWidgetType() &&
        isAncestorOf(static_cast<QWidget*>(watched))) {
        s_escapePressed = false;
    }
    if (!s_escapePressed && watched->isWidgetType() && event->type() == QEvent::KeyPress) {
        // Disarmed, here or by another panel: every event of the application need not pass.
        qApp->removeEventFilter(this);
    }
    if (watched == ui->resetButton && event->type() == QEvent::Shortcut &&
        static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
        // Panels side by side in one window share the refresh key, and Qt would only move the
        // focus between their buttons: the panel the user works in refreshes.
        FeatureTreeWidget* target = this;
        for (QWidget* widget = QApplication::focusWidget(); widget;
             widget = widget->parentWidget()) {
            if (auto* panel = qobject_cast<FeatureTreeWidget*>(widget)) {
                target = panel;
                break;
            }
        }
        target->ui->resetButton->click();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

bool FeatureTreeWidget::event(QEvent* event)
{
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::FontChange) {
        // Editors inside the views keep fonts of their own and would miss the change.
        const QList<QWidget*> children = findChildren<QWidget*>();
        for (QWidget* child : children) {
            QCoreApplication::sendEvent(child, event);
        }
    }
    return handled;
}
