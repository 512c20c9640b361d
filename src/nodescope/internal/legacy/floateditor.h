#pragma once

#include "internal/legacy/abstractitemeditor.h"

#include <QSharedPointer>
#include <QString>
#include <QWidget>

class DoubleSpinBox;
class FloatAliasFollower;

// The value editor of a float feature without a slider representation: a spin box with the
// feature's unit, notation, precision and range. Where the collection has a parameter named
// by the alias key (the feature's full name + "/Alias"), the editor shows and edits that alias
// instead, writing it itself.
class FloatEditor : public QWidget, public AbstractItemEditor {
    Q_OBJECT
public:
    FloatEditor(QWidget* parent, QString aliasKey);

    void setEditorData(AbstractItemEditor::EditorData data) override;
    // The spin box's value. While an alias is followed, the feature's own current value
    // instead: the alias is written by the editor, and the model must see nothing to write.
    QVariant editorData() override;

    DoubleSpinBox* spinBox() const { return m_spinBox; }
    QString aliasKey() const { return m_aliasKey; }
    // The alias being followed; null when the feature is edited directly.
    QSharedPointer<ParameterCollection::IParameter> alias() const;

Q_SIGNALS:
    // The user changed the value; never emitted while data is loaded.
    void boxValueChanged(double value);
    // For the status line: typing that was not written as typed, and why.
    void notice(const QString& text);

private:
    void load();
    void onSpinBoxValueChanged(double value);
    void onTypingCommitted(const QString& typed);
    void onTypingRefused(const QString& attempt);

    DoubleSpinBox* m_spinBox = nullptr;       // a child of this widget
    FloatAliasFollower* m_follower = nullptr; // a child of this widget
    QString m_aliasKey;
    bool m_emit = true;
};
