#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QVector>

#include <cstddef>
#include <cstdint>

// The descriptions a fuzz target runs its input under: the built-in camera's modules, and the
// vendor descriptions of the shared folder when it is there (NODESCOPE_SHARED_DIR, else the
// folder the build was configured with). They are read where they lie, never copied.
struct FuzzDescription {
    QString name;
    QByteArray xml;
};

inline void fuzzQuiet(QtMsgType, const QMessageLogContext&, const QString&) {}

inline const QVector<FuzzDescription>& fuzzDescriptions(const char* target)
{
    static int argc = 1;
    static char* argv[] = {const_cast<char*>(target), nullptr};
    static QCoreApplication app(argc, argv);
    static const QVector<FuzzDescription> descriptions = [] {
        Q_INIT_RESOURCE(backend);
        qInstallMessageHandler(fuzzQuiet);
        QVector<FuzzDescription> list;
        const QDir builtIn(QStringLiteral(":/vantoviewer/genicam"));
        QStringList files;
        for (const QString& file : builtIn.entryList({QStringLiteral("*.xml")}, QDir::Files)) {
            files << builtIn.filePath(file);
        }
        QString shared = QString::fromUtf8(qgetenv("NODESCOPE_SHARED_DIR"));
        if (shared.isEmpty()) {
            shared = QStringLiteral(NODESCOPE_DEFAULT_SHARED_DIR);
        }
        const QDir vendor(shared + QStringLiteral("/genicam"));
        for (const QString& file : vendor.entryList({QStringLiteral("*.xml")}, QDir::Files)) {
            files << vendor.filePath(file);
        }
        for (const QString& path : files) {
            QFile file(path);
            if (file.open(QIODevice::ReadOnly)) {
                list.append({QFileInfo(path).baseName(), file.readAll()});
            }
        }
        return list;
    }();
    return descriptions;
}

// Reads the fuzz input front to back; past its end every value is 0.
class FuzzInput {
public:
    FuzzInput(const uint8_t* data, size_t size) : m_data(data), m_size(size) {}
    bool atEnd() const { return m_at >= m_size; }
    uint8_t byte() { return m_at < m_size ? m_data[m_at++] : 0; }
    quint64 word()
    {
        quint64 value = 0;
        for (int i = 0; i < 8; ++i) {
            value = (value << 8) | byte();
        }
        return value;
    }
    const uint8_t* rest() const { return m_data + m_at; }
    size_t restSize() const { return m_at < m_size ? m_size - m_at : 0; }

private:
    const uint8_t* m_data;
    size_t m_size;
    size_t m_at = 0;
};
