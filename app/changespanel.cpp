#include "changespanel.h"

#include "changesmodel.h"

#include <QHeaderView>
#include <QTableView>
#include <QVBoxLayout>

namespace VantoViewer {

ChangesPanel::ChangesPanel(ChangeJournal* journal, QWidget* parent)
    : QWidget(parent), m_model(new ChangesModel(journal, this)), m_view(new QTableView(this))
{
    setObjectName(QStringLiteral("changesPanel"));
    m_view->setObjectName(QStringLiteral("changesView"));
    m_view->setModel(m_model);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setWordWrap(false);
    m_view->verticalHeader()->hide();
    m_view->horizontalHeader()->setStretchLastSection(true);
    m_view->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    connect(m_model, &QAbstractItemModel::rowsInserted, m_view, &QTableView::scrollToBottom);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
}

} // namespace VantoViewer
