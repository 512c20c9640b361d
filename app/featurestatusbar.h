#pragma once

#include <parametercollection/iparameter.h>

#include <QSharedPointer>
#include <QStatusBar>

class QLabel;

namespace VantoViewer {

// The window's status line: passing messages on the left, then the feature the user is on
// (display name and description) and the last error, which stays until the next one so that
// a failure is not lost behind the next passing message.
class FeatureStatusBar : public QStatusBar {
    Q_OBJECT
public:
    explicit FeatureStatusBar(QWidget* parent = nullptr);
    ~FeatureStatusBar() override;

    // A null parameter clears the feature field.
    void showFeature(const QSharedPointer<ParameterCollection::IParameter>& parameter);
    void showError(const QString& text);
    void clearError();

    QString featureText() const;
    QString errorText() const;

private:
    QLabel* m_feature; // child
    QLabel* m_error;   // child
};

} // namespace VantoViewer
