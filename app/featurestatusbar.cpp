#include "featurestatusbar.h"

#include <QLabel>
#include <QTime>

namespace VantoViewer {

namespace {
// Long descriptions would push the error field out of the window; the tool tip has them whole.
constexpr int MAX_FEATURE_CHARS = 140;
} // namespace

FeatureStatusBar::FeatureStatusBar(QWidget* parent)
    : QStatusBar(parent), m_feature(new QLabel(this)), m_error(new QLabel(this))
{
    setObjectName(QStringLiteral("VantoViewer.StatusBar"));
    m_feature->setObjectName(QStringLiteral("currentFeatureLabel"));
    m_feature->setTextFormat(Qt::PlainText);
    m_error->setObjectName(QStringLiteral("lastErrorLabel"));
    m_error->setTextFormat(Qt::PlainText);
    QPalette palette = m_error->palette();
    palette.setColor(QPalette::WindowText, QColor(0xb0, 0x1e, 0x1e));
    m_error->setPalette(palette);
    m_error->hide();
    addPermanentWidget(m_feature, 1);
    addPermanentWidget(m_error);
}

FeatureStatusBar::~FeatureStatusBar() = default;

void FeatureStatusBar::showFeature(const QSharedPointer<ParameterCollection::IParameter>& parameter)
{
    if (!parameter || parameter->isNull()) {
        m_feature->clear();
        m_feature->setToolTip(QString());
        return;
    }
    QString name = parameter->getProperty(QStringLiteral("DisplayName"));
    if (name.isEmpty()) {
        name = parameter->getFeatureName();
    }
    QString description = parameter->getProperty(QStringLiteral("Description"));
    if (description.isEmpty()) {
        description = parameter->getProperty(QStringLiteral("ToolTip"));
    }
    description = description.simplified();
    const QString full = description.isEmpty() ? name : name + QStringLiteral(": ") + description;
    m_feature->setText(
        full.size() > MAX_FEATURE_CHARS ? full.left(MAX_FEATURE_CHARS - 1) + QChar(0x2026) : full);
    m_feature->setToolTip(full);
}

void FeatureStatusBar::showError(const QString& text)
{
    if (text.isEmpty()) {
        return;
    }
    const QString stamped = QTime::currentTime().toString(QStringLiteral("HH:mm:ss")) +
                            QLatin1Char(' ') + text.simplified();
    m_error->setText(stamped);
    m_error->setToolTip(stamped);
    m_error->show();
}

void FeatureStatusBar::clearError()
{
    m_error->clear();
    m_error->hide();
}

QString FeatureStatusBar::featureText() const
{
    return m_feature->toolTip();
}

QString FeatureStatusBar::errorText() const
{
    return m_error->text();
}

} // namespace VantoViewer
