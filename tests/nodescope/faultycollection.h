#pragma once

#include <parametercollection/exception.h>
#include <parametercollection/iparametercollection.h>

#include <QHash>
#include <QSet>
#include <QSharedPointer>
#include <QStringList>

// Wraps a real collection and its parameters, passing everything through, and fails, counts or
// rewires on request: parameters that throw, polls that are counted, categories that loop.
class FaultyParameter : public ParameterCollection::IParameter {
    Q_OBJECT
public:
    explicit FaultyParameter(QSharedPointer<ParameterCollection::IParameter> real) : m_real(real)
    {
        connect(real.data(), &IParameter::parameterDataChanged, this,
                &IParameter::parameterDataChanged);
    }

    bool throwOnProperty = false;
    bool throwOnType = false;
    bool throwOnSet = false;
    bool reportNull = false;
    // A parameter type code to report instead of the real one; 0 reports the real one.
    int forcedType = 0;
    int observers = 0;

    // Serves `data` from now on instead of the real parameter's, and announces it the way the
    // parameter layer announces a change. Null goes back to the real data.
    void publish(QSharedPointer<const ParameterCollection::ParameterData> data)
    {
        m_forced = data;
        Q_EMIT parameterDataChanged(data ? data : m_real->getParameterData());
    }
    // A copy of the real data to change and publish.
    QSharedPointer<ParameterCollection::ParameterData> realDataCopy() const
    {
        return m_real->getParameterData()->clone();
    }

    QString getName() const override { return m_real->getName(); }
    QString getFeatureName() const override { return m_real->getFeatureName(); }
    bool isNull() const override { return reportNull || m_real->isNull(); }
    int getType() const override
    {
        if (throwOnType) {
            throw ParameterCollection::TimeoutException(getFeatureName(), "type query timed out");
        }
        return forcedType != 0 ? forcedType : m_real->getType();
    }
    QSharedPointer<const ParameterCollection::ParameterData> getParameterData() const override
    {
        return m_forced ? m_forced : m_real->getParameterData();
    }
    QString getProperty(const QString& name) const override
    {
        if (throwOnProperty) {
            throw ParameterCollection::TimeoutException(getFeatureName(), "property timed out");
        }
        return m_real->getProperty(name);
    }
    QMap<QString, QString> getProperties() const override
    {
        if (throwOnProperty) {
            throw ParameterCollection::TimeoutException(getFeatureName(), "property timed out");
        }
        return m_real->getProperties();
    }
    void setValue(const QVariant& value) override
    {
        if (throwOnSet) {
            throw ParameterCollection::AccessException(getFeatureName(), "write refused");
        }
        m_real->setValue(value);
    }
    ParameterCollection::IAdvancedParameterAccess* getAdvancedParameterAccess() override
    {
        return m_real->getAdvancedParameterAccess();
    }
    void addObserver() override
    {
        ++observers;
        m_real->addObserver();
    }
    void removeObserver() override
    {
        --observers;
        m_real->removeObserver();
    }

private:
    QSharedPointer<ParameterCollection::IParameter> m_real;
    QSharedPointer<const ParameterCollection::ParameterData> m_forced;
};

class FaultyCollection : public ParameterCollection::IParameterCollection {
    Q_OBJECT
public:
    explicit FaultyCollection(QSharedPointer<ParameterCollection::IParameterCollection> real)
        : m_real(real)
    {
        connect(real.data(), &IParameterCollection::deviceLost, this,
                &IParameterCollection::deviceLost);
        connect(real.data(), &IParameterCollection::writeFailed, this,
                &IParameterCollection::writeFailed);
    }

    // Extra children appended to a category's real ones: a way to make categories loop.
    QHash<QString, QStringList> extraChildren;
    int pollCount = 0;
    int refreshCount = 0;

    QSharedPointer<FaultyParameter> parameter(const QString& fullName) const
    {
        auto it = m_wrapped.find(fullName);
        if (it != m_wrapped.end()) {
            return it.value();
        }
        const auto real = m_real->getParameter(fullName);
        if (!real) {
            return {};
        }
        auto wrapped = QSharedPointer<FaultyParameter>::create(real);
        m_wrapped.insert(fullName, wrapped);
        return wrapped;
    }

    QString getName() const override { return m_real->getName(); }
    QStringList getNodeMapNames() const override { return m_real->getNodeMapNames(); }
    QSharedPointer<ParameterCollection::IParameter>
    getParameter(const QString& fullName) const override
    {
        return parameter(fullName);
    }
    using IParameterCollection::getParameter;
    QStringList getChildren(const QString& fullName) const override
    {
        return m_real->getChildren(fullName) + extraChildren.value(fullName);
    }
    void poll(int elapsedMs) override
    {
        ++pollCount;
        m_real->poll(elapsedMs);
    }
    void refresh() override
    {
        ++refreshCount;
        m_real->refresh();
    }
    void refresh(const QList<ParameterCollection::ParameterName>& names) override
    {
        ++refreshCount;
        m_real->refresh(names);
    }
    bool isLost() const override { return m_real->isLost(); }

private:
    QSharedPointer<ParameterCollection::IParameterCollection> m_real;
    mutable QHash<QString, QSharedPointer<FaultyParameter>> m_wrapped;
};
