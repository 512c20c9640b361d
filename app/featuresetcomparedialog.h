#pragma once

#include <featureset.h>

#include <QDialog>

class QLabel;
class QTableView;

namespace VantoViewer {

class FeatureSetCompareModel;

// The features in which a camera differs from a file or from another camera. Choosing a row
// asks for the feature to be shown in the feature tree.
class FeatureSetCompareDialog : public QDialog {
    Q_OBJECT
public:
    explicit FeatureSetCompareDialog(QWidget* parent = nullptr);

    void setDifferences(const QVector<Backend::FeatureSet::Difference>& differences,
                        const QString& left, const QString& right);
    FeatureSetCompareModel* model() const { return m_model; }
    QTableView* view() const { return m_view; }

Q_SIGNALS:
    // The feature of the chosen row, by its name in the camera's node map ("Gain").
    void featureChosen(const QString& featureName);

private:
    FeatureSetCompareModel* m_model; // child
    QLabel* m_summary;               // child
    QTableView* m_view;              // child
};

} // namespace VantoViewer
