#pragma once

#include "changejournal.h"

#include <camerapool.h>
#include <deviceparametercollection.h>
#include <deviceworker.h>
#include <parametercollection/iparameter.h>
#include <simulateddevice.h>

// Built-in cameras for the change journal's tests, from a pool of their own that closes them
// when it goes.
struct JournalCameras {
    QSharedPointer<Backend::CameraPool> pool;

    JournalCameras() : pool(QSharedPointer<Backend::CameraPool>::create()) {}
    ~JournalCameras() { pool->closeAll(); }
    JournalCameras(const JournalCameras&) = delete;
    JournalCameras& operator=(const JournalCameras&) = delete;

    // Opened, journaled and the active camera.
    VantoViewer::ChangeJournal::BaseInfoPtr open(VantoViewer::ChangeJournal& journal) const
    {
        const VantoViewer::ChangeJournal::BaseInfoPtr info = pool->openSimulated();
        journal.addCamera(info, pool->getParameterCollection(info));
        journal.setActiveCamera(info);
        return info;
    }

    Backend::DeviceParameterCollection*
    collection(const VantoViewer::ChangeJournal::BaseInfoPtr& info) const
    {
        return qobject_cast<Backend::DeviceParameterCollection*>(
            pool->getParameterCollection(info).data());
    }

    // Its fault settings may be used from here, the rest belongs to the device thread.
    Backend::SimulatedDevice* device(const VantoViewer::ChangeJournal::BaseInfoPtr& info) const
    {
        Backend::SimulatedDevice* device = nullptr;
        collection(info)->runOnDeviceThread(
            [&device](Backend::DeviceWorker& w) { device = w.simulatedDevice(0); });
        return device;
    }

    // What the device holds now, read past every cache.
    QVariant readBack(const VantoViewer::ChangeJournal::BaseInfoPtr& info,
                      const QString& fullName) const
    {
        Backend::DeviceParameterCollection* c = collection(info);
        const auto parameter = c->getParameter(fullName);
        parameter->addObserver();
        c->refresh({ParameterCollection::ParameterName(fullName)});
        c->waitForDevice();
        const QVariant value = parameter->getParameterData()->value;
        parameter->removeObserver();
        return value;
    }
};
