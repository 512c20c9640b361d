#include "featuresetcomparedialog.h"

#include "featuresetcomparemodel.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>

namespace VantoViewer {

FeatureSetCompareDialog::FeatureSetCompareDialog(QWidget* parent)
    : QDialog(parent), m_model(new FeatureSetCompareModel(this)), m_summary(new QLabel(this)),
      m_view(new QTableView(this))
{
    setWindowTitle(tr("Compare Features"));
    m_view->setModel(m_model);
    m_view->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    m_view->verticalHeader()->hide();
    m_view->horizontalHeader()->setStretchLastSection(true);
    connect(m_view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) {
                if (current.isValid()) {
                    Q_EMIT featureChosen(
                        current.data(FeatureSetCompareModel::FeatureNameRole).toString());
                }
            });
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_summary);
    layout->addWidget(m_view);
    layout->addWidget(buttons);
    resize(760, 420);
}

void FeatureSetCompareDialog::setDifferences(
    const QVector<Backend::FeatureSet::Difference>& differences, const QString& left,
    const QString& right)
{
    m_model->setDifferences(differences, left, right);
    m_summary->setText(
        differences.isEmpty()
            ? tr("%1 and %2 hold the same values.").arg(left, right)
            : tr("%n feature(s) differ between %1 and %2.", nullptr, differences.size())
                  .arg(left, right));
    m_view->resizeColumnsToContents();
}

} // namespace VantoViewer
