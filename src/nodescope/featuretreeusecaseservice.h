#pragma once

#include "ifeaturetreeusecaseservice.h"

#include <QString>
#include <QVariantMap>

class QJsonObject;

namespace Plugin {
namespace Nodescope {
namespace Constants {

const char* const NODESCOPE_USE_CASE_RESOURCE_PREFIX = ":/nodescope/usecases/";
const char* const JSON_FILE_NAME_FILTER = "*.json";
const char* const NODESCOPE_USE_CASES_PROPERTY = "UseCases";
const char* const NODESCOPE_NAME_PROPERTY = "Name";
const char* const NODESCOPE_TEXT_PROPERTY = "Text";
const char* const NODESCOPE_LANGUAGE_CODE_PROPERTY = "LanguageCode";
const char* const NODESCOPE_PARAMETERS_PROPERTY = "Parameters";

} // namespace Constants

namespace Internal {

// Reads the use cases shipped as JSON files and names each in the user's language. The use
// case called "Nodescope - Basic" feeds the "Basic" panel and is kept out of the ordinary map.
class CFeatureTreeUseCaseService : public IFeatureTreeUseCaseService {
    Q_OBJECT
public:
    // The folder (a resource prefix or any directory) is only ever changed by
    // tests, which bring their own broken files.
    explicit CFeatureTreeUseCaseService(
        QObject* parent = nullptr,
        const QString& folder = QString::fromLatin1(Constants::NODESCOPE_USE_CASE_RESOURCE_PREFIX));
    ~CFeatureTreeUseCaseService() override;

    void initialize() override;

    QVariantMap getUseCaseMap() const override;
    QVariantMap getBasicUseCaseMap() const override;

private:
    void readFile(const QString& fileName);
    void readUseCase(const QJsonObject& useCase);
    static QStringList readParameters(const QJsonObject& useCase);

    QVariantMap m_useCaseMap;
    QVariantMap m_basicUseCaseMap;
    QString m_folder;
};

} // namespace Internal
} // namespace Nodescope
} // namespace Plugin
