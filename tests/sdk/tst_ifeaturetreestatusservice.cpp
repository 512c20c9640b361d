#include <featuretree/ifeaturetreestatusservice.h>

#include <QPointer>
#include <QSignalSpy>
#include <QtTest>

using ParameterCollection::IParameter;
using Plugin::FeatureTree::IFeatureTreeStatusService;

namespace {

class FakeParameter : public IParameter {
    Q_OBJECT
public:
    using IParameter::IParameter;

    QString getName() const override { return QStringLiteral("@CameraDevice/Width"); }
    QString getFeatureName() const override { return QStringLiteral("Width"); }
    bool isNull() const override { return false; }
    int getType() const override { return ParameterCollection::IntegerType; }
    QSharedPointer<const ParameterCollection::ParameterData> getParameterData() const override
    {
        return {};
    }
    QString getProperty(const QString&) const override { return {}; }
    QMap<QString, QString> getProperties() const override { return {}; }
    void setValue(const QVariant&) override {}
    ParameterCollection::IAdvancedParameterAccess* getAdvancedParameterAccess() override
    {
        return nullptr;
    }
    void addObserver() override {}
    void removeObserver() override {}
};

// The signals of a feature tree panel, which the dock panel factory forwards to the service.
class Panel : public QObject {
    Q_OBJECT
Q_SIGNALS:
    void visibilityChanged(GenApi::EVisibility visibility);
    void currentChanged(QSharedPointer<ParameterCollection::IParameter> parameter);
    void newText(QString text);
};

} // namespace

class TestIFeatureTreeStatusService : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shouldBeOwnedByItsParent()
    {
        auto* parent = new QObject;
        const QPointer<IFeatureTreeStatusService> service = new IFeatureTreeStatusService(parent);

        delete parent;

        QVERIFY(service.isNull());
    }

    void shouldForwardPanelSignalsConnectedBySignature()
    {
        // Given a panel whose signals are forwarded to the service, queued, by signature
        IFeatureTreeStatusService service;
        Panel panel;
        QVERIFY(QObject::connect(&panel, SIGNAL(visibilityChanged(GenApi::EVisibility)), &service,
                                 SIGNAL(visibilityChanged(GenApi::EVisibility)),
                                 Qt::QueuedConnection));
        QVERIFY(QObject::connect(
            &panel, SIGNAL(currentChanged(QSharedPointer<ParameterCollection::IParameter>)),
            &service, SIGNAL(currentChanged(QSharedPointer<ParameterCollection::IParameter>)),
            Qt::QueuedConnection));
        QVERIFY(QObject::connect(&panel, SIGNAL(newText(QString)), &service,
                                 SIGNAL(newText(QString)), Qt::QueuedConnection));
        QSignalSpy visibility(&service, &IFeatureTreeStatusService::visibilityChanged);
        QSignalSpy current(&service, &IFeatureTreeStatusService::currentChanged);
        QSignalSpy text(&service, &IFeatureTreeStatusService::newText);
        const QSharedPointer<IParameter> width(new FakeParameter);

        // When the panel reports what the user looks at
        Q_EMIT panel.visibilityChanged(GenApi::Guru);
        Q_EMIT panel.currentChanged(width);
        Q_EMIT panel.newText(QStringLiteral("Width of the image"));

        // Then the service tells the host the same
        QTRY_COMPARE(text.count(), 1);
        QCOMPARE(visibility.count(), 1);
        QCOMPARE(visibility.at(0).at(0).value<GenApi::EVisibility>(), GenApi::Guru);
        QCOMPARE(current.count(), 1);
        QCOMPARE(current.at(0).at(0).value<QSharedPointer<IParameter>>(), width);
        QCOMPARE(text.at(0).at(0).toString(), QStringLiteral("Width of the image"));
    }
};

QTEST_GUILESS_MAIN(TestIFeatureTreeStatusService)
#include "tst_ifeaturetreestatusservice.moc"
