#include "platforminfo.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>

namespace Utils {

namespace {

// The dots per inch that pixel sizes in the user interface are designed for.
constexpr double REFERENCE_DPI = 96.0;

double primaryScreenDpi()
{
    // A QCoreApplication, as in command-line tools, has no screens to ask.
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        return REFERENCE_DPI;
    }
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen || screen->logicalDotsPerInch() <= 0.0) {
        return REFERENCE_DPI;
    }
    return screen->logicalDotsPerInch();
}

} // namespace

PlatformInfo::PlatformInfo(QObject* parent) : QObject(parent), m_dpi(primaryScreenDpi()) {}

PlatformInfo::~PlatformInfo() = default;

QString PlatformInfo::os() const
{
    if (isWindows()) {
        return QStringLiteral("windows");
    }
    if (isMacOS()) {
        return QStringLiteral("macos");
    }
    return QStringLiteral("linux");
}

bool PlatformInfo::isLinux() const
{
#ifdef Q_OS_LINUX
    return true;
#else
    return false;
#endif
}

bool PlatformInfo::isWindows() const
{
#ifdef Q_OS_WIN
    return true;
#else
    return false;
#endif
}

bool PlatformInfo::isMacOS() const
{
#ifdef Q_OS_MACOS
    return true;
#else
    return false;
#endif
}

double PlatformInfo::screenScale() const
{
    return m_dpi / REFERENCE_DPI;
}

double PlatformInfo::dpi() const
{
    return m_dpi;
}

} // namespace Utils
