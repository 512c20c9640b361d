#pragma once

#include "internal/legacy/abstractitemeditor.h"

#include <QComboBox>
#include <QPointer>

class QEvent;
class QWheelEvent;

// Enumeration values: the entries' display names, each carrying its symbolic name, which is
// what gets written.
class EnumEditor : public QComboBox, public AbstractItemEditor {
    Q_OBJECT
public:
    explicit EnumEditor(QWidget* parent = nullptr);

    void setEditorData(AbstractItemEditor::EditorData data) override;
    // The current entry's symbolic name; invalid while no entry is current, so that nothing
    // the user did not pick is ever written.
    QVariant editorData() override;

    void showPopup() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    // The open popup, null while none is open.
    QWidget* watchedPopup() const { return m_popup; }

Q_SIGNALS:
    // The user picked an entry, from the popup, the keyboard or the wheel; loading data never
    // emits it.
    void valueEdited();

protected:
    void wheelEvent(QWheelEvent* event) override;

private:
    void load(const AbstractItemEditor::EditorData& data);
    void loadPending();

    QPointer<QWidget> m_popup;
    // Data that arrived while the popup was open, loaded once it has closed.
    AbstractItemEditor::EditorData m_pending;
    bool m_hasPending = false;
};
