#include "conversionsettings.h"

#include <parametercollection/iparameter.h>
#include <parametercollection/iparametercollection.h>
#include <parametercollection/parameterdata.h>

#include <QtMath>

namespace VantoViewer {

namespace {

QVariant readValue(ParameterCollection::IParameterCollection& collection, const char* feature)
{
    const auto parameter =
        collection.getParameter(QStringLiteral("@ImageFormatConverter/") + QLatin1String(feature));
    if (!parameter) {
        return QVariant();
    }
    const auto data = parameter->getParameterData();
    return data && data->readable ? data->value : QVariant();
}

} // namespace

ConversionSettings
ConversionSettings::fromCollection(ParameterCollection::IParameterCollection& collection)
{
    ConversionSettings settings;
    const QVariant format = readValue(collection, "OutputPixelFormat");
    if (format.isValid()) {
        settings.outputFormat = format.toString() == QLatin1String("Mono8") ? Mono8 : RGB8;
    }
    bool ok = false;
    const double gamma = readValue(collection, "Gamma").toDouble(&ok);
    if (ok && gamma > 0.0 && qIsFinite(gamma)) {
        settings.gamma = gamma;
    }
    return settings;
}

} // namespace VantoViewer
