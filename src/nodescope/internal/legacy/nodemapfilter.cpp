#include "nodemapfilter.h"

#include "nodemapfilterfile.h"
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

// The device's text names a file, but it comes from the camera: only letters, digits, "-", "_"
// and "." of it are kept, and no run of dots, so that it can never leave the search location or
// name a hidden file.
QString fileDeviceText(const QString& deviceText)
{
    QString text;
    text.reserve(deviceText.size());
    for (const QChar c : deviceText) {
        const bool plain = (c >= QLatin1Char('a') && c <= QLatin1Char('z')) ||
                           (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) ||
                           (c >= QLatin1Char('0') && c <= QLatin1Char('9')) ||
                           c == QLatin1Char('-') || c == QLatin1Char('_') || c == QLatin1Char('.');
        const QChar kept = plain ? c : QLatin1Char('_');
        if (kept == QLatin1Char('.') && (text.isEmpty() || text.endsWith(QLatin1Char('.')))) {
            text.append(QLatin1Char('_'));
        } else {
            text.append(kept);
        }
    }
    return text;
}

// The candidates of createDocument, in the order they are tried; the first that opens wins.
QStringList candidatePaths(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info,
                           const QString& name)
{
    QStringList fileNames;
    fileNames << fileDeviceText(info->getDeviceText()) + QLatin1Char('_') + fileNodeMapName(name) +
                     QStringLiteral("Filter.xml");
    if (!name.isEmpty() && !name.contains(QLatin1Char('/')) && !name.contains(QLatin1Char('\\')) &&
        name != QLatin1String("..")) {
        fileNames << name + QStringLiteral("Filter.xml");
    }
    fileNames << QStringLiteral("Default_Filter.xml");

    QStringList paths;
    const QStringList locations = searchLocations();
    for (const QString& fileName : qAsConst(fileNames)) {
        for (const QString& location : locations) {
            paths << location + fileName;
        }
    }
    return paths;
}

// The first candidate that opens, read through the cache; null when none opens.
QSharedPointer<NodeMapFilterFile>
findFilterFile(const QSharedPointer<Plugin::CameraPool::IBaseInfo>& info, const QString& name)
{
    if (!info) {
        return QSharedPointer<NodeMapFilterFile>();
    }
    Plugin::Nodescope::initNodescopeResources();
    for (const QString& path : candidatePaths(info, name)) {
        if (QSharedPointer<NodeMapFilterFile> file = NodeMapFilterFile::load(path)) {
            if (!file->isValid()) {
                // A broken file is a mistake to be fixed, not a reason to fall back silently.
                qDebug("Failed to parse file %s: %s (%lld, %lld)", qUtf8Printable(file->path()),
                       qUtf8Printable(file->errorString()), file->errorLine(), file->errorColumn());
            } else {
                qCInfo(lcFilter).noquote() << "read" << QDir::cleanPath(file->path());
            }
            return file;
        }
    }
    qDebug("Failed to open any of the filter files.");
    return QSharedPointer<NodeMapFilterFile>();
}

// One filter item, whichever way it was read.
void applyItem(const NodeMapFilterFile::Item& item,
               const QSharedPointer<IParameterCollection>& collection, const QString& nodeMapName);

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
                                const QString& name, QString* problem)
{
    const QSharedPointer<NodeMapFilterFile> file = findFilterFile(info, name);
    if (!file) {
        return;
    }
    if (!file->isValid()) {
        const QString report = file->takeProblemReport();
        if (problem) {
            *problem = report;
        }
        return;
    }
    applyItems(*file, collection, name);
}

void NodeMapFilter::applyItems(const NodeMapFilterFile& file,
                               QSharedPointer<IParameterCollection> collection,
                               const QString& nodeMapName)
{
    for (const NodeMapFilterFile::Item& item : file.items()) {
        applyItem(item, collection, nodeMapName);
    }
}

bool NodeMapFilter::createDocument(QDomDocument& doc,
                                   QSharedPointer<Plugin::CameraPool::IBaseInfo> info,
                                   const QString& name)
{
    const QSharedPointer<NodeMapFilterFile> file = findFilterFile(info, name);
    if (!file || !file->isValid()) {
        return false;
    }
    // The streaming read has bounded the nesting; the document tree is safe to build now.
    QFile device(file->path());
    return device.open(QIODevice::ReadOnly) && doc.setContent(&device);
}

void NodeMapFilter::processElement(QDomElement& item,
                                   QSharedPointer<IParameterCollection> collection,
                                   const QString& nodeMapName)
{
    NodeMapFilterFile::Item read;
    read.name = firstText(item, QStringLiteral("Name"), &read.hasName);
    read.visibility = firstText(item, QStringLiteral("Visibility"), &read.hasVisibility);
    read.accessMode = firstText(item, QStringLiteral("AccessMode"), &read.hasAccessMode);
    read.line = item.lineNumber();
    applyItem(read, collection, nodeMapName);
}

namespace {

void applyItem(const NodeMapFilterFile::Item& item,
               const QSharedPointer<IParameterCollection>& collection, const QString& nodeMapName)
{
    if (!item.hasName) {
        qDebug() << kSourcePath << " " << 186 << " "
                 << " failed to get the name of a filter item";
        return;
    }
    const QString& name = item.name;
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

    if (item.hasVisibility &&
        !setNodeProperty(*parameter, QStringLiteral("Visibility"), item.visibility)) {
        qDebug() << kSourcePath << " " << 218 << " "
                 << " failed to set visibility on node " << qUtf8Printable(name);
        return;
    }

    if (item.hasAccessMode &&
        !setNodeProperty(*parameter, QStringLiteral("AccessMode"), item.accessMode)) {
        qDebug() << kSourcePath << " " << 233 << " "
                 << " failed to set access mode on node " << qUtf8Printable(name);
    }
}

} // namespace
