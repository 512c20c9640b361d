#pragma once

#include "internal/legacy/abstractitemeditor.h"
#include "internal/legacy/twomodedoublecomboslider.h"

#include <QSharedPointer>

class FloatAliasFollower;

// The value editor of a float feature with the "Linear" or "Logarithmic" representation: a
// slider in that mode and a spin box. Where the collection has a parameter named after the
// feature's full name + "/Alias", the editor shows and edits that alias instead, writing it
// itself.
class FloatSliderEditor : public TwoModeDoubleComboSlider, public AbstractItemEditor {
    Q_OBJECT
public:
    FloatSliderEditor(QWidget* parent,
                      QSharedPointer<ParameterCollection::IParameterCollection> collection);

    void setEditorData(AbstractItemEditor::EditorData data) override;
    // The slider's value. While an alias is followed, the feature's own current value instead:
    // the alias is written by the editor, and the model must see nothing to write.
    QVariant editorData() override;

    // The alias being followed; null when the feature is edited directly.
    QSharedPointer<ParameterCollection::IParameter> alias() const;

Q_SIGNALS:
    // The user changed the value; never emitted while data is loaded.
    void boxValueChanged(double value);
    // For the status line: typing that was not written as typed, and why.
    void notice(const QString& text);

private:
    void load();
    void onValueChanged(double value);
    void onTypingCommitted(const QString& typed);
    void onTypingRefused(const QString& attempt);

    QSharedPointer<ParameterCollection::IParameterCollection> m_collection;
    FloatAliasFollower* m_follower = nullptr; // a child of this widget
};
