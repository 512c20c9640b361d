#include "featurestatusbar.h"

#include <parametercollection/parametername.h>

#include <QLabel>
#include <QRegularExpression>
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

void FeatureStatusBar::showWriteFailure(const QString& feature,
                                        ParameterCollection::Exception::Kind kind,
                                        const QString& message)
{
    showError(writeFailureText(feature, kind, message));
}

QString FeatureStatusBar::writeFailureText(const QString& feature,
                                           ParameterCollection::Exception::Kind kind,
                                           const QString& message)
{
    using ParameterCollection::Exception;
    const QString name = feature.contains(QLatin1Char('/'))
                             ? ParameterCollection::ParameterName(feature).feature()
                             : feature;
    QString reason = message.trimmed();
    // Aravis starts its messages with the node's name; the line names the feature already.
    const QString prefix = QStringLiteral("[%1]").arg(name);
    if (reason.startsWith(prefix)) {
        reason = reason.mid(prefix.size()).trimmed();
    }
    QString what;
    switch (kind) {
    case Exception::Access:
        what = tr("refused by the camera (access denied)");
        break;
    case Exception::Range:
        what = tr("refused by the camera (value out of range)");
        break;
    case Exception::InvalidArgument:
        what = tr("refused by the camera (invalid value)");
        break;
    case Exception::Timeout:
        what = tr("not written: the camera did not answer in time");
        break;
    case Exception::DeviceLost:
        what = tr("not written: the camera is lost");
        break;
    case Exception::NotFound:
        what = tr("not written: the camera does not have it");
        break;
    case Exception::Generic:
        what = tr("the write failed");
        break;
    }
    QStringList parts{name, what, reason};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(": "));
}

QString FeatureStatusBar::withoutRepeatedName(const QString& text)
{
    static const QRegularExpression repeated(
        QStringLiteral("^\\[([^\\]]+)\\]\\s+(?:\\[\\1\\]\\s*|\\1:\\s*)+"));
    const QRegularExpressionMatch match = repeated.match(text);
    if (!match.hasMatch()) {
        return text;
    }
    return QStringLiteral("[%1] ").arg(match.captured(1)) + text.mid(match.capturedLength());
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
