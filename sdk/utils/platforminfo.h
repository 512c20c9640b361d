#pragma once

#include <QObject>
#include <QString>

namespace Utils {

// Facts about the platform for QML, which cannot ask C++ directly. The values are taken when
// the object is made and do not change afterwards.
class PlatformInfo : public QObject {
    Q_OBJECT
    // "linux", "windows" or "macos".
    Q_PROPERTY(QString os READ os CONSTANT)
    Q_PROPERTY(bool isLinux READ isLinux CONSTANT)
    Q_PROPERTY(bool isWindows READ isWindows CONSTANT)
    Q_PROPERTY(bool isMacOS READ isMacOS CONSTANT)
    // Factor by which pixel sizes designed for 96 dots per inch are scaled: the primary
    // screen's logical dots per inch / 96; 1.0 without a screen.
    Q_PROPERTY(double screenScale READ screenScale CONSTANT)
    // The primary screen's logical dots per inch; 96 without a screen.
    Q_PROPERTY(double dpi READ dpi CONSTANT)
public:
    // Default-constructible because QML creates it.
    explicit PlatformInfo(QObject* parent = nullptr);
    ~PlatformInfo() override;

    QString os() const;
    bool isLinux() const;
    bool isWindows() const;
    bool isMacOS() const;
    double screenScale() const;
    double dpi() const;

private:
    double m_dpi;
};

} // namespace Utils
