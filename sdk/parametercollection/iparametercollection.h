#pragma once

#include <parametercollection/exception.h>
#include <parametercollection/iparameter.h>
#include <parametercollection/parametername.h>

#include <QList>
#include <QObject>
#include <QSharedPointer>
#include <QStringList>

namespace ParameterCollection {

// The features of one camera: several node maps, each under a prefix ("@CameraDevice",
// "@StreamGrabber0", ...). Everything here answers from memory and never waits for the
// device; device I/O happens on the collection's own thread.
class IParameterCollection : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;
    ~IParameterCollection() override = default;

    // The camera's name, for messages.
    virtual QString getName() const = 0;
    // Node map names without "@", in the order they were attached.
    virtual QStringList getNodeMapNames() const = 0;

    // Null when the collection holds no node of that full name. "@X/Root" is the root
    // category of node map X.
    virtual QSharedPointer<IParameter> getParameter(const QString& fullName) const = 0;
    QSharedPointer<IParameter> getParameter(const ParameterName& name) const
    {
        return getParameter(name.toString());
    }
    // Full names of the features of a category, in document order; empty for other nodes.
    virtual QStringList getChildren(const QString& fullName) const = 0;

    // Re-reads the observed parameters whose polling time has elapsed, given that
    // elapsedMs passed since the last call.
    virtual void poll(int elapsedMs) = 0;
    // Re-reads every observed parameter, past the register cache.
    virtual void refresh() = 0;
    virtual void refresh(const QList<ParameterName>& names) = 0;

    // True once the device has gone away; writes then throw DeviceLostException and reads
    // keep the last data.
    virtual bool isLost() const = 0;

Q_SIGNALS:
    void nodeMapAttached(const QString& nodeMapName);
    void deviceLost(const QString& message);
    // A queued write that the device refused. The parameter's data is re-published too.
    // `message` does not name the feature: fullName does.
    void writeFailed(const QString& fullName, ParameterCollection::Exception::Kind kind,
                     const QString& message);
};

} // namespace ParameterCollection

Q_DECLARE_METATYPE(QSharedPointer<ParameterCollection::IParameterCollection>)
Q_DECLARE_METATYPE(ParameterCollection::Exception::Kind)
