#include "genapitypes.h"

namespace GenApi {

QString visibilityToString(EVisibility visibility)
{
    switch (visibility) {
    case Beginner:
        return QStringLiteral("Beginner");
    case Expert:
        return QStringLiteral("Expert");
    case Guru:
        return QStringLiteral("Guru");
    case Invisible:
        return QStringLiteral("Invisible");
    default:
        return QStringLiteral("Undefined");
    }
}

bool visibilityFromString(const QString& text, EVisibility* visibility)
{
    static const struct {
        const char* name;
        EVisibility value;
    } table[] = {
        {"Beginner", Beginner}, {"Expert", Expert}, {"Guru", Guru}, {"Invisible", Invisible}};
    for (const auto& entry : table) {
        if (text == QLatin1String(entry.name)) {
            *visibility = entry.value;
            return true;
        }
    }
    return false;
}

QString accessModeToString(EAccessMode mode)
{
    switch (mode) {
    case NI:
        return QStringLiteral("NI");
    case NA:
        return QStringLiteral("NA");
    case WO:
        return QStringLiteral("WO");
    case RO:
        return QStringLiteral("RO");
    case RW:
        return QStringLiteral("RW");
    default:
        return QStringLiteral("Undefined");
    }
}

bool accessModeFromString(const QString& text, EAccessMode* mode)
{
    static const struct {
        const char* name;
        EAccessMode value;
    } table[] = {{"NI", NI}, {"NA", NA}, {"WO", WO}, {"RO", RO}, {"RW", RW}};
    for (const auto& entry : table) {
        if (text == QLatin1String(entry.name)) {
            *mode = entry.value;
            return true;
        }
    }
    return false;
}

} // namespace GenApi
