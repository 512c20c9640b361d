#pragma once

#include "featurewritecommand.h"

#include <camerapool/ibaseinfo.h>
#include <deviceparametercollection.h>
#include <featuresettransfer.h>

#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QSharedPointer>
#include <QVector>

#include <memory>

class QAction;
class QUndoGroup;
class QUndoStack;

namespace ParameterCollection {
class IParameterCollection;
} // namespace ParameterCollection

namespace VantoViewer {

class FeatureSetLoadCommand;

// What the user wrote to each open camera, when, from which value to which, and whether the
// camera took it; with an undo stack per camera whose undo writes the old values back. The
// writes are heard from the cameras' parameter collections, whatever panel made them.
class ChangeJournal : public QObject {
    Q_OBJECT
public:
    using BaseInfoPtr = QSharedPointer<Plugin::CameraPool::IBaseInfo>;
    using Origin = Backend::DeviceParameterCollection::WriteOrigin;
    using Change = FeatureWriteCommand::Change;

    struct Entry {
        QDateTime time;
        QString feature; // full name; for a group, its title
        QString oldText;
        bool oldKnown = false;
        QString newText;
        bool done = false;
        QString reason; // why it was refused
        Origin origin = Origin::User;
        bool command = false;
        int groupSize = 0; // > 0: the entry stands for a step of this many features
    };

    // Consecutive writes of one feature less than this apart make one entry and one step.
    static constexpr int DEFAULT_MERGE_WINDOW_MS = 500;

    explicit ChangeJournal(QObject* parent = nullptr);
    ~ChangeJournal() override;

    // Journals the writes to the camera's collection; a collection of another kind than the
    // backend's is not journaled.
    void addCamera(const BaseInfoPtr& info,
                   const QSharedPointer<ParameterCollection::IParameterCollection>& collection);
    void removeCamera(const BaseInfoPtr& info);
    // The camera opened again: its journal and steps go on with the new collection.
    void replaceCamera(const BaseInfoPtr& old, const BaseInfoPtr& info,
                       const QSharedPointer<ParameterCollection::IParameterCollection>& collection);
    void setActiveCamera(const BaseInfoPtr& info);
    // An identity only: the camera whose journal and stack are the active ones, or null.
    const Plugin::CameraPool::IBaseInfo* activeCamera() const { return m_active; }

    QVector<Entry> entries(const BaseInfoPtr& info) const;
    QVector<Entry> activeEntries() const;
    QUndoGroup* undoGroup() const { return m_group; }
    QUndoStack* undoStack(const BaseInfoPtr& info) const;

    // Many features written as one thing the user did (a feature set loaded): one entry and one
    // undo step, whose undo writes every old value back. The writes themselves should carry
    // the Batch origin (DeviceParameterCollection::setWriteOrigin) so that they are journaled
    // without becoming steps of their own. Changes whose old value is unknown are left out of
    // the step.
    void recordGroup(const BaseInfoPtr& info, const QString& title, const QVector<Change>& changes);
    // A feature set loaded from `source` (a file's name): one entry and one undo step, whose
    // undo writes back, on the device thread, what every feature the load changed held before,
    // selected features under their selector values and the selectors last; its redo writes
    // what the load wrote. A load that changed nothing is journaled without a step.
    void recordLoad(const BaseInfoPtr& info, const QString& source,
                    const Backend::FeatureSetTransfer::LoadReport& report);

    // Write the old (new) values of the active camera's step back; the stack moves once the
    // device took them all. A refusal is reported and leaves the stack where it was.
    void undo();
    void redo();
    // An undo or redo waits for the device.
    bool isBusy() const { return m_operation != nullptr; }

    void setMergeWindow(int ms) { m_mergeWindowMs = ms; }

    // Edit menu entries: Ctrl+Z and Ctrl+Shift+Z in the window, which a focused text field
    // takes first for its own undo.
    QAction* undoAction() const { return m_undoAction; }
    QAction* redoAction() const { return m_redoAction; }

Q_SIGNALS:
    void entryAdded(const Plugin::CameraPool::IBaseInfo* camera, int row);
    void entryChanged(const Plugin::CameraPool::IBaseInfo* camera, int row);
    void activeCameraChanged();
    // An undo or redo that the camera took, or why it did not.
    void applied(const QString& message);
    void refused(const QString& message);

private:
    struct Camera {
        QPointer<Backend::DeviceParameterCollection> collection;
        QUndoStack* stack = nullptr; // child of the group's owner, this
        QVector<Entry> entries;
    };
    struct Operation;

    void watch(const Plugin::CameraPool::IBaseInfo* key,
               const QSharedPointer<ParameterCollection::IParameterCollection>& collection);
    void onWriteFinished(const Plugin::CameraPool::IBaseInfo* key,
                         const Backend::DeviceParameterCollection::WriteRecord& record);
    void append(const Plugin::CameraPool::IBaseInfo* key, const Entry& entry);
    void apply(bool undo);
    // The step of a load: its values go back by a transfer, not one write at a time.
    void applyLoad(const Camera& camera, const FeatureSetLoadCommand& step);
    void finishIfAnswered();
    void updateActions();
    QString stepText(const QString& fullName, const QString& value) const;

    QHash<const Plugin::CameraPool::IBaseInfo*, Camera> m_cameras;
    const Plugin::CameraPool::IBaseInfo* m_active = nullptr;
    QUndoGroup* m_group;   // child
    QAction* m_undoAction; // child
    QAction* m_redoAction; // child
    std::unique_ptr<Operation> m_operation;
    int m_mergeWindowMs = DEFAULT_MERGE_WINDOW_MS;
};

} // namespace VantoViewer

Q_DECLARE_METATYPE(const Plugin::CameraPool::IBaseInfo*)
