#pragma once

#include "benchsupport.h"

#include "internal/legacy/featuretreeview.h"
#include "internal/legacy/featuretreewidget.h"

#include <QCoreApplication>

// Repaints `widget` and processes events until the watcher has seen a paint.
inline void waitForPaint(QWidget& widget, PaintWatcher& watcher)
{
    watcher.painted = false;
    widget.update();
    while (!watcher.painted) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
}

// The feature tree panel of one camera, shown and with its tree's paints watched, before it
// is handed a node map.
struct ShownPanel {
    explicit ShownPanel(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info)
        : widget(QStringLiteral("Simulated"), info, nullptr, GenApi::Guru)
    {
        widget.resize(900, 700);
        widget.show();
        widget.treeView()->viewport()->installEventFilter(&watcher);
        QCoreApplication::processEvents();
    }

    void addCamera(const QSharedPointer<ParameterCollection::IParameterCollection>& collection)
    {
        widget.addParameterCollection(collection, QStringLiteral("Camera"),
                                      QStringLiteral("@CameraDevice"));
    }

    FeatureTreeWidget widget;
    PaintWatcher watcher;
};
