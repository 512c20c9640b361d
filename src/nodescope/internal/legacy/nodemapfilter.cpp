#include "nodemapfilter.h"

#include "nodescoperesources.h"

#include <camerapool/ibaseinfo.h>
#include <parametercollection/iparametercollection.h>

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QDomDocument>
#include <QDomElement>
#include <QDomNodeList>
#include <QFile>
#include <QLoggingCategory>
#include <QStringList>

// A static library's resources stay unregistered until someone asks for them, and rcc's init
// function is declared at global scope, so the request has to be made from here.
using namespace ParameterCollection;

namespace {
// Off by default: QT_LOGGING_RULES="nodescope.filter.info=true" tells which filter file was read,
// the installed one or the built-in copy.
Q_LOGGING_CATEGORY(lcFilter, "nodescope.filter", QtWarningMsg)

// The filter used to live in the widget; log lines keep its origin so old reports still match.
const char* const kSourcePath = "src/nodescope/internal/legacy/featuretreewidget";

QStringList searchLocations()
{
    return {QCoreApplication::applicationDirPath() + QStringLiteral("/../share/vanto/viewer/"),
            QStringLiteral(":/vantoviewercomponents/Resources/")};
}

QString withoutAt(const QString& name)
{
    return name.startsWith(QLatin1Char('@')) ? name.mid(1) : name;
}

// One file serves all stream grabbers of a device, whatever their number.
QString fileNodeMapName(const QString& name)
{
    QString nodeMap = withoutAt(name);
    int end = nodeMap.size();
    while (end > 0 && nodeMap.at(end - 1).isDigit()) {
        --end;
    }
    nodeMap.truncate(end);
    return nodeMap;
}

QString firstText(const QDomElement& item, const QString& tag, bool* found)
{
    const QDomNodeList elements = item.elementsByTagName(tag);
    *found = !elements.isEmpty();
    return *found ? elements.at(0).toElement().text() : QString();
}

// The parameter layer refuses a text it does not understand by throwing.
bool setNodeProperty(IParameter& parameter, const QString& property, const QString& value)
{
    IAdvancedParameterAccess* access = parameter.getAdvancedParameterAccess(); // not owned
    if (access == nullptr) {
        return false;
    }
    try {
        access->setProperty(property, value);
    } catch (...) {
        return false;
    }
    return true;
}
} // namespace

void NodeMapFilter::applyFilter(QSharedPointer<IParameterCollection> collection,
                                QSharedPointer<Plugin::CameraPool::IBaseInfo> info,
                                const QString& name)
{
    QDomDocument doc;
    if (!createDocument(doc, info, name)) {
        return;
    }
    for (QDomElement item = doc.documentElement().firstChildElement(); !item.isNull();
         item = item.nextSiblingElement()) {
        processElement(item, collection, name);
    }
}

bool NodeMapFilter::createDocument(QDomDocument& doc,
                                   QSharedPointer<Plugin::CameraPool::IBaseInfo> info,
                                   const QString& name)
{
    if (!info) {
        return false;
    }
    Plugin::Nodescope::initNodescopeResources();

    QStringList fileNames;
    fileNames << info->getDeviceText() + QLatin1Char('_') + fileNodeMapName(name) +
                     QStringLiteral("Filter.xml");
    if (!name.isEmpty()) {
        fileNames << name + QStringLiteral("Filter.xml");
    }
    fileNames << QStringLiteral("Default_Filter.xml");

    const QStringList locations = searchLocations();
    for (const QString& fileName : qAsConst(fileNames)) {
        for (const QString& location : locations) {
            QFile file(location + fileName);
            if (!file.open(QIODevice::ReadOnly)) {
                continue;
            }
            QString error;
            int line = 0;
            int column = 0;
            // A broken file is a mistake to be fixed, not a reason to fall back silently.
            if (!doc.setContent(&file, &error, &line, &column)) {
                qDebug("Failed to parse file %s: %s (%d, %d)", qUtf8Printable(file.fileName()),
                       qUtf8Printable(error), line, column);
                return false;
            }
            qCInfo(lcFilter).noquote() << "read" << QDir::cleanPath(file.fileName());
            return true;
        }
    }
    qDebug("Failed to open any of the filter files.");
    return false;
}

void NodeMapFilter::processElement(QDomElement& item,
                                   QSharedPointer<IParameterCollection> collection,
                                   const QString& nodeMapName)
{
    bool hasName = false;
    const QString name = firstText(item, QStringLiteral("Name"), &hasName);
    if (!hasName) {
        qDebug() << kSourcePath << " " << 186 << " "
                 << " failed to get the name of a filter item";
        return;
    }
    if (name.isEmpty()) {
        qDebug() << kSourcePath << " " << 192 << " "
                 << " empty name found";
        return;
    }

    const QString fullName =
        nodeMapName.isEmpty() ? name
                              : QLatin1Char('@') + withoutAt(nodeMapName) + QLatin1Char('/') + name;
    const QSharedPointer<IParameter> parameter =
        collection ? collection->getParameter(fullName) : QSharedPointer<IParameter>();
    if (!parameter || parameter->isNull()) {
        qDebug() << kSourcePath << " " << 203 << " "
                 << " there is no node named " << qUtf8Printable(name);
        return;
    }

    bool hasVisibility = false;
    const QString visibility = firstText(item, QStringLiteral("Visibility"), &hasVisibility);
    if (hasVisibility && !setNodeProperty(*parameter, QStringLiteral("Visibility"), visibility)) {
        qDebug() << kSourcePath << " " << 218 << " "
                 << " failed to set visibility on node " << qUtf8Printable(name);
        return;
    }

    bool hasAccessMode = false;
    const QString accessMode = firstText(item, QStringLiteral("AccessMode"), &hasAccessMode);
    if (hasAccessMode && !setNodeProperty(*parameter, QStringLiteral("AccessMode"), accessMode)) {
        qDebug() << kSourcePath << " " << 233 << " "
                 << " failed to set access mode on node " << qUtf8Printable(name);
    }
}
