#pragma once

#include <parametercollection/exception.h>
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
    // A write the camera did not take: the feature, what kind of failure in words a user
    // knows, and the camera's reason. `feature` is a full or plain name.
    void showWriteFailure(const QString& feature, ParameterCollection::Exception::Kind kind,
                          const QString& message);
    void clearError();

    // "Width: refused by the camera (access denied): <message>", naming the feature once even
    // when the message already starts with "[Width]".
    static QString writeFailureText(const QString& feature,
                                    ParameterCollection::Exception::Kind kind,
                                    const QString& message);
    // A panel's message with a repeated feature prefix ("[Width] [Width] ...") said once.
    static QString withoutRepeatedName(const QString& text);

    QString featureText() const;
    QString errorText() const;

private:
    QLabel* m_feature; // child
    QLabel* m_error;   // child
};

} // namespace VantoViewer
