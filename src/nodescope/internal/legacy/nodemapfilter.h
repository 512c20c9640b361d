#pragma once

#include <QSharedPointer>
#include <QString>

class NodeMapFilterFile;
class QDomDocument;
class QDomElement;

namespace ParameterCollection {
class IParameterCollection;
}

namespace Plugin {
namespace CameraPool {
class IBaseInfo;
}
} // namespace Plugin

// Lets an installation impose visibility and access modes on the nodes of a node map through
// an XML file, before the tree shows them.
class NodeMapFilter {
public:
    NodeMapFilter() = delete;

    // name is the node map, with or without its "@" ("@CameraDevice", "StreamGrabber0").
    // A file that could not be used leaves `problem` saying so for the user, the first time
    // only.
    static void applyFilter(QSharedPointer<ParameterCollection::IParameterCollection> collection,
                            QSharedPointer<Plugin::CameraPool::IBaseInfo> info, const QString& name,
                            QString* problem = nullptr);
    static bool createDocument(QDomDocument& doc,
                               QSharedPointer<Plugin::CameraPool::IBaseInfo> info,
                               const QString& name);
    // Applies the items of a file that was read, in order.
    static void applyItems(const NodeMapFilterFile& file,
                           QSharedPointer<ParameterCollection::IParameterCollection> collection,
                           const QString& nodeMapName);
    // Without a node map the item's name must be a full name ("@CameraDevice/Width"), since a
    // collection holds several node maps.
    static void processElement(QDomElement& item,
                               QSharedPointer<ParameterCollection::IParameterCollection> collection,
                               const QString& nodeMapName = QString());
};
