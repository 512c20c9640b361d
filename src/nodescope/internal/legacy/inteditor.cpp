#include "inteditor.h"

#include "editnotice.h"
#include "hexvalidator.h"
#include "integereditordata.h"
#include "trimtoint32.h"

#include <QIntValidator>
#include <QKeyEvent>
#include <QLocale>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QStringList>

#include <limits>

using namespace ParameterCollection;

namespace {

bool fitsInt32(long long minimum, long long maximum)
{
    return minimum >= std::numeric_limits<int>::min() && maximum <= std::numeric_limits<int>::max();
}

QLocale numberLocale()
{
    QLocale c = QLocale::c();
    c.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    return c;
}

bool isAddress(const QString& representation)
{
    return representation == QLatin1String("IPV4Address") ||
           representation == QLatin1String("MACAddress");
}

// "192.168.0.1" and "00:1A:2B:3C:4D:5E" as the decimal text the parameter layer takes, and
// a null text for an address that is none; any other text is handed on unchanged.
QString numericText(const QString& text, const QString& representation)
{
    const QString trimmed = text.trimmed();
    if (representation == QLatin1String("IPV4Address")) {
        const QStringList parts = trimmed.split(QLatin1Char('.'));
        if (parts.size() != 4) {
            return QString();
        }
        quint32 address = 0;
        for (const QString& part : parts) {
            bool ok = false;
            const uint byte = part.toUInt(&ok, 10);
            if (!ok || byte > 255) {
                return QString();
            }
            address = (address << 8) | byte;
        }
        return QString::number(address);
    }
    if (representation == QLatin1String("MACAddress")) {
        const QStringList parts = trimmed.split(QLatin1Char(':'));
        if (parts.size() != 6) {
            return QString();
        }
        quint64 address = 0;
        for (const QString& part : parts) {
            bool ok = false;
            const uint byte = part.toUInt(&ok, 16);
            if (!ok || part.size() > 2) {
                return QString();
            }
            address = (address << 8) | byte;
        }
        return QString::number(address);
    }
    return text;
}

// Decimal, or "0x" hexadecimal as the parameter layer takes it.
bool parseInteger(const QString& text, qint64* value)
{
    const QString trimmed = text.trimmed();
    bool ok = false;
    const qint64 number = trimmed.startsWith(QLatin1String("0x"))
                              ? trimmed.mid(2).toLongLong(&ok, 16)
                              : trimmed.toLongLong(&ok, 10);
    if (ok) {
        *value = number;
    }
    return ok;
}

} // namespace

IntEditor::IntEditor(QWidget* parent) : QLineEdit(parent)
{
    setFrame(false);
    setContentsMargins(1, 0, 1, 0);
    connect(this, &QLineEdit::inputRejected, this, &IntEditor::onInputRejected);
}

void IntEditor::setEditorData(AbstractItemEditor::EditorData data)
{
    try {
        const QSharedPointer<const IntegerParameterData> integer =
            integerEditorData(data.parameter.data());
        if (!integer) {
            return;
        }
        const QString& representation = integer->representation;
        m_feature = EditNotice::featureLabel(data.parameter.data());
        m_minimum = integer->min;
        m_maximum = integer->max;
        m_current = integer->readable ? integer->displayText : tr("<not readable>");
        if (!integer->readable) {
            m_representation = representation;
            // No range is known; the placeholder text fails the check and so is never written
            // back, while any number can be typed over it.
            setCheck(representation == QLatin1String("HexNumber") ? Check::Hex : Check::Decimal,
                     std::numeric_limits<long long>::min(), std::numeric_limits<long long>::max());
            setReadOnly(!integer->writable);
            setEditorText(tr("<not readable>"));
            setToolTip(QString());
            return;
        }
        const bool hex = representation == QLatin1String("HexNumber");
        if (hex || representation == QLatin1String("PureNumber") ||
            representation == QLatin1String("Linear") ||
            representation == QLatin1String("Logarithmic")) {
            m_representation = representation;
            setCheck(hex ? Check::Hex : Check::Decimal, integer->min, integer->max);
            // Read-only and locked values can still be selected and copied, not typed over.
            setReadOnly(!integer->writable);
            setEditorText(QStringLiteral("%1").arg(integer->displayText));
            const int minimum = trimToInt32(integer->min);
            const int maximum = trimToInt32(integer->max);
            const int base = hex ? 16 : 10;
            QString range =
                hex ? tr("Range: 0x%1..0x%2")
                          .arg(QString::number(minimum, base), QString::number(maximum, base))
                    : tr("Range: %1..%2")
                          .arg(QString::number(minimum, base), QString::number(maximum, base));
            if (integer->increment != 1) {
                range += QLatin1Char('\n') +
                         tr("Increment: %1").arg(QString::number(integer->increment, base));
            }
            setToolTip(EditNotice::withUnit(range, integer->unit));
        } else if (representation == QLatin1String("IPV4Address") ||
                   representation == QLatin1String("Boolean") ||
                   representation == QLatin1String("MACAddress")) {
            m_representation = representation;
            setCheck(Check::None, 0, 0);
            setReadOnly(!integer->writable);
            setEditorText(integer->displayText);
            setToolTip(QString());
        } else {
            qDebug("Unexpected representation.");
        }
    } catch (...) {
        // A parameter that fails to answer leaves the editor as it was.
    }
}

QVariant IntEditor::editorData()
{
    const QString numeric = numericText(text(), m_representation);
    if (numeric.isNull() && isAddress(m_representation)) {
        const QString typed = text();
        showCurrentValue();
        Q_EMIT notice(EditNotice::notAnAddress(m_feature, typed, m_representation, m_current));
        return QVariant();
    }
    return QVariant(numeric);
}

void IntEditor::keyPressEvent(QKeyEvent* event)
{
    // Only a typed character can be refused as such; pasted text is told as a whole.
    if (!event->text().isEmpty() && event->text().at(0).isPrint()) {
        QString attempt = text();
        if (hasSelectedText()) {
            attempt.replace(selectionStart(), selectedText().size(), event->text());
        } else {
            attempt.insert(cursorPosition(), event->text());
        }
        m_attempt = attempt;
    } else {
        m_attempt = text();
    }
    QLineEdit::keyPressEvent(event);
}

void IntEditor::onInputRejected()
{
    const QString attempt = m_attempt;
    // Not from inside the line edit's own handling of the key.
    QMetaObject::invokeMethod(
        this,
        [this, attempt] {
            showCurrentValue();
            qint64 number = 0;
            Q_EMIT notice(parseInteger(attempt, &number)
                              ? EditNotice::outOfRange(m_feature, attempt, number, m_minimum,
                                                       m_maximum, m_current)
                              : EditNotice::notANumber(m_feature, attempt, m_current));
        },
        Qt::QueuedConnection);
}

void IntEditor::showCurrentValue()
{
    setText(m_current);
    setModified(false);
    selectAll();
}

void IntEditor::setCheck(Check check, long long minimum, long long maximum)
{
    const QValidator* old = validator();
    if (check == Check::None) {
        setValidator(nullptr);
    } else if (fitsInt32(minimum, maximum)) {
        const int bottom = trimToInt32(minimum);
        const int top = trimToInt32(maximum);
        if (check == Check::Hex) {
            auto* current = qobject_cast<const HexValidator*>(old);
            if (current && current->bottom() == bottom && current->top() == top) {
                return;
            }
            setValidator(new HexValidator(bottom, top, this));
        } else {
            auto* current = qobject_cast<const QIntValidator*>(old);
            if (current && !qobject_cast<const HexValidator*>(old) && current->bottom() == bottom &&
                current->top() == top) {
                return;
            }
            auto* validator = new QIntValidator(bottom, top, this);
            validator->setLocale(numberLocale());
            setValidator(validator);
        }
    } else {
        // Wider than an int: only the form is checked here, the range by the parameter layer.
        const QString pattern = check == Check::Hex ? QStringLiteral("0x[0-9A-Fa-f]+|[+-]?[0-9]+")
                                                    : QStringLiteral("[+-]?[0-9]+");
        auto* current = qobject_cast<const QRegularExpressionValidator*>(old);
        if (current && current->regularExpression().pattern() == pattern) {
            return;
        }
        setValidator(new QRegularExpressionValidator(QRegularExpression(pattern), this));
    }
    if (old && old->parent() == this) {
        delete old;
    }
}

void IntEditor::setEditorText(const QString& newText)
{
    // Text the user is typing is not overwritten by a refresh of the same editor.
    if (hasFocus() && isModified()) {
        return;
    }
    if (text() != newText) {
        setText(newText);
    }
}
