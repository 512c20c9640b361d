#include "featuresetreportdialog.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

namespace VantoViewer {

using Reason = Backend::FeatureSetTransfer::Reason;

QString FeatureSetReportDialog::reasonText(Reason reason)
{
    switch (reason) {
    case Reason::UnknownFeature:
        return tr("Unknown feature");
    case Reason::ReadOnly:
        return tr("Read-only");
    case Reason::OutOfRange:
        return tr("Out of range");
    case Reason::NotAvailable:
        return tr("Not available");
    case Reason::Locked:
        return tr("Locked");
    case Reason::InvalidValue:
        return tr("Invalid value");
    case Reason::Refused:
        return tr("Refused by the camera");
    case Reason::Cancelled:
        return tr("Cancelled");
    }
    return QString();
}

FeatureSetReportDialog::FeatureSetReportDialog(
    const QString& fileName, const Backend::FeatureSetTransfer::LoadReport& report, QWidget* parent)
    : QDialog(parent), m_summary(new QLabel(this)), m_table(new QTableWidget(this))
{
    setWindowTitle(tr("Feature Set Loaded"));
    const QString file = QFileInfo(fileName).fileName();
    m_summary->setWordWrap(true);
    m_summary->setText(
        report.failures.isEmpty()
            ? tr("%1: every line was applied; %n feature(s) changed.", nullptr,
                 report.applied.size())
                  .arg(file)
            : tr("%1: %n line(s) could not be applied.", nullptr, report.failures.size())
                  .arg(file));
    m_table->setColumnCount(5);
    m_table->setHorizontalHeaderLabels(
        {tr("Line"), tr("Feature"), tr("Value"), tr("Reason"), tr("Details")});
    m_table->setRowCount(report.failures.size());
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(true);
    for (int row = 0; row < report.failures.size(); ++row) {
        const auto& failure = report.failures.at(row);
        const QStringList cells = {QString::number(failure.lineNumber), failure.name, failure.value,
                                   reasonText(failure.reason), failure.message};
        for (int column = 0; column < cells.size(); ++column) {
            m_table->setItem(row, column, new QTableWidgetItem(cells.at(column)));
        }
    }
    m_table->resizeColumnsToContents();
    m_table->setVisible(!report.failures.isEmpty());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_summary);
    layout->addWidget(m_table);
    layout->addWidget(buttons);
    resize(720, report.failures.isEmpty() ? 120 : 360);
}

QString FeatureSetReportDialog::summary() const
{
    return m_summary->text();
}

} // namespace VantoViewer
