#pragma once

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QSize>
#include <QString>
#include <QStringList>

namespace VantoViewer {

// What `vantoviewer` was asked to do. Anything it does not understand is an error, so that a
// mistyped command never does something else in silence.
class CommandLine {
public:
    enum class Mode { Window, Dump, Grab, Discover, Help, Version, Features, DiffFeatures };

    // Stands for the open camera where --diff-features takes a file.
    static const QString kCameraArgument;

    CommandLine();

    // `arguments` starts with the program's name. Returns false with errorText() set when the
    // arguments are not understood.
    bool parse(const QStringList& arguments);
    QString errorText() const { return m_error; }
    // The usage text, as --help prints it.
    QString helpText() const;

    Mode mode() const { return m_mode; }
    bool simulate() const;
    // The description file for --simulate; empty for the built-in camera.
    QString simulatedFile() const;
    QString camera() const;
    QString pluginDir() const;
    QString screenshot() const;
    QString language() const;
    QString panel() const;
    // --live: Continuous Shot is pressed once the window shows.
    bool live() const;
    // --window-size WIDTHxHEIGHT; invalid when not given.
    QSize windowSize() const { return m_windowSizeValue; }
    // --grab N: the frames to acquire (0 without --grab), the file the last one is saved to,
    // and whether the node maps are printed afterwards.
    int grabCount() const { return m_grabCount; }
    QString saveImage() const;
    bool dumpAfterGrab() const;

    // Feature sets. A load comes before --dump or --grab, a save after the load.
    QString saveFeatures() const;
    QString loadFeatures() const;
    // The two sides of --diff-features: files, or kCameraArgument for the open camera.
    QStringList diffFeatures() const { return m_diff; }
    // Whether the run needs a camera opened (a diff of two files does not).
    bool needsCamera() const;

private:
    bool fail(const QString& error);
    bool parseFeatureSets(const QStringList& arguments, QStringList* positional);

    QCommandLineParser m_parser;
    QCommandLineOption m_help;
    QCommandLineOption m_version;
    QCommandLineOption m_simulate;
    QCommandLineOption m_camera;
    QCommandLineOption m_dump;
    QCommandLineOption m_discover;
    QCommandLineOption m_pluginDir;
    QCommandLineOption m_screenshot;
    QCommandLineOption m_lang;
    QCommandLineOption m_panel;
    QCommandLineOption m_live;
    QCommandLineOption m_windowSize;
    QSize m_windowSizeValue;
    QCommandLineOption m_grab;
    QCommandLineOption m_saveImage;
    QCommandLineOption m_saveFeatures;
    QCommandLineOption m_loadFeatures;
    QCommandLineOption m_diffFeatures;
    QStringList m_diff;
    Mode m_mode = Mode::Window;
    int m_grabCount = 0;
    QString m_error;
};

} // namespace VantoViewer
