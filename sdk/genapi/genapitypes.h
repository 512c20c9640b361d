#pragma once

#include <QMetaType>
#include <QString>

// The GenICam enumerations as the host and its plug-ins exchange them. The numbering follows
// GenApi, so values stored by other GenICam tools keep their meaning.
namespace GenApi {

enum EVisibility { Beginner = 0, Expert = 1, Guru = 2, Invisible = 3, _UndefinedVisibility = 99 };

enum EAccessMode {
    NI = 0, // not implemented
    NA = 1, // not available
    WO = 2,
    RO = 3,
    RW = 4,
    _UndefinedAccesMode = 5,
    _CycleDetectAccesMode = 6
};

// Text forms are the node property values of the GenICam schema ("Beginner", "RW", ...).
QString visibilityToString(EVisibility visibility);
bool visibilityFromString(const QString& text, EVisibility* visibility);
QString accessModeToString(EAccessMode mode);
bool accessModeFromString(const QString& text, EAccessMode* mode);

} // namespace GenApi

Q_DECLARE_METATYPE(GenApi::EVisibility)
Q_DECLARE_METATYPE(GenApi::EAccessMode)
