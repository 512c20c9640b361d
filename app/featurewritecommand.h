#pragma once

#include <QDateTime>
#include <QString>
#include <QUndoCommand>
#include <QVariant>
#include <QVector>

namespace VantoViewer {

// One undo step of a camera: the values that one or more features had before the user changed
// them, and the values written. The step writes nothing itself: the change journal writes the
// values and moves the stack only once the device took every one of them, so that a stack
// never claims a change the camera refused to take back.
class FeatureWriteCommand : public QUndoCommand {
public:
    struct Change {
        QString fullName;
        QVariant oldValue; // in a form the parameter layer writes back
        QString oldText;
        QVariant newValue;
        QString newText;
    };

    // `mergeWindowMs` > 0: a later single change of the same feature issued within that time
    // of this one (a slider drag, a spin box wheeled) joins this step.
    FeatureWriteCommand(const QString& text, QVector<Change> changes, const QDateTime& issued,
                        int mergeWindowMs);

    void undo() override {}
    void redo() override {}
    int id() const override;
    bool mergeWith(const QUndoCommand* other) override;

    const QVector<Change>& changes() const { return m_changes; }

private:
    QVector<Change> m_changes;
    QDateTime m_lastIssued;
    int m_mergeWindowMs;
    bool m_group;
};

} // namespace VantoViewer
