#include "featuretreeusecaseservice.h"

#include "nodescoperesources.h"

#include <languagehelper/languagehelper.h>

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QJsonValue>
#include <QMap>
#include <QStringList>

namespace Plugin {
namespace Nodescope {
namespace Internal {

namespace {

const QString kBasicUseCaseName = QStringLiteral("Nodescope - Basic");

QString key(const char* name)
{
    return QString::fromLatin1(name);
}

} // namespace

CFeatureTreeUseCaseService::CFeatureTreeUseCaseService(QObject* parent, const QString& folder)
    : IFeatureTreeUseCaseService(parent), m_folder(folder)
{}

CFeatureTreeUseCaseService::~CFeatureTreeUseCaseService() = default;

void CFeatureTreeUseCaseService::initialize()
{
    initNodescopeResources();
    // Default filter and sort: files are read in name order, so a later file may override
    // a use case of an earlier one.
    const QStringList fileNames =
        QDir(m_folder).entryList(QStringList{key(Constants::JSON_FILE_NAME_FILTER)});
    for (const QString& fileName : fileNames) {
        readFile(fileName);
    }
    // No useCaseMapChanged here: the maps are complete before any panel asks for them.
}

QVariantMap CFeatureTreeUseCaseService::getUseCaseMap() const
{
    return m_useCaseMap;
}

QVariantMap CFeatureTreeUseCaseService::getBasicUseCaseMap() const
{
    return m_basicUseCaseMap;
}

void CFeatureTreeUseCaseService::readFile(const QString& fileName)
{
    // A folder called "*.json" opens fine as a resource but holds no document.
    const QString path = QDir(m_folder).filePath(fileName);
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || !file.isReadable()) {
        qDebug().noquote() << fileName << "not readable";
        return;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (document.isNull()) {
        qDebug().noquote() << error.errorString();
        return;
    }
    const QJsonValue useCases =
        document.object().value(key(Constants::NODESCOPE_USE_CASES_PROPERTY));
    if (!useCases.isArray()) {
        qDebug() << "UseCases has no valid content";
        return;
    }
    const QJsonArray array = useCases.toArray();
    for (const QJsonValue& useCase : array) {
        readUseCase(useCase.toObject());
    }
}

void CFeatureTreeUseCaseService::readUseCase(const QJsonObject& useCase)
{
    const QJsonValue nameValue = useCase.value(key(Constants::NODESCOPE_NAME_PROPERTY));
    if (!nameValue.isArray() || nameValue.toArray().isEmpty()) {
        qDebug() << "Name not existent or Name content is not an array. Skipping use case...";
        return;
    }

    const QString textKey = key(Constants::NODESCOPE_TEXT_PROPERTY);
    const QString codeKey = key(Constants::NODESCOPE_LANGUAGE_CODE_PROPERTY);
    QMap<QString, QString> names;
    const QJsonArray nameArray = nameValue.toArray();
    for (const QJsonValue& entry : nameArray) {
        const QJsonObject name = entry.toObject();
        if (!name.contains(textKey) || !name.contains(codeKey)) {
            continue;
        }
        const QString text = name.value(textKey).toString();
        const QString code = name.value(codeKey).toString();
        if (code.isEmpty() || names.contains(code)) {
            qDebug().noquote() << QStringLiteral(
                                      "Language code already known or broken. Dropping ") +
                                      code + QLatin1Char(',') + text;
            continue;
        }
        names.insert(code, text);
    }
    if (names.isEmpty()) {
        qDebug() << "No valid Name existent. Skipping use case...";
        return;
    }

    QString displayName;
    const QString language = LanguageHelper::loadLanguageId();
    if (names.contains(language)) {
        displayName = names.value(language);
    } else {
        // The smallest code stands in; with the shipped files that is English.
        displayName = names.first();
        qDebug().noquote() << QStringLiteral("Couldn't find correct translation for usecase: ") +
                                  displayName;
    }

    const QVariant parameters = QVariant(readParameters(useCase));
    if (displayName == kBasicUseCaseName) {
        m_basicUseCaseMap.insert(displayName, parameters);
    } else {
        m_useCaseMap.insert(displayName, parameters);
    }
}

QStringList CFeatureTreeUseCaseService::readParameters(const QJsonObject& useCase)
{
    QStringList parameters;
    // The names stay unchecked: only the feature tree knows which node maps a camera has.
    const QJsonArray array = useCase.value(key(Constants::NODESCOPE_PARAMETERS_PROPERTY)).toArray();
    for (const QJsonValue& value : array) {
        const QString parameter = value.toString();
        if (parameter.isEmpty()) {
            qDebug() << "Skipping empty parameter...";
            continue;
        }
        parameters.append(parameter);
    }
    return parameters;
}

} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
