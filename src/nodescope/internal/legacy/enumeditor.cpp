#include "internal/legacy/enumeditor.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDebug>
#include <QEvent>
#include <QTimer>
#include <QWheelEvent>

using ParameterCollection::EnumParameterData;

EnumEditor::EnumEditor(QWidget* parent) : QComboBox(parent)
{
    setEditable(false);
    setStyleSheet(QStringLiteral("margin-left:1px; margin-right:1px; margin-top:1px; "
                                 "margin-bottom:1px; padding-left: 4px;"));
    // No wheel focus: scrolling the tree across a closed box must not change the camera.
    setFocusPolicy(Qt::StrongFocus);
    // activated() is the user's choice only; currentIndexChanged() also fires while loading.
    connect(this, QOverload<int>::of(&QComboBox::activated), this, &EnumEditor::valueEdited);
}

void EnumEditor::setEditorData(AbstractItemEditor::EditorData data)
{
    if (m_popup) {
        // Rebuilding the list under the open popup would move the row the user is on.
        m_pending = data;
        m_hasPending = true;
        return;
    }
    m_hasPending = false;
    m_pending = {};
    load(data);
}

void EnumEditor::load(const AbstractItemEditor::EditorData& data)
{
    clear();
    if (!data.parameter) {
        return;
    }
    try {
        const auto parameterData = data.parameter->getParameterData();
        const auto* enumData = dynamic_cast<const EnumParameterData*>(parameterData.data());
        if (!enumData || enumData->type != ParameterCollection::EnumerationType) {
            qDebug("%s is called with non-enumeration node????",
                   qUtf8Printable(data.parameter->getName()));
            return;
        }
        for (const EnumParameterData::Entry& entry : enumData->entries) {
            addItem(entry.displayName, entry.name);
        }
        setCurrentIndex(-1);
        const int index = findData(enumData->value, Qt::UserRole, Qt::MatchCaseSensitive);
        if (index >= 0) {
            setCurrentIndex(index);
        } else {
            qDebug() << ": " << qUtf8Printable(data.parameter->getName())
                     << ". No entry in the combo box matches the current value "
                     << qUtf8Printable(enumData->value.toString());
        }
        // Read-only and locked enumerations are shown, not offered.
        if (isEnabled() != enumData->writable) {
            setEnabled(enumData->writable);
        }
    } catch (...) {
        // The parameter went away under us; an empty box is all there is to show.
    }
}

QVariant EnumEditor::editorData()
{
    return currentData(Qt::UserRole);
}

void EnumEditor::showPopup()
{
    QComboBox::showPopup();
    QWidget* popup = QApplication::activePopupWidget();
    // An empty box opens nothing; whatever popup is up then belongs to someone else.
    if (!popup || !popup->isAncestorOf(view())) {
        return;
    }
    if (m_popup && m_popup != popup) {
        m_popup->removeEventFilter(this);
    }
    m_popup = popup;
    m_popup->installEventFilter(this);
}

bool EnumEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (m_popup && watched == m_popup && event->type() == QEvent::Hide) {
        m_popup->removeEventFilter(this);
        m_popup = nullptr;
        if (m_hasPending) {
            // Not now: the combo box still has to report the entry that closed the popup.
            QTimer::singleShot(0, this, &EnumEditor::loadPending);
        }
    }
    return QComboBox::eventFilter(watched, event);
}

void EnumEditor::loadPending()
{
    if (!m_hasPending || m_popup) {
        return;
    }
    const AbstractItemEditor::EditorData data = m_pending;
    m_hasPending = false;
    m_pending = {};
    load(data);
}

void EnumEditor::wheelEvent(QWheelEvent* event)
{
    if (!hasFocus()) {
        event->ignore(); // let the view scroll
        return;
    }
    QComboBox::wheelEvent(event);
}
