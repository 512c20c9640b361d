#include "changejournal.h"

#include "featuresetloadcommand.h"

#include <featuresetjob.h>

#include <camerapool/ibaseinfo.h>
#include <parametercollection/exception.h>
#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>

#include <QAction>
#include <QKeySequence>
#include <QUndoGroup>
#include <QUndoStack>

namespace VantoViewer {

using Backend::DeviceParameterCollection;
using Backend::FeatureSetJob;
using Backend::FeatureSetTransfer;
using Plugin::CameraPool::IBaseInfo;

// An undo or redo under way: the writes it issued and what the device said to them.
struct ChangeJournal::Operation {
    const IBaseInfo* camera = nullptr;
    bool undo = true;
    bool issuing = true;
    int issued = 0;
    int answered = 0;
    QString title;
    QStringList refusals;
    QPointer<FeatureSetJob> job; // a load's step going back; child of the journal

    Operation() = default;
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;
    ~Operation()
    {
        if (job) {
            // Its answer may be on its way: the job goes once the event loop is back.
            job->cancel();
            job->deleteLater();
        }
    }
};

ChangeJournal::ChangeJournal(QObject* parent)
    : QObject(parent), m_group(new QUndoGroup(this)), m_undoAction(new QAction(tr("&Undo"), this)),
      m_redoAction(new QAction(tr("&Redo"), this))
{
    qRegisterMetaType<const IBaseInfo*>();
    m_undoAction->setObjectName(QStringLiteral("VantoViewer.Edit.Undo"));
    m_redoAction->setObjectName(QStringLiteral("VantoViewer.Edit.Redo"));
    // Window-wide, not application-wide: a text field with the focus claims these keys for its
    // own undo before the window sees them.
    m_undoAction->setShortcut(QKeySequence(Qt::CTRL + Qt::Key_Z));
    m_redoAction->setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_Z));
    m_undoAction->setShortcutContext(Qt::WindowShortcut);
    m_redoAction->setShortcutContext(Qt::WindowShortcut);
    connect(m_undoAction, &QAction::triggered, this, &ChangeJournal::undo);
    connect(m_redoAction, &QAction::triggered, this, &ChangeJournal::redo);
    connect(m_group, &QUndoGroup::indexChanged, this, &ChangeJournal::updateActions);
    connect(m_group, &QUndoGroup::activeStackChanged, this, &ChangeJournal::updateActions);
    updateActions();
}

ChangeJournal::~ChangeJournal() = default;

void ChangeJournal::addCamera(
    const BaseInfoPtr& info,
    const QSharedPointer<ParameterCollection::IParameterCollection>& collection)
{
    if (!info || m_cameras.contains(info.data())) {
        return;
    }
    Camera& camera = m_cameras[info.data()];
    camera.stack = new QUndoStack(this);
    m_group->addStack(camera.stack);
    watch(info.data(), collection);
}

void ChangeJournal::watch(
    const IBaseInfo* key,
    const QSharedPointer<ParameterCollection::IParameterCollection>& collection)
{
    auto* device = qobject_cast<DeviceParameterCollection*>(collection.data());
    Camera& camera = m_cameras[key];
    if (camera.collection) {
        disconnect(camera.collection, nullptr, this, nullptr);
    }
    camera.collection = device;
    if (device) {
        connect(device, &DeviceParameterCollection::writeFinished, this,
                [this, key](const DeviceParameterCollection::WriteRecord& record) {
                    onWriteFinished(key, record);
                });
    }
}

void ChangeJournal::removeCamera(const BaseInfoPtr& info)
{
    const auto it = m_cameras.find(info.data());
    if (it == m_cameras.end()) {
        return;
    }
    if (m_operation && m_operation->camera == info.data()) {
        m_operation.reset();
    }
    if (it->collection) {
        disconnect(it->collection, nullptr, this, nullptr);
    }
    QUndoStack* stack = it->stack;
    m_cameras.erase(it);
    m_group->removeStack(stack);
    delete stack;
    if (m_active == info.data()) {
        m_active = nullptr;
        Q_EMIT activeCameraChanged();
    }
    updateActions();
}

void ChangeJournal::replaceCamera(
    const BaseInfoPtr& old, const BaseInfoPtr& info,
    const QSharedPointer<ParameterCollection::IParameterCollection>& collection)
{
    const auto it = m_cameras.find(old.data());
    if (it == m_cameras.end() || !info) {
        addCamera(info, collection);
        return;
    }
    if (m_operation && m_operation->camera == old.data()) {
        m_operation.reset();
    }
    if (it->collection) {
        disconnect(it->collection, nullptr, this, nullptr);
    }
    const Camera camera = *it;
    m_cameras.erase(it);
    m_cameras.insert(info.data(), camera);
    watch(info.data(), collection);
    if (m_active == old.data()) {
        m_active = info.data();
        Q_EMIT activeCameraChanged();
    }
    updateActions();
}

void ChangeJournal::setActiveCamera(const BaseInfoPtr& info)
{
    const IBaseInfo* key = m_cameras.contains(info.data()) ? info.data() : nullptr;
    m_group->setActiveStack(key ? m_cameras.value(key).stack : nullptr);
    if (key != m_active) {
        m_active = key;
        Q_EMIT activeCameraChanged();
    }
    updateActions();
}

QVector<ChangeJournal::Entry> ChangeJournal::entries(const BaseInfoPtr& info) const
{
    return m_cameras.value(info.data()).entries;
}

QVector<ChangeJournal::Entry> ChangeJournal::activeEntries() const
{
    return m_active ? m_cameras.value(m_active).entries : QVector<Entry>();
}

QUndoStack* ChangeJournal::undoStack(const BaseInfoPtr& info) const
{
    return m_cameras.value(info.data()).stack;
}

QString ChangeJournal::stepText(const QString& fullName, const QString& value) const
{
    return tr("Set %1 to %2").arg(fullName.section(QLatin1Char('/'), -1), value);
}

void ChangeJournal::onWriteFinished(const IBaseInfo* key,
                                    const DeviceParameterCollection::WriteRecord& record)
{
    auto it = m_cameras.find(key);
    if (it == m_cameras.end()) {
        return;
    }
    Entry entry;
    entry.time = record.issued;
    entry.feature = record.fullName;
    entry.oldKnown = record.oldValue.isValid();
    entry.oldText = record.oldText;
    entry.newText = record.newText;
    entry.done = record.done;
    entry.reason = record.reason;
    entry.origin = record.origin;
    entry.command = record.command;

    const bool mergeable =
        record.origin == Origin::User && record.done && !record.command && m_mergeWindowMs > 0;
    QVector<Entry>& entries = it->entries;
    if (mergeable && !entries.isEmpty()) {
        Entry& last = entries.last();
        const qint64 gap = last.time.msecsTo(record.issued);
        if (last.origin == Origin::User && last.done && !last.command && last.groupSize == 0 &&
            last.feature == record.fullName && gap >= 0 && gap <= m_mergeWindowMs) {
            last.newText = record.newText;
            last.time = record.issued;
            Q_EMIT entryChanged(key, entries.size() - 1);
            entry.time = QDateTime(); // merged: no entry of its own
        }
    }
    if (entry.time.isValid()) {
        append(key, entry);
    }

    if (record.origin == Origin::User && record.done && !record.command &&
        record.oldValue.isValid() && record.oldValue != record.newValue) {
        Change change{record.fullName, record.oldValue, record.oldText, record.newValue,
                      record.newText};
        // The stack merges the step into the previous one when they form one drag.
        it->stack->push(new FeatureWriteCommand(stepText(record.fullName, record.newText), {change},
                                                record.issued, m_mergeWindowMs));
    }

    const bool undoing = record.origin == Origin::Undo || record.origin == Origin::Redo;
    if (undoing && m_operation && m_operation->camera == key) {
        ++m_operation->answered;
        if (!record.done) {
            m_operation->refusals.append(QStringLiteral("%1: %2").arg(
                record.fullName.section(QLatin1Char('/'), -1), record.reason));
        }
        finishIfAnswered();
    }
}

void ChangeJournal::append(const IBaseInfo* key, const Entry& entry)
{
    QVector<Entry>& entries = m_cameras[key].entries;
    entries.append(entry);
    Q_EMIT entryAdded(key, entries.size() - 1);
}

void ChangeJournal::recordGroup(const BaseInfoPtr& info, const QString& title,
                                const QVector<Change>& changes)
{
    const auto it = m_cameras.find(info.data());
    if (it == m_cameras.end()) {
        return;
    }
    QVector<Change> undoable;
    for (const Change& change : changes) {
        if (change.oldValue.isValid()) {
            undoable.append(change);
        }
    }
    Entry entry;
    entry.time = QDateTime::currentDateTime();
    entry.feature = title;
    entry.oldKnown = true;
    entry.newText = tr("%n feature(s)", nullptr, changes.size());
    entry.done = true;
    entry.origin = Origin::Batch;
    entry.groupSize = changes.size();
    append(info.data(), entry);
    if (!undoable.isEmpty()) {
        // A group of one is still a group: it must not merge with a later edit.
        auto* step = new FeatureWriteCommand(title, undoable, entry.time, 0);
        it->stack->push(step);
    }
}

void ChangeJournal::recordLoad(const BaseInfoPtr& info, const QString& source,
                               const FeatureSetTransfer::LoadReport& report)
{
    const auto it = m_cameras.find(info.data());
    if (it == m_cameras.end()) {
        return;
    }
    auto step = std::make_unique<FeatureSetLoadCommand>(tr("Load %1").arg(source), report);
    Entry entry;
    entry.time = QDateTime::currentDateTime();
    entry.feature = step->text();
    entry.oldKnown = true;
    entry.newText = tr("%n feature(s)", nullptr, step->featureCount());
    entry.done = true;
    entry.origin = Origin::Batch;
    entry.groupSize = step->featureCount();
    append(info.data(), entry);
    if (step->featureCount() > 0) {
        it->stack->push(step.release());
    }
}

void ChangeJournal::undo()
{
    apply(true);
}

void ChangeJournal::redo()
{
    apply(false);
}

void ChangeJournal::apply(bool undo)
{
    if (m_operation || !m_active) {
        return;
    }
    const Camera camera = m_cameras.value(m_active);
    QUndoStack* stack = camera.stack;
    if (!stack || (undo ? !stack->canUndo() : !stack->canRedo())) {
        return;
    }
    const QUndoCommand* command = stack->command(undo ? stack->index() - 1 : stack->index());
    m_operation = std::make_unique<Operation>();
    m_operation->camera = m_active;
    m_operation->undo = undo;
    m_operation->title = command->text();
    updateActions();
    if (const auto* load = dynamic_cast<const FeatureSetLoadCommand*>(command)) {
        applyLoad(camera, *load);
        return;
    }
    const auto* step = static_cast<const FeatureWriteCommand*>(command);
    DeviceParameterCollection* collection = camera.collection;
    if (!collection) {
        m_operation->refusals.append(tr("the camera is closed"));
    } else {
        // Undo takes the changes back last first, so that a feature that decides another's
        // range is back before that one is.
        QVector<Change> changes = step->changes();
        if (undo) {
            std::reverse(changes.begin(), changes.end());
        }
        collection->setWriteOrigin(undo ? Origin::Undo : Origin::Redo);
        for (const Change& change : qAsConst(changes)) {
            const auto parameter = collection->getParameter(change.fullName);
            if (!parameter) {
                m_operation->refusals.append(
                    tr("%1: the camera has no such feature").arg(change.fullName));
                continue;
            }
            ++m_operation->issued;
            try {
                parameter->setValue(undo ? change.oldValue : change.newValue);
            } catch (const ParameterCollection::Exception&) {
                // The collection journaled the refusal with its reason already.
            }
            if (!m_operation) {
                break; // the camera went meanwhile
            }
        }
        collection->setWriteOrigin(Origin::User);
    }
    if (m_operation) {
        m_operation->issuing = false;
        finishIfAnswered();
    }
}

void ChangeJournal::applyLoad(const Camera& camera, const FeatureSetLoadCommand& step)
{
    DeviceParameterCollection* collection = camera.collection;
    if (!collection) {
        m_operation->refusals.append(tr("the camera is closed"));
        m_operation->issuing = false;
        finishIfAnswered();
        return;
    }
    const IBaseInfo* key = m_operation->camera;
    const bool undo = m_operation->undo;
    const int features = step.featureCount();
    auto* job = new FeatureSetJob(collection, this);
    m_operation->job = job;
    ++m_operation->issued;
    // The camera's answer: journaled as one entry, like the step it undoes or redoes.
    const auto answer = [this, job, key, undo, features](const QStringList& refusals) {
        if (!m_operation || m_operation->job != job) {
            return; // the camera went meanwhile
        }
        Entry entry;
        entry.time = QDateTime::currentDateTime();
        entry.feature = m_operation->title;
        entry.oldKnown = true;
        entry.newText = tr("%n feature(s)", nullptr, features);
        entry.done = refusals.isEmpty();
        entry.reason = refusals.join(QStringLiteral("; "));
        entry.origin = undo ? Origin::Undo : Origin::Redo;
        entry.groupSize = features;
        append(key, entry);
        m_operation->refusals += refusals;
        ++m_operation->answered;
        finishIfAnswered();
    };
    connect(job, &FeatureSetJob::loaded, this,
            [answer](const FeatureSetTransfer::LoadReport& report) {
                QStringList refusals;
                for (const FeatureSetTransfer::Failure& failure : report.failures) {
                    refusals.append(QStringLiteral("%1: %2").arg(
                        failure.name, failure.message.isEmpty()
                                          ? FeatureSetTransfer::reasonText(failure.reason)
                                          : failure.message));
                }
                answer(refusals);
            });
    connect(job, &FeatureSetJob::failed, this,
            [answer](const QString& reason) { answer({reason}); });
    // The transfer orders the writes by the dependency graph and puts the selectors back last.
    job->load(undo ? step.before() : step.after());
    if (m_operation) {
        m_operation->issuing = false;
        finishIfAnswered();
    }
}

void ChangeJournal::finishIfAnswered()
{
    if (!m_operation || m_operation->issuing || m_operation->answered < m_operation->issued) {
        return;
    }
    const std::unique_ptr<Operation> operation = std::move(m_operation);
    const auto it = m_cameras.find(operation->camera);
    if (operation->refusals.isEmpty() && it != m_cameras.end()) {
        // The commands write nothing: this only moves the index.
        if (operation->undo) {
            it->stack->undo();
            Q_EMIT applied(tr("Undone: %1").arg(operation->title));
        } else {
            it->stack->redo();
            Q_EMIT applied(tr("Redone: %1").arg(operation->title));
        }
    } else {
        const QString reasons = operation->refusals.join(QStringLiteral("; "));
        Q_EMIT refused(operation->undo
                           ? tr("Cannot undo \"%1\": %2").arg(operation->title, reasons)
                           : tr("Cannot redo \"%1\": %2").arg(operation->title, reasons));
    }
    updateActions();
}

void ChangeJournal::updateActions()
{
    QUndoStack* stack = m_group->activeStack();
    const bool idle = !m_operation;
    m_undoAction->setEnabled(idle && stack && stack->canUndo());
    m_redoAction->setEnabled(idle && stack && stack->canRedo());
    // A value's "&" is text, not a mnemonic.
    const auto menuText = [](QString text) {
        return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
    };
    m_undoAction->setText(
        stack && stack->canUndo() ? tr("&Undo %1").arg(menuText(stack->undoText())) : tr("&Undo"));
    m_redoAction->setText(
        stack && stack->canRedo() ? tr("&Redo %1").arg(menuText(stack->redoText())) : tr("&Redo"));
}

} // namespace VantoViewer
