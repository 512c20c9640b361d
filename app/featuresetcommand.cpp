#include "featuresetcommand.h"

#include "commandline.h"

#include <deviceparametercollection.h>
#include <featureset.h>
#include <featuresetjob.h>
#include <featuresettransfer.h>

#include <parametercollection/exception.h>

#include <QSaveFile>

using Backend::FeatureSet;
using Backend::FeatureSetJob;
using Backend::FeatureSetTransfer;

namespace VantoViewer {

namespace {

Backend::DeviceParameterCollection* deviceOf(ParameterCollection::IParameterCollection* camera)
{
    return qobject_cast<Backend::DeviceParameterCollection*>(camera);
}

} // namespace

int FeatureSetCommand::load(ParameterCollection::IParameterCollection* camera,
                            const QString& fileName)
{
    Backend::DeviceParameterCollection* device = deviceOf(camera);
    if (device == nullptr) {
        m_err << "vantoviewer: no camera to load " << fileName << " into\n";
        return EXIT_FAILED;
    }
    FeatureSetTransfer::LoadReport report;
    try {
        report = FeatureSetJob::loadAndWait(device, FeatureSet::read(fileName));
    } catch (const ParameterCollection::Exception& e) {
        m_err << "vantoviewer: " << e.text() << "\n";
        m_err.flush();
        return EXIT_UNREADABLE;
    }
    for (const auto& failure : report.failures) {
        m_err << "vantoviewer: " << fileName << " line " << failure.lineNumber << ": "
              << failure.name << " = " << failure.value
              << " not applied: " << FeatureSetTransfer::reasonText(failure.reason) << " ("
              << failure.message << ")\n";
    }
    m_err << "vantoviewer: " << fileName << ": changed " << report.applied.size()
          << (report.applied.size() == 1 ? " feature; " : " features; ") << report.failures.size()
          << (report.failures.size() == 1 ? " line" : " lines") << " not applied\n";
    m_err.flush();
    return report.failures.isEmpty() ? EXIT_OK : EXIT_FAILED;
}

int FeatureSetCommand::save(ParameterCollection::IParameterCollection* camera,
                            const QString& fileName)
{
    Backend::DeviceParameterCollection* device = deviceOf(camera);
    if (device == nullptr) {
        m_err << "vantoviewer: no camera to save to " << fileName << "\n";
        return EXIT_FAILED;
    }
    QSaveFile file(fileName);
    try {
        const FeatureSet set = FeatureSetJob::saveAndWait(device);
        if (!file.open(QIODevice::WriteOnly) || file.write(set.toText()) < 0 || !file.commit()) {
            m_err << "vantoviewer: cannot write " << fileName << ": " << file.errorString() << "\n";
            m_err.flush();
            return EXIT_FAILED;
        }
    } catch (const ParameterCollection::Exception& e) {
        m_err << "vantoviewer: " << e.text() << "\n";
        m_err.flush();
        return EXIT_FAILED;
    }
    return EXIT_OK;
}

bool FeatureSetCommand::side(const QString& name, ParameterCollection::IParameterCollection* camera,
                             FeatureSet* set)
{
    try {
        if (name != CommandLine::kCameraArgument) {
            *set = FeatureSet::read(name);
        } else if (Backend::DeviceParameterCollection* device = deviceOf(camera)) {
            *set = FeatureSetJob::saveAndWait(device);
        } else {
            m_err << "vantoviewer: no camera is open\n";
            return false;
        }
    } catch (const ParameterCollection::Exception& e) {
        m_err << "vantoviewer: " << e.text() << "\n";
        return false;
    }
    return true;
}

int FeatureSetCommand::diff(const QString& a, const QString& b,
                            ParameterCollection::IParameterCollection* camera)
{
    FeatureSet left;
    FeatureSet right;
    if (!side(a, camera, &left) || !side(b, camera, &right)) {
        m_err.flush();
        return EXIT_UNREADABLE;
    }
    const auto differences = FeatureSet::compare(left, right);
    m_out << "Feature\t" << a << "\t" << b << "\tOnly in\n";
    for (const auto& d : differences) {
        m_out << d.name << "\t" << d.left << "\t" << d.right << "\t"
              << (d.side == FeatureSet::Difference::Side::LeftOnly    ? a
                  : d.side == FeatureSet::Difference::Side::RightOnly ? b
                                                                      : QString())
              << "\n";
    }
    m_out.flush();
    m_err << "vantoviewer: " << differences.size()
          << (differences.size() == 1 ? " feature differs\n" : " features differ\n");
    m_err.flush();
    return differences.isEmpty() ? EXIT_OK : EXIT_DIFFER;
}

} // namespace VantoViewer
