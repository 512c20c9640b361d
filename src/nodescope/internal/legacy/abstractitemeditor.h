#pragma once

#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>

#include <QSharedPointer>
#include <QVariant>

// What the delegate needs of every value editor: load it from a parameter, read back the value
// to write. Mixed into each editor widget as its second base.
class AbstractItemEditor {
public:
    struct EditorData {
        QSharedPointer<ParameterCollection::IParameter> parameter;
        QSharedPointer<ParameterCollection::IParameterCollection> collection;
    };

    virtual void setEditorData(AbstractItemEditor::EditorData data) = 0;
    virtual QVariant editorData() = 0;
    virtual ~AbstractItemEditor() = default;
};
