#pragma once

#include <camerapool.h>
#include <deviceparametercollection.h>

#include <parametercollection/iparametercollection.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QSharedPointer>
#include <QString>
#include <QStringList>

#include <QAbstractItemModelTester>
#include <QtTest>

#include <memory>

// A camera from the real backend, simulated in-process.
struct SimulatedCamera {
    Backend::CameraPool pool;
    QSharedPointer<Backend::CameraInfo> info;
    QSharedPointer<ParameterCollection::IParameterCollection> collection;
};

// The built-in camera with its module node maps, or any description from tests/nodescope/data.
inline std::unique_ptr<SimulatedCamera> openSimulatedCamera(const QString& xmlFile = QString())
{
    auto camera = std::make_unique<SimulatedCamera>();
    camera->info = camera->pool.openSimulated(xmlFile);
    camera->collection = camera->pool.getParameterCollection(camera->info);
    return camera;
}

inline QString nodescopeTestDataPath(const QString& name)
{
    const QByteArray root = qgetenv("NODESCOPE_SOURCE_DIR");
    return QDir(QString::fromUtf8(root)).filePath(QStringLiteral("tests/nodescope/data/") + name);
}

inline QString sharedGenICamDir()
{
    return QString::fromUtf8(qgetenv("NODESCOPE_SHARED_DIR")) + QStringLiteral("/genicam");
}

// Collects debug output while alive, in the form the default message pattern prints it.
class MessageCapture {
public:
    MessageCapture() : m_previous(qInstallMessageHandler(&MessageCapture::handle))
    {
        current() = this;
    }
    ~MessageCapture()
    {
        qInstallMessageHandler(m_previous);
        current() = nullptr;
    }
    MessageCapture(const MessageCapture&) = delete;
    MessageCapture& operator=(const MessageCapture&) = delete;

    const QStringList& lines() const { return m_lines; }
    void clear() { m_lines.clear(); }

private:
    static MessageCapture*& current()
    {
        static MessageCapture* instance = nullptr;
        return instance;
    }
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& message)
    {
        // Only the application's own debug output; the model tester's reports pass on.
        const bool ownOutput = !context.category || qstrcmp(context.category, "default") == 0;
        if (current() && ownOutput) {
            current()->m_lines.append(message);
        } else if (current() && current()->m_previous) {
            current()->m_previous(type, context, message);
        }
    }

    QtMessageHandler m_previous;
    QStringList m_lines;
};

inline QString readTextFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// A description from tests/nodescope/data served as node map "CameraDevice", with the start
// values of the .defaults file of the same base name when there is one.
inline QSharedPointer<Backend::DeviceParameterCollection> openTestDescription(const QString& name)
{
    auto collection = QSharedPointer<Backend::DeviceParameterCollection>::create(name);
    const QString xmlPath = nodescopeTestDataPath(name + QStringLiteral(".xml"));
    const QString defaults =
        readTextFile(nodescopeTestDataPath(name + QStringLiteral(".defaults")));
    collection->attachSimulated(QStringLiteral("CameraDevice"), readTextFile(xmlPath).toUtf8(),
                                defaults);
    return collection;
}

// Runs Qt's model tester on `model` for the model's lifetime. The feature tree model gives the
// invisible root Qt::ItemIsEnabled, as views of the feature tree expect, where the tester's
// convention asks for drop-enabled or nothing; that one report is let through, every other
// report of the tester fails the running test. Models that follow the convention are tested
// with testModelStrictly.
inline void testModel(QAbstractItemModel* model)
{
    static const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& context, const QString& message) {
            const bool fromTester =
                context.category && qstrcmp(context.category, "qt.modeltest") == 0;
            if (fromTester && message.startsWith(QLatin1String("FAIL!"))) {
                if (!message.contains(
                        QLatin1String("flags == Qt::ItemIsDropEnabled || flags == 0"))) {
                    QTest::qFail(qPrintable(message), context.file ? context.file : __FILE__,
                                 context.line);
                }
                return;
            }
            if (previous) {
                previous(type, context, message);
            }
        });
    new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::Warning,
                                 model);
}

// Runs Qt's model tester on `model` for the model's lifetime, every report failing the running
// test.
inline void testModelStrictly(QAbstractItemModel* model)
{
    new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::QtTest,
                                 model);
}
