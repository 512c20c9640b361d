#pragma once

#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>

#include <QMetaObject>
#include <QObject>
#include <QSharedPointer>
#include <QString>
#include <QVariant>

#include <optional>

class VantoQtDoubleSpinBox;

// What both float editors share: which parameter they show and write (the feature, or the alias
// the collection has for it) and when new data may be shown. The view refreshes the feature, not
// its alias, so the follower keeps up with the alias itself and lets it be polled while shown.
class FloatAliasFollower : public QObject {
    Q_OBJECT
public:
    // The alias is the parameter named after the feature: its full name + "/Alias".
    FloatAliasFollower(VantoQtDoubleSpinBox* spinBox, QObject* parent);
    // The alias is the parameter named `aliasKey`; an empty key means none.
    FloatAliasFollower(VantoQtDoubleSpinBox* spinBox, QString aliasKey, QObject* parent);
    ~FloatAliasFollower() override;

    // Takes `parameter` as the feature and follows its alias in `collection` where that is a
    // float parameter. False where there is nothing to show; failures are logged, not thrown.
    bool setFeature(const QSharedPointer<ParameterCollection::IParameter>& parameter,
                    const QSharedPointer<ParameterCollection::IParameterCollection>& collection);

    QSharedPointer<ParameterCollection::IParameter> feature() const { return m_feature; }
    // Null when the feature is edited directly.
    QSharedPointer<ParameterCollection::IParameter> alias() const { return m_alias; }

    // The data to show: the alias's where one is followed, else the feature's; `name` gets the
    // shown parameter's full name. Null where there is none, and while the user types: the data
    // is then held back and loadRequested follows once the typing ends.
    QSharedPointer<const ParameterCollection::FloatParameterData>
    dataToShow(QString* name = nullptr);

    // What the model may write: `value`, or while an alias is followed the feature's own current
    // value, since the alias is written here and the model must see nothing to write.
    QVariant editorData(double value) const;

    // Writes `value` to the alias where one is followed. False, logged, where the alias refused
    // it; the editor then shows the alias's data again.
    bool write(double value);

Q_SIGNALS:
    // The data shown is out of date: the alias changed, the typing ended with data held back, or
    // Escape took the typing back.
    void loadRequested();

private:
    void follow(const QSharedPointer<ParameterCollection::IParameter>& alias);
    void loadIfPending();

    VantoQtDoubleSpinBox* m_spinBox; // not owned
    // Unset: named after the feature.
    std::optional<QString> m_aliasKey;
    QSharedPointer<ParameterCollection::IParameter> m_feature;
    QSharedPointer<ParameterCollection::IParameter> m_alias;
    QMetaObject::Connection m_aliasConnection;
    bool m_pendingLoad = false;
};
