#pragma once

#include <featuresettransfer.h>

#include <QDialog>

class QLabel;
class QTableWidget;

namespace VantoViewer {

// What a feature set load did: how many features it changed, and every line it could not
// apply with the reason.
class FeatureSetReportDialog : public QDialog {
    Q_OBJECT
public:
    FeatureSetReportDialog(const QString& fileName,
                           const Backend::FeatureSetTransfer::LoadReport& report,
                           QWidget* parent = nullptr);

    QTableWidget* failureTable() const { return m_table; }
    QString summary() const;

    static QString reasonText(Backend::FeatureSetTransfer::Reason reason);

private:
    QLabel* m_summary;     // child
    QTableWidget* m_table; // child
};

} // namespace VantoViewer
