#pragma once

#include <QSettings>
#include <QStandardPaths>
#include <QString>

// Keeps the user's real settings out of reach: every QSettings of the test lands in `folder`.
inline void isolateSettings(const QString& folder)
{
    QStandardPaths::setTestModeEnabled(true);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder);
}
