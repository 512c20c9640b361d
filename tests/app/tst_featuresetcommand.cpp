#include "featuresetcommand.h"

#include <camerapool.h>
#include <featureset.h>

#include <parametercollection/iparametercollection.h>

#include <QTemporaryDir>
#include <QtTest>

using VantoViewer::FeatureSetCommand;

class tst_FeatureSetCommand : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void shouldSaveAFileThatDiffsEqualWithTheCamera();
    void shouldPrintTheDifferencesAndExitOne();
    void shouldLoadAFileAndReportTheLinesNotApplied();
    void shouldExitTwoOnAnUnreadableSide();

private:
    int run(const std::function<int(FeatureSetCommand&)>& command);
    QString path(const QString& name) const { return m_dir.filePath(name); }
    void write(const QString& name, const QByteArray& bytes);

    QTemporaryDir m_dir;
    std::unique_ptr<Backend::CameraPool> m_pool;
    ParameterCollection::IParameterCollection* m_camera = nullptr;
    QString m_out;
    QString m_err;
};

void tst_FeatureSetCommand::init()
{
    m_pool = std::make_unique<Backend::CameraPool>();
    m_camera = m_pool->getParameterCollection(m_pool->openSimulated()).data();
    m_out.clear();
    m_err.clear();
}

void tst_FeatureSetCommand::cleanup()
{
    m_pool.reset();
}

int tst_FeatureSetCommand::run(const std::function<int(FeatureSetCommand&)>& command)
{
    m_out.clear();
    m_err.clear();
    QTextStream out(&m_out);
    QTextStream err(&m_err);
    FeatureSetCommand features(out, err);
    return command(features);
}

void tst_FeatureSetCommand::write(const QString& name, const QByteArray& bytes)
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

void tst_FeatureSetCommand::shouldSaveAFileThatDiffsEqualWithTheCamera()
{
    const QString saved = path(QStringLiteral("saved.txt"));
    QCOMPARE(run([&](FeatureSetCommand& c) { return c.save(m_camera, saved); }), 0);
    QVERIFY(Backend::FeatureSet::read(saved).lines.size() > 100);
    QCOMPARE(run([&](FeatureSetCommand& c) {
                 return c.diff(QStringLiteral("camera"), saved, m_camera);
             }),
             0);
    QCOMPARE(m_out, QStringLiteral("Feature\tcamera\t%1\tOnly in\n").arg(saved));
    QVERIFY2(m_err.contains(QStringLiteral("0 features differ")), qPrintable(m_err));
}

void tst_FeatureSetCommand::shouldPrintTheDifferencesAndExitOne()
{
    const QByteArray header = "Nodescope feature set\nFormat: 1\n\n";
    write(QStringLiteral("a.txt"),
          header + "Width = 640\nHeight = 480\n[GainSelector = AnalogAll]\nGain = 2\n[End]\n");
    write(QStringLiteral("b.txt"),
          header + "Width = 800\nReverseX = true\n[GainSelector = AnalogAll]\nGain = 2\n[End]\n");
    const int status = run([&](FeatureSetCommand& c) {
        return c.diff(path(QStringLiteral("a.txt")), path(QStringLiteral("b.txt")), nullptr);
    });
    QCOMPARE(status, 1);
    const QString a = path(QStringLiteral("a.txt"));
    const QString b = path(QStringLiteral("b.txt"));
    QCOMPARE(m_out, QStringLiteral("Feature\t%1\t%2\tOnly in\n"
                                   "Height\t480\t\t%1\n"
                                   "ReverseX\t\ttrue\t%2\n"
                                   "Width\t640\t800\t\n")
                        .arg(a, b));
}

void tst_FeatureSetCommand::shouldLoadAFileAndReportTheLinesNotApplied()
{
    write(QStringLiteral("in.txt"), "Nodescope feature set\nFormat: 1\n\nWidth = 640\n"
                                    "NoSuchFeature = 3\n[End]\n");
    const int status =
        run([&](FeatureSetCommand& c) { return c.load(m_camera, path(QStringLiteral("in.txt"))); });
    QCOMPARE(status, 1);
    QVERIFY2(m_err.contains(QStringLiteral("line 5: NoSuchFeature = 3 not applied: unknown "
                                           "feature")),
             qPrintable(m_err));
    QCOMPARE(m_camera->getParameter(QStringLiteral("@CameraDevice/Width"))
                 ->getParameterData()
                 ->value.toLongLong(),
             640);
}

void tst_FeatureSetCommand::shouldExitTwoOnAnUnreadableSide()
{
    write(QStringLiteral("cut.txt"), "Nodescope feature set\nFormat: 1\n\nWidth = 6");
    QCOMPARE(run([&](FeatureSetCommand& c) {
                 return c.diff(QStringLiteral("camera"), path(QStringLiteral("cut.txt")), m_camera);
             }),
             2);
    QVERIFY2(m_err.contains(QStringLiteral("truncated")), qPrintable(m_err));
    QCOMPARE(run([&](FeatureSetCommand& c) {
                 return c.load(m_camera, path(QStringLiteral("cut.txt")));
             }),
             2);
    QCOMPARE(run([&](FeatureSetCommand& c) {
                 return c.diff(path(QStringLiteral("none.txt")), QStringLiteral("camera"),
                               m_camera);
             }),
             2);
    QVERIFY2(m_err.contains(QStringLiteral("cannot be read")), qPrintable(m_err));
}

QTEST_MAIN(tst_FeatureSetCommand)
#include "tst_featuresetcommand.moc"
