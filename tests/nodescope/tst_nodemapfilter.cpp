#include "internal/legacy/nodemapfilter.h"

#include "testsupport.h"

#include <camerainfo.h>

#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>

#include <QCoreApplication>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QSignalSpy>
#include <QtTest>

using namespace ParameterCollection;

// The shipped filters are compiled into the core library; a test takes them away to see what
// happens on an installation without them. Resource functions live at global scope.
static void unregisterShippedFilters()
{
    Q_CLEANUP_RESOURCE(vantoviewercomponents);
}

static void registerShippedFilters()
{
    Q_INIT_RESOURCE(vantoviewercomponents);
}

namespace {

const QString kDeviceText = QStringLiteral("Vanto_VNT-SIM-2000");
const QString kDeviceFile = QStringLiteral("Vanto_VNT-SIM-2000_CameraDeviceFilter.xml");
const QString kNameFile = QStringLiteral("@CameraDeviceFilter.xml");
const QString kDefaultFile = QStringLiteral("Default_Filter.xml");

// A filter file whose document element tells where it came from, so a test sees which
// candidate won.
QByteArray filterText(const QString& source, const QString& items = QString())
{
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                          "<NodeMapFilter source=\"%1\">%2</NodeMapFilter>\n")
        .arg(source, items)
        .toUtf8();
}

QString item(const QString& name, const QString& visibility = QString(),
             const QString& accessMode = QString())
{
    QString text = QStringLiteral("<Node><Name>%1</Name>").arg(name);
    if (!visibility.isNull()) {
        text += QStringLiteral("<Visibility>%1</Visibility>").arg(visibility);
    }
    if (!accessMode.isNull()) {
        text += QStringLiteral("<AccessMode>%1</AccessMode>").arg(accessMode);
    }
    return text + QStringLiteral("</Node>");
}

QString sourceOf(const QDomDocument& doc)
{
    return doc.documentElement().attribute(QStringLiteral("source"));
}

} // namespace

class tst_NodeMapFilter : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    // Edge cases.
    void shouldChangeNothingAndLogNothingForEmptyDocumentElement();
    void shouldLookUpNodeButChangeNothingForItemWithOnlyName();
    void shouldNotApplyAccessModeWhenVisibilityIsRejected();

    // Where the file comes from.
    void shouldFallBackToShippedDefaultFile();
    void shouldPreferApplicationDirectoryOverResourcesForSameFileName();
    void shouldTryDeviceFileInEveryLocationBeforeNameFile();
    void shouldPreferDeviceFileOverNameFileInSameLocation();
    void shouldTryNameFileInEveryLocationBeforeDefaultFile();
    void shouldPreferNameFileOverDefaultFile();
    void shouldPreferDefaultFileInApplicationDirectoryOverShippedOne();
    void shouldNameDeviceFileAfterNodeMapWithoutAtAndTrailingDigits();
    void shouldNameSecondFileAfterGivenNameUnchanged();
    void shouldSkipNameFileWhenNameIsEmpty();
    void shouldReturnFalseAtOnceWithoutInfo();
    void shouldChangeNothingWithoutInfo();
    void shouldStopSearchAtFileThatDoesNotParse();
    void shouldReportWhenNoFilterFileOpens();
    void shouldNeverLetTheDeviceTextLeaveTheSearchLocation();
    void shouldRefuseDeeplyNestedFileAndReportItOnce();

    // One item at a time.
    void shouldLogItemWithoutName();
    void shouldLogItemWithEmptyName();
    void shouldLogNameOfMissingNode();
    void shouldLogRejectedAccessModeAfterApplyingVisibility();
    void shouldContinueWithNextItemAfterFailedOne();
    void shouldLogMissingNodeWithoutCollection();

    // What an override does to the parameter.
    void shouldApplyVisibilityAndAccessModeToParameter();
    void shouldApplyOnlyTheOverridesAnItemGives();
    void shouldApplyFilterToNodeMapOfGivenName();
    void shouldAcceptNodeMapNameWithoutAt();
    void shouldFindElementsAmongDescendantsInAnyOrder();
    void shouldUseFirstElementOfEachKind();
    void shouldTakeEveryChildElementAsItemWhateverItsTag();
    void shouldTakeFullNameWhenNoNodeMapIsGiven();

private:
    bool writeAppFile(const QString& fileName, const QByteArray& text);
    QSharedPointer<IParameter> parameter(const QString& fullName) const;

    QString m_appLocation;
    QStringList m_createdDirs;
    QStringList m_createdFiles;
    std::unique_ptr<SimulatedCamera> m_camera;
    bool m_shippedFiltersRemoved = false;
};

void tst_NodeMapFilter::initTestCase()
{
    m_appLocation =
        QCoreApplication::applicationDirPath() + QStringLiteral("/../share/vanto/viewer/");
    // Create only what is missing, so that cleanup removes nothing that was there before.
    QString path = QCoreApplication::applicationDirPath() + QStringLiteral("/..");
    for (const char* part : {"share", "vanto", "viewer"}) {
        path += QLatin1Char('/') + QLatin1String(part);
        if (!QFileInfo::exists(path)) {
            QVERIFY2(QDir().mkdir(path), qPrintable(path));
            m_createdDirs.prepend(path);
        }
    }
    const QStringList leftovers =
        QDir(m_appLocation).entryList({QStringLiteral("*Filter.xml")}, QDir::Files);
    QVERIFY2(leftovers.isEmpty(),
             qPrintable(QStringLiteral("filter files in %1 would decide the search: %2")
                            .arg(m_appLocation, leftovers.join(QLatin1Char(' ')))));

    // The test resources are named after this device, and the tests rely on these features.
    const auto camera = openSimulatedCamera();
    QCOMPARE(camera->info->getDeviceText(), kDeviceText);
    for (const char* name : {"@CameraDevice/Width", "@CameraDevice/Gain",
                             "@CameraDevice/ExposureTime", "@StreamGrabber0/MaxNumBuffer"}) {
        const auto parameter = camera->collection->getParameter(QLatin1String(name));
        QVERIFY2(parameter && !parameter->isNull(), name);
        QCOMPARE(parameter->getParameterData()->visibility, GenApi::Beginner);
        QCOMPARE(parameter->getParameterData()->accessMode, GenApi::RW);
    }
    const auto cacheMode = camera->collection->getParameter(
        QStringLiteral("@DeviceTransportLayer/VntRegisterCacheMode"));
    QVERIFY(cacheMode && !cacheMode->isNull());
    QCOMPARE(cacheMode->getParameterData()->visibility, GenApi::Guru);
    QCOMPARE(cacheMode->getParameterData()->accessMode, GenApi::RW);
}

void tst_NodeMapFilter::init()
{
    m_camera = openSimulatedCamera();
    QVERIFY(m_camera->collection);
}

void tst_NodeMapFilter::cleanup()
{
    if (m_shippedFiltersRemoved) {
        registerShippedFilters();
        m_shippedFiltersRemoved = false;
    }
    QStringList kept;
    for (const QString& file : qAsConst(m_createdFiles)) {
        if (!QFile::remove(file)) {
            kept << file;
        }
    }
    m_createdFiles.clear();
    m_camera.reset();
    QVERIFY2(kept.isEmpty(), qPrintable(kept.join(QLatin1Char(' '))));
}

void tst_NodeMapFilter::cleanupTestCase()
{
    for (const QString& dir : qAsConst(m_createdDirs)) {
        QDir().rmdir(dir);
    }
}

bool tst_NodeMapFilter::writeAppFile(const QString& fileName, const QByteArray& text)
{
    QFile file(m_appLocation + fileName);
    // Never overwrite a file this test did not make.
    if (file.exists() || !file.open(QIODevice::WriteOnly)) {
        qWarning("cannot create %s: %s", qUtf8Printable(file.fileName()),
                 file.exists() ? "it exists already" : qUtf8Printable(file.errorString()));
        return false;
    }
    m_createdFiles << file.fileName();
    return file.write(text) == text.size();
}

QSharedPointer<IParameter> tst_NodeMapFilter::parameter(const QString& fullName) const
{
    const auto result = m_camera->collection->getParameter(fullName);
    Q_ASSERT(result); // initTestCase checked every name the tests use
    return result;
}

void tst_NodeMapFilter::shouldChangeNothingAndLogNothingForEmptyDocumentElement()
{
    // Given a filter file with nothing in it
    QVERIFY(writeAppFile(kNameFile, filterText(QStringLiteral("empty"))));
    const auto width = parameter(QStringLiteral("@CameraDevice/Width"));
    QSignalSpy spy(width.data(), &IParameter::parameterDataChanged);
    MessageCapture messages;

    // When it is applied
    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"));

    // Then the node keeps what the camera says, and the filter is silent
    QCOMPARE(messages.lines(), QStringList());
    QCOMPARE(spy.count(), 0);
    QCOMPARE(width->getParameterData()->visibility, GenApi::Beginner);
    QCOMPARE(width->getParameterData()->accessMode, GenApi::RW);
}

void tst_NodeMapFilter::shouldLookUpNodeButChangeNothingForItemWithOnlyName()
{
    // Given items that name an existing and a missing node, and nothing else
    QVERIFY(writeAppFile(
        kNameFile, filterText(QStringLiteral("names"), item(QStringLiteral("Width")) +
                                                           item(QStringLiteral("NoSuchFeature")))));
    const auto width = parameter(QStringLiteral("@CameraDevice/Width"));
    QSignalSpy spy(width.data(), &IParameter::parameterDataChanged);
    MessageCapture messages;

    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"));

    // Then only the missing node is reported, and the existing one is left alone
    QCOMPARE(messages.lines(),
             QStringList{QStringLiteral("src/nodescope/internal/legacy/featuretreewidget   203    "
                                        "there is no node named  NoSuchFeature")});
    QCOMPARE(spy.count(), 0);
    QCOMPARE(width->getParameterData()->visibility, GenApi::Beginner);
    QCOMPARE(width->getParameterData()->accessMode, GenApi::RW);
}

void tst_NodeMapFilter::shouldNotApplyAccessModeWhenVisibilityIsRejected()
{
    // Given an item whose visibility the node does not understand
    QVERIFY(writeAppFile(
        kNameFile,
        filterText(QStringLiteral("wizard"),
                   item(QStringLiteral("Width"), QStringLiteral("Wizard"), QStringLiteral("RO")))));
    const auto width = parameter(QStringLiteral("@CameraDevice/Width"));
    QSignalSpy spy(width.data(), &IParameter::parameterDataChanged);
    MessageCapture messages;

    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"));

    // Then the item stops there: the node stays writable
    QCOMPARE(messages.lines(),
             QStringList{QStringLiteral("src/nodescope/internal/legacy/featuretreewidget   218    "
                                        "failed to set visibility on node  Width")});
    QCOMPARE(spy.count(), 0);
    QCOMPARE(width->getParameterData()->accessMode, GenApi::RW);
    QVERIFY(width->getParameterData()->writable);
    QCOMPARE(width->getParameterData()->visibility, GenApi::Beginner);
}

void tst_NodeMapFilter::shouldFallBackToShippedDefaultFile()
{
    // Given no file of its own for the node map
    QDomDocument doc;
    MessageCapture messages;

    // Then the shipped default is read, and it overrides nothing
    QVERIFY(NodeMapFilter::createDocument(doc, m_camera->info, QStringLiteral("@CameraDevice")));
    QCOMPARE(doc.documentElement().tagName(), QStringLiteral("NodeMapFilter"));
    QVERIFY(doc.documentElement().firstChildElement().isNull());
    QCOMPARE(messages.lines(), QStringList());
}

void tst_NodeMapFilter::shouldPreferApplicationDirectoryOverResourcesForSameFileName()
{
    // Given a device file for the stream grabber both next to the application and in resources
    QVERIFY(writeAppFile(QStringLiteral("Vanto_VNT-SIM-2000_StreamGrabberFilter.xml"),
                         filterText(QStringLiteral("app-device"),
                                    item(QStringLiteral("MaxNumBuffer"), QStringLiteral("Guru")))));
    QDomDocument doc;

    QVERIFY(NodeMapFilter::createDocument(doc, m_camera->info, QStringLiteral("@StreamGrabber0")));
    QCOMPARE(sourceOf(doc), QStringLiteral("app-device"));

    // And applying it uses that file's visibility, not the one in resources
    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@StreamGrabber0"));
    const auto buffers = parameter(QStringLiteral("@StreamGrabber0/MaxNumBuffer"));
    QTRY_COMPARE(buffers->getParameterData()->visibility, GenApi::Guru);
}

void tst_NodeMapFilter::shouldTryDeviceFileInEveryLocationBeforeNameFile()
{
    // Given a name file next to the application and a device file only in resources
    QVERIFY(writeAppFile(QStringLiteral("@StreamGrabber0Filter.xml"),
                         filterText(QStringLiteral("app-name"))));
    QVERIFY(writeAppFile(kDefaultFile, filterText(QStringLiteral("app-default"))));
    QDomDocument doc;

    // Then the device file wins, though its location comes later
    QVERIFY(NodeMapFilter::createDocument(doc, m_camera->info, QStringLiteral("@StreamGrabber0")));
    QCOMPARE(sourceOf(doc), QStringLiteral("resource-device"));
}

void tst_NodeMapFilter::shouldPreferDeviceFileOverNameFileInSameLocation()
{
    QVERIFY(writeAppFile(kDeviceFile, filterText(QStringLiteral("app-device"))));
    QVERIFY(writeAppFile(kNameFile, filterText(QStringLiteral("app-name"))));
    QVERIFY(writeAppFile(kDefaultFile, filterText(QStringLiteral("app-default"))));
    QDomDocument doc;

    QVERIFY(NodeMapFilter::createDocument(doc, m_camera->info, QStringLiteral("@CameraDevice")));
    QCOMPARE(sourceOf(doc), QStringLiteral("app-device"));
}

void tst_NodeMapFilter::shouldTryNameFileInEveryLocationBeforeDefaultFile()
{
    // Given a default file next to the application and a name file only in resources
    QVERIFY(writeAppFile(kDefaultFile, filterText(QStringLiteral("app-default"))));
    QDomDocument doc;

    QVERIFY(NodeMapFilter::createDocument(doc, m_camera->info,
                                          QStringLiteral("@DeviceTransportLayer")));
    QCOMPARE(sourceOf(doc), QStringLiteral("resource-name"));

    // And the resource file's override reaches the transport layer's node
    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@DeviceTransportLayer"));
    const auto cacheMode = parameter(QStringLiteral("@DeviceTransportLayer/VntRegisterCacheMode"));
    QTRY_COMPARE(cacheMode->getParameterData()->visibility, GenApi::Beginner);
    QTRY_COMPARE(cacheMode->getParameterData()->accessMode, GenApi::RO);
}

void tst_NodeMapFilter::shouldPreferNameFileOverDefaultFile()
{
    QVERIFY(writeAppFile(kNameFile, filterText(QStringLiteral("app-name"))));
    QVERIFY(writeAppFile(kDefaultFile, filterText(QStringLiteral("app-default"))));
    QDomDocument doc;

    QVERIFY(NodeMapFilter::createDocument(doc, m_camera->info, QStringLiteral("@CameraDevice")));
    QCOMPARE(sourceOf(doc), QStringLiteral("app-name"));
}

void tst_NodeMapFilter::shouldPreferDefaultFileInApplicationDirectoryOverShippedOne()
{
    QVERIFY(writeAppFile(kDefaultFile, filterText(QStringLiteral("app-default"))));
    QDomDocument doc;

    QVERIFY(NodeMapFilter::createDocument(doc, m_camera->info, QStringLiteral("@CameraDevice")));
    QCOMPARE(sourceOf(doc), QStringLiteral("app-default"));
}

void tst_NodeMapFilter::shouldNameDeviceFileAfterNodeMapWithoutAtAndTrailingDigits()
{
    // Given a device file that carries the node map's number, which no one looks for
    QVERIFY(writeAppFile(QStringLiteral("Vanto_VNT-SIM-2000_StreamGrabber0Filter.xml"),
                         filterText(QStringLiteral("app-numbered"))));
    QDomDocument withAt;
    QDomDocument withoutAt;

    // Then the file without the number is found, whether or not the name has its "@"
    QVERIFY(
        NodeMapFilter::createDocument(withAt, m_camera->info, QStringLiteral("@StreamGrabber0")));
    QVERIFY(
        NodeMapFilter::createDocument(withoutAt, m_camera->info, QStringLiteral("StreamGrabber0")));
    QCOMPARE(sourceOf(withAt), QStringLiteral("resource-device"));
    QCOMPARE(sourceOf(withoutAt), QStringLiteral("resource-device"));
}

void tst_NodeMapFilter::shouldNameSecondFileAfterGivenNameUnchanged()
{
    // Given a name file that drops the "@" of the name it is asked for
    QVERIFY(writeAppFile(QStringLiteral("CameraDeviceFilter.xml"),
                         filterText(QStringLiteral("app-bare"))));
    QDomDocument withAt;
    QDomDocument withoutAt;

    QVERIFY(NodeMapFilter::createDocument(withAt, m_camera->info, QStringLiteral("@CameraDevice")));
    QVERIFY(
        NodeMapFilter::createDocument(withoutAt, m_camera->info, QStringLiteral("CameraDevice")));

    // Then only the name without "@" finds it
    QCOMPARE(sourceOf(withAt), QString());
    QCOMPARE(withAt.documentElement().tagName(), QStringLiteral("NodeMapFilter"));
    QCOMPARE(sourceOf(withoutAt), QStringLiteral("app-bare"));
}

void tst_NodeMapFilter::shouldSkipNameFileWhenNameIsEmpty()
{
    // Given a file that an empty name would give as its name file
    QVERIFY(writeAppFile(QStringLiteral("Filter.xml"), filterText(QStringLiteral("app-unnamed"))));
    QVERIFY(writeAppFile(kDefaultFile, filterText(QStringLiteral("app-default"))));
    QDomDocument doc;

    QVERIFY(NodeMapFilter::createDocument(doc, m_camera->info, QString()));
    QCOMPARE(sourceOf(doc), QStringLiteral("app-default"));
}

void tst_NodeMapFilter::shouldReturnFalseAtOnceWithoutInfo()
{
    QVERIFY(writeAppFile(kDefaultFile, filterText(QStringLiteral("app-default"))));
    QDomDocument doc;
    MessageCapture messages;

    QVERIFY(!NodeMapFilter::createDocument(doc, {}, QStringLiteral("@CameraDevice")));
    QVERIFY(doc.isNull());
    QCOMPARE(messages.lines(), QStringList());
}

void tst_NodeMapFilter::shouldChangeNothingWithoutInfo()
{
    QVERIFY(
        writeAppFile(kNameFile, filterText(QStringLiteral("app-name"),
                                           item(QStringLiteral("Width"), QStringLiteral("Guru")))));
    const auto width = parameter(QStringLiteral("@CameraDevice/Width"));
    QSignalSpy spy(width.data(), &IParameter::parameterDataChanged);

    NodeMapFilter::applyFilter(m_camera->collection, {}, QStringLiteral("@CameraDevice"));

    QCOMPARE(spy.count(), 0);
    QCOMPARE(width->getParameterData()->visibility, GenApi::Beginner);
}

void tst_NodeMapFilter::shouldStopSearchAtFileThatDoesNotParse()
{
    // Given a broken device file, and a good name file after it
    QVERIFY(writeAppFile(kDeviceFile,
                         QByteArrayLiteral("<NodeMapFilter>\n<Node>\n</NodeMapFilter>\n")));
    QVERIFY(
        writeAppFile(kNameFile, filterText(QStringLiteral("app-name"),
                                           item(QStringLiteral("Width"), QStringLiteral("Guru")))));
    const auto width = parameter(QStringLiteral("@CameraDevice/Width"));
    QSignalSpy spy(width.data(), &IParameter::parameterDataChanged);
    MessageCapture messages;
    QDomDocument doc;

    // Then the search ends at the broken file and says why
    QVERIFY(!NodeMapFilter::createDocument(doc, m_camera->info, QStringLiteral("@CameraDevice")));
    QCOMPARE(messages.lines(),
             QStringList{
                 QStringLiteral("Failed to parse file %1: Opening and ending tag mismatch. (3, 16)")
                     .arg(m_appLocation + kDeviceFile)});

    // And applying the filter changes nothing, the name file notwithstanding
    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(width->getParameterData()->visibility, GenApi::Beginner);
}

void tst_NodeMapFilter::shouldReportWhenNoFilterFileOpens()
{
    // Given an installation without the shipped default (the first call registers it, so it
    // is taken away afterwards)
    QDomDocument doc;
    QVERIFY(NodeMapFilter::createDocument(doc, m_camera->info, QStringLiteral("@CameraDevice")));
    unregisterShippedFilters();
    m_shippedFiltersRemoved = true;
    QVERIFY(!QFile::exists(QStringLiteral(":/vantoviewercomponents/Resources/Default_Filter.xml")));
    MessageCapture messages;

    QDomDocument none;
    QVERIFY(!NodeMapFilter::createDocument(none, m_camera->info, QStringLiteral("@CameraDevice")));
    QCOMPARE(messages.lines(),
             QStringList{QStringLiteral("Failed to open any of the filter files.")});
    QVERIFY(none.isNull());
}

void tst_NodeMapFilter::shouldNeverLetTheDeviceTextLeaveTheSearchLocation()
{
    // Given a filter file next to the application, and a folder beside it
    QVERIFY(writeAppFile(QStringLiteral("Steered_M_CameraDeviceFilter.xml"),
                         filterText(QStringLiteral("steered"),
                                    item(QStringLiteral("Width"), QStringLiteral("Guru")))));
    const QString folder = m_appLocation + QStringLiteral("sub");
    QVERIFY(QDir().mkdir(folder));
    const auto removeFolder = qScopeGuard([&] { QDir().rmdir(folder); });
    const auto width = parameter(QStringLiteral("@CameraDevice/Width"));

    // When a camera's vendor name walks out of the folder and back to that file
    const auto hostile = QSharedPointer<Backend::CameraInfo>::create(
        QStringLiteral("hostile"), QStringLiteral("sub/../Steered"), QStringLiteral("M"),
        QStringLiteral("1"), QStringLiteral("GigEVision"));
    QDomDocument doc;
    NodeMapFilter::createDocument(doc, hostile, QStringLiteral("@CameraDevice"));
    NodeMapFilter::applyFilter(m_camera->collection, hostile, QStringLiteral("@CameraDevice"));

    // Then the file is not read, and the node keeps its visibility
    QVERIFY(sourceOf(doc) != QStringLiteral("steered"));
    QCOMPARE(width->getParameterData()->visibility, GenApi::Beginner);

    // While a camera that names that file plainly gets it
    const auto plain = QSharedPointer<Backend::CameraInfo>::create(
        QStringLiteral("plain"), QStringLiteral("Steered"), QStringLiteral("M"),
        QStringLiteral("1"), QStringLiteral("GigEVision"));
    QVERIFY(NodeMapFilter::createDocument(doc, plain, QStringLiteral("@CameraDevice")));
    QCOMPARE(sourceOf(doc), QStringLiteral("steered"));
}

void tst_NodeMapFilter::shouldRefuseDeeplyNestedFileAndReportItOnce()
{
    // Given a device file nested 30 000 deep, and a good name file after it
    QByteArray deep = "<NodeMapFilter>\n<Node><Name>Width</Name>";
    for (int i = 0; i < 30000; ++i) {
        deep += "<a>";
    }
    QVERIFY(writeAppFile(kDeviceFile, deep));
    QVERIFY(
        writeAppFile(kNameFile, filterText(QStringLiteral("app-name"),
                                           item(QStringLiteral("Width"), QStringLiteral("Guru")))));
    const auto width = parameter(QStringLiteral("@CameraDevice/Width"));
    MessageCapture messages;

    // When the filter is applied for two node maps
    QString first;
    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"), &first);
    QString second;
    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"), &second);

    // Then nothing is applied, the debug line says why each time, and the user is told once,
    // with file, line and reason
    QCOMPARE(width->getParameterData()->visibility, GenApi::Beginner);
    QCOMPARE(messages.lines().size(), 2);
    QVERIFY2(messages.lines().first().startsWith(
                 QStringLiteral("Failed to parse file %1: ").arg(m_appLocation + kDeviceFile)),
             qPrintable(messages.lines().first()));
    QVERIFY2(first.contains(m_appLocation + kDeviceFile), qPrintable(first));
    QVERIFY2(first.contains(QStringLiteral("line 2")), qPrintable(first));
    QVERIFY2(first.contains(QStringLiteral("256")), qPrintable(first));
    QVERIFY(second.isEmpty());
}

void tst_NodeMapFilter::shouldLogItemWithoutName()
{
    // Given an item without a name before a good one
    QVERIFY(writeAppFile(kNameFile,
                         filterText(QStringLiteral("app-name"),
                                    QStringLiteral("<Node><Visibility>Guru</Visibility></Node>") +
                                        item(QStringLiteral("Gain"), QStringLiteral("Expert")))));
    MessageCapture messages;

    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"));

    QCOMPARE(messages.lines(),
             QStringList{QStringLiteral("src/nodescope/internal/legacy/featuretreewidget   186    "
                                        "failed to get the name of a filter item")});
    QTRY_COMPARE(parameter(QStringLiteral("@CameraDevice/Gain"))->getParameterData()->visibility,
                 GenApi::Expert);
}

void tst_NodeMapFilter::shouldLogItemWithEmptyName()
{
    QVERIFY(writeAppFile(kNameFile,
                         filterText(QStringLiteral("app-name"),
                                    item(QString(), QStringLiteral("Guru")) +
                                        item(QStringLiteral("Gain"), QStringLiteral("Expert")))));
    MessageCapture messages;

    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"));

    QCOMPARE(messages.lines(),
             QStringList{QStringLiteral("src/nodescope/internal/legacy/featuretreewidget   192    "
                                        "empty name found")});
    QTRY_COMPARE(parameter(QStringLiteral("@CameraDevice/Gain"))->getParameterData()->visibility,
                 GenApi::Expert);
}

void tst_NodeMapFilter::shouldLogNameOfMissingNode()
{
    QVERIFY(
        writeAppFile(kNameFile, filterText(QStringLiteral("app-name"),
                                           item(QStringLiteral("NoSuchFeature"),
                                                QStringLiteral("Guru"), QStringLiteral("RO")))));
    MessageCapture messages;

    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"));

    QCOMPARE(messages.lines(),
             QStringList{QStringLiteral("src/nodescope/internal/legacy/featuretreewidget   203    "
                                        "there is no node named  NoSuchFeature")});
}

void tst_NodeMapFilter::shouldLogRejectedAccessModeAfterApplyingVisibility()
{
    // Given an access mode in a spelling the parameter layer does not take
    QVERIFY(writeAppFile(
        kNameFile,
        filterText(QStringLiteral("app-name"),
                   item(QStringLiteral("Width"), QStringLiteral("Expert"), QStringLiteral("rw")))));
    const auto width = parameter(QStringLiteral("@CameraDevice/Width"));
    MessageCapture messages;

    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"));

    QCOMPARE(messages.lines(),
             QStringList{QStringLiteral("src/nodescope/internal/legacy/featuretreewidget   233    "
                                        "failed to set access mode on node  Width")});
    QTRY_COMPARE(width->getParameterData()->visibility, GenApi::Expert);
    QCOMPARE(width->getParameterData()->accessMode, GenApi::RW);
}

void tst_NodeMapFilter::shouldContinueWithNextItemAfterFailedOne()
{
    QVERIFY(writeAppFile(kNameFile,
                         filterText(QStringLiteral("app-name"),
                                    item(QStringLiteral("NoSuchFeature"), QStringLiteral("Guru")) +
                                        item(QStringLiteral("Width"), QStringLiteral("guru")) +
                                        item(QStringLiteral("Gain"), QStringLiteral("Guru")))));
    MessageCapture messages;

    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"));

    QCOMPARE(messages.lines(),
             (QStringList{QStringLiteral("src/nodescope/internal/legacy/featuretreewidget   203    "
                                         "there is no node named  NoSuchFeature"),
                          QStringLiteral("src/nodescope/internal/legacy/featuretreewidget   218    "
                                         "failed to set visibility on node  Width")}));
    QTRY_COMPARE(parameter(QStringLiteral("@CameraDevice/Gain"))->getParameterData()->visibility,
                 GenApi::Guru);
    QCOMPARE(parameter(QStringLiteral("@CameraDevice/Width"))->getParameterData()->visibility,
             GenApi::Beginner);
}

void tst_NodeMapFilter::shouldLogMissingNodeWithoutCollection()
{
    QVERIFY(
        writeAppFile(kNameFile, filterText(QStringLiteral("app-name"),
                                           item(QStringLiteral("Width"), QStringLiteral("Guru")))));
    MessageCapture messages;

    NodeMapFilter::applyFilter({}, m_camera->info, QStringLiteral("@CameraDevice"));

    QCOMPARE(messages.lines(),
             QStringList{QStringLiteral("src/nodescope/internal/legacy/featuretreewidget   203    "
                                        "there is no node named  Width")});
}

void tst_NodeMapFilter::shouldApplyVisibilityAndAccessModeToParameter()
{
    // Given a filter that hides Width from beginners and makes it read-only
    QVERIFY(writeAppFile(kNameFile, filterText(QStringLiteral("app-name"),
                                               item(QStringLiteral("Width"), QStringLiteral("Guru"),
                                                    QStringLiteral("RO")))));
    const auto width = parameter(QStringLiteral("@CameraDevice/Width"));
    QSignalSpy spy(width.data(), &IParameter::parameterDataChanged);
    MessageCapture messages;

    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"));

    // Then views learn it the usual way, through new parameter data
    QTRY_VERIFY(!spy.isEmpty());
    QTRY_COMPARE(spy.last().at(0).value<QSharedPointer<const ParameterData>>()->visibility,
                 GenApi::Guru);
    const auto data = spy.last().at(0).value<QSharedPointer<const ParameterData>>();
    QCOMPARE(data->accessMode, GenApi::RO);
    QVERIFY(!data->writable);
    QCOMPARE(width->getProperty(QStringLiteral("Visibility")), QStringLiteral("Guru"));
    QCOMPARE(width->getProperty(QStringLiteral("AccessMode")), QStringLiteral("RO"));
    QCOMPARE(messages.lines(), QStringList());
}

void tst_NodeMapFilter::shouldApplyOnlyTheOverridesAnItemGives()
{
    QVERIFY(writeAppFile(
        kNameFile, filterText(QStringLiteral("app-name"),
                              item(QStringLiteral("Width"), QStringLiteral("Expert")) +
                                  item(QStringLiteral("Gain"), QString(), QStringLiteral("RO")))));

    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"));

    const auto width = parameter(QStringLiteral("@CameraDevice/Width"));
    const auto gain = parameter(QStringLiteral("@CameraDevice/Gain"));
    QTRY_COMPARE(width->getParameterData()->visibility, GenApi::Expert);
    QTRY_COMPARE(gain->getParameterData()->accessMode, GenApi::RO);
    QCOMPARE(width->getParameterData()->accessMode, GenApi::RW);
    QCOMPARE(gain->getParameterData()->visibility, GenApi::Beginner);
}

void tst_NodeMapFilter::shouldApplyFilterToNodeMapOfGivenName()
{
    // Given the shipped stream grabber file, which names MaxNumBuffer
    const auto buffers = parameter(QStringLiteral("@StreamGrabber0/MaxNumBuffer"));
    QSignalSpy spy(buffers.data(), &IParameter::parameterDataChanged);

    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@StreamGrabber0"));

    // Then the node of that node map changes, under its numbered prefix
    QTRY_VERIFY(!spy.isEmpty());
    QTRY_COMPARE(buffers->getParameterData()->visibility, GenApi::Expert);
    QCOMPARE(parameter(QStringLiteral("@CameraDevice/Width"))->getParameterData()->visibility,
             GenApi::Beginner);
}

void tst_NodeMapFilter::shouldAcceptNodeMapNameWithoutAt()
{
    QVERIFY(writeAppFile(QStringLiteral("CameraDeviceFilter.xml"),
                         filterText(QStringLiteral("app-bare"),
                                    item(QStringLiteral("Width"), QStringLiteral("Invisible")))));
    MessageCapture messages;

    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("CameraDevice"));

    QTRY_COMPARE(parameter(QStringLiteral("@CameraDevice/Width"))->getParameterData()->visibility,
                 GenApi::Invisible);
    QCOMPARE(messages.lines(), QStringList());
}

void tst_NodeMapFilter::shouldFindElementsAmongDescendantsInAnyOrder()
{
    QVERIFY(writeAppFile(
        kNameFile, filterText(QStringLiteral("app-name"),
                              QStringLiteral("<Node><Access><AccessMode>RO</AccessMode></Access>"
                                             "<Visibility>Expert</Visibility>"
                                             "<Names><Name>Width</Name></Names></Node>"))));

    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"));

    const auto width = parameter(QStringLiteral("@CameraDevice/Width"));
    QTRY_COMPARE(width->getParameterData()->visibility, GenApi::Expert);
    QTRY_COMPARE(width->getParameterData()->accessMode, GenApi::RO);
}

void tst_NodeMapFilter::shouldUseFirstElementOfEachKind()
{
    QVERIFY(writeAppFile(kNameFile,
                         filterText(QStringLiteral("app-name"),
                                    QStringLiteral("<Node><Name>Width</Name><Name>Gain</Name>"
                                                   "<Visibility>Expert</Visibility>"
                                                   "<Visibility>Guru</Visibility>"
                                                   "<AccessMode>RO</AccessMode>"
                                                   "<AccessMode>rw</AccessMode></Node>"))));
    MessageCapture messages;

    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"));

    const auto width = parameter(QStringLiteral("@CameraDevice/Width"));
    QTRY_COMPARE(width->getParameterData()->visibility, GenApi::Expert);
    QTRY_COMPARE(width->getParameterData()->accessMode, GenApi::RO);
    QCOMPARE(parameter(QStringLiteral("@CameraDevice/Gain"))->getParameterData()->visibility,
             GenApi::Beginner);
    QCOMPARE(messages.lines(), QStringList());
}

void tst_NodeMapFilter::shouldTakeEveryChildElementAsItemWhateverItsTag()
{
    QVERIFY(writeAppFile(
        kNameFile, QByteArrayLiteral("<Overrides><!-- widths are for experts -->\n"
                                     "<Feature><Name>Width</Name><Visibility>Expert</Visibility>"
                                     "</Feature>\n"
                                     "<Anything><Name>Gain</Name><Visibility>Guru</Visibility>"
                                     "</Anything></Overrides>\n")));

    NodeMapFilter::applyFilter(m_camera->collection, m_camera->info,
                               QStringLiteral("@CameraDevice"));

    QTRY_COMPARE(parameter(QStringLiteral("@CameraDevice/Width"))->getParameterData()->visibility,
                 GenApi::Expert);
    QTRY_COMPARE(parameter(QStringLiteral("@CameraDevice/Gain"))->getParameterData()->visibility,
                 GenApi::Guru);
}

void tst_NodeMapFilter::shouldTakeFullNameWhenNoNodeMapIsGiven()
{
    QDomDocument doc;
    QVERIFY(
        doc.setContent(item(QStringLiteral("@CameraDevice/ExposureTime"), QStringLiteral("Guru"))));
    QDomElement element = doc.documentElement();
    MessageCapture messages;

    NodeMapFilter::processElement(element, m_camera->collection);

    QTRY_COMPARE(
        parameter(QStringLiteral("@CameraDevice/ExposureTime"))->getParameterData()->visibility,
        GenApi::Guru);
    QCOMPARE(messages.lines(), QStringList());
}

QTEST_GUILESS_MAIN(tst_NodeMapFilter)

#include "tst_nodemapfilter.moc"
