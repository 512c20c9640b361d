#include "commandline.h"

#include "imagewriter.h"

namespace VantoViewer {

const QString CommandLine::kCameraArgument = QStringLiteral("camera");

CommandLine::CommandLine()
    : m_help(QStringList{QStringLiteral("h"), QStringLiteral("help")},
             QStringLiteral("Displays help on commandline options.")),
      m_version(QStringList{QStringLiteral("v"), QStringLiteral("version")},
                QStringLiteral("Displays version information.")),
      m_simulate(QStringLiteral("simulate"),
                 QStringLiteral("Open a simulated camera: the built-in one, or the GenICam "
                                "description FILE.xml given as argument.")),
      m_camera(QStringLiteral("camera"),
               QStringLiteral("Open the camera with this id or IP address."),
               QStringLiteral("ID|ADDRESS")),
      m_dump(QStringLiteral("dump"),
             QStringLiteral("Print the feature tree with values, then exit.")),
      m_discover(
          QStringLiteral("discover"),
          QStringLiteral("Search every network interface and USB for cameras and list them.")),
      m_pluginDir(QStringLiteral("plugin-dir"), QStringLiteral("Look for plug-ins in DIR first."),
                  QStringLiteral("DIR")),
      m_screenshot(QStringLiteral("screenshot"),
                   QStringLiteral("Save the window as FILE.png once the features are shown, then "
                                  "exit."),
                   QStringLiteral("FILE.png")),
      m_lang(QStringLiteral("lang"),
             QStringLiteral("Language of the user interface (en, ja, ko, zh)."),
             QStringLiteral("xx")),
      m_panel(QStringLiteral("panel"),
              QStringLiteral("Show this panel at start, by id (Nodescope.Widget.Basic) or title."),
              QStringLiteral("PANEL")),
      m_live(QStringLiteral("live"),
             QStringLiteral("Start acquiring at once (Continuous Shot); with --screenshot, the "
                            "window is saved once the first image shows.")),
      m_windowSize(QStringLiteral("window-size"),
                   QStringLiteral("Open the window at this size, e.g. 1280x800."),
                   QStringLiteral("WIDTHxHEIGHT")),
      m_grab(QStringLiteral("grab"),
             QStringLiteral("Acquire N frames from the camera, print how long it took, then "
                            "exit."),
             QStringLiteral("N")),
      m_saveImage(QStringLiteral("save-image"),
                  QStringLiteral("With --grab: save the last frame as FILE, a PNG, TIFF or raw "
                                 "image by its suffix (.png, .tif, .tiff, .raw)."),
                  QStringLiteral("FILE")),
      m_saveFeatures(QStringLiteral("save-features"),
                     QStringLiteral("Save the camera's streamable features to FILE, then exit."),
                     QStringLiteral("FILE")),
      m_loadFeatures(QStringLiteral("load-features"),
                     QStringLiteral("Write the features in FILE to the camera, before --dump, "
                                    "and report what could not be written."),
                     QStringLiteral("FILE")),
      m_diffFeatures(QStringLiteral("diff-features"),
                     QStringLiteral("Print the features that differ between A and B, each a "
                                    "feature set file or \"camera\" (the camera opened with "
                                    "--simulate or --camera); exit 0 when equal, 1 when they "
                                    "differ."),
                     QStringLiteral("A B"))
{
    m_parser.setApplicationDescription(
        QStringLiteral("Vanto Viewer: browse and edit the GenICam features of cameras."));
    m_parser.addOptions({m_help, m_version, m_simulate, m_camera, m_dump, m_discover, m_pluginDir,
                         m_screenshot, m_lang, m_panel, m_live, m_windowSize, m_grab, m_saveImage,
                         m_saveFeatures, m_loadFeatures, m_diffFeatures});
    m_parser.addPositionalArgument(QStringLiteral("FILE.xml"),
                                   QStringLiteral("GenICam description for --simulate."),
                                   QStringLiteral("[FILE.xml]"));
}

bool CommandLine::fail(const QString& error)
{
    m_error = error;
    return false;
}

bool CommandLine::parse(const QStringList& arguments)
{
    m_error.clear();
    m_mode = Mode::Window;
    m_grabCount = 0;
    if (!m_parser.parse(arguments)) {
        return fail(m_parser.errorText());
    }
    QStringList files = m_parser.positionalArguments();
    if (!parseFeatureSets(arguments, &files)) {
        return false;
    }
    if (files.size() > 1) {
        return fail(QStringLiteral("only one description file can be simulated, %1 were given: %2")
                        .arg(files.size())
                        .arg(files.join(QStringLiteral(", "))));
    }
    if (!files.isEmpty() && !m_parser.isSet(m_simulate)) {
        return fail(QStringLiteral("%1: a description file is opened only with --simulate")
                        .arg(files.first()));
    }
    if (!files.isEmpty() && files.first().isEmpty()) {
        return fail(QStringLiteral("the description file name is empty"));
    }
    if (m_parser.isSet(m_help)) {
        m_mode = Mode::Help;
        return true;
    }
    if (m_parser.isSet(m_version)) {
        m_mode = Mode::Version;
        return true;
    }
    if (m_parser.isSet(m_simulate) && m_parser.isSet(m_camera)) {
        return fail(QStringLiteral("--simulate and --camera cannot be used together"));
    }
    if (m_parser.isSet(m_camera) && m_parser.value(m_camera).trimmed().isEmpty()) {
        return fail(QStringLiteral("--camera needs an id or an address"));
    }
    if (m_parser.isSet(m_discover)) {
        if (m_parser.isSet(m_dump) || m_parser.isSet(m_simulate) || m_parser.isSet(m_camera) ||
            m_parser.isSet(m_screenshot) || m_parser.isSet(m_grab) ||
            m_parser.isSet(m_saveFeatures) || m_parser.isSet(m_loadFeatures)) {
            return fail(QStringLiteral("--discover cannot be combined with opening a camera"));
        }
        m_mode = Mode::Discover;
        return true;
    }
    m_windowSizeValue = QSize();
    if (m_parser.isSet(m_windowSize)) {
        const QStringList sides = m_parser.value(m_windowSize).split(QLatin1Char('x'));
        bool widthOk = false;
        bool heightOk = false;
        if (sides.size() == 2) {
            m_windowSizeValue = QSize(sides.at(0).toInt(&widthOk), sides.at(1).toInt(&heightOk));
        }
        if (!widthOk || !heightOk || m_windowSizeValue.isEmpty()) {
            return fail(QStringLiteral("--window-size needs WIDTHxHEIGHT, e.g. 1280x800, not %1")
                            .arg(m_parser.value(m_windowSize)));
        }
    }
    if (m_parser.isSet(m_saveImage) && !m_parser.isSet(m_grab)) {
        return fail(QStringLiteral("--save-image saves a grabbed frame: it needs --grab N"));
    }
    if (m_parser.isSet(m_saveImage) && m_parser.value(m_saveImage).isEmpty()) {
        return fail(QStringLiteral("--save-image needs a file name"));
    }
    if (m_parser.isSet(m_saveImage) &&
        !ImageWriter::formatOf(m_parser.value(m_saveImage), nullptr)) {
        return fail(QStringLiteral("--save-image writes .png, .tif, .tiff or .raw files, not %1")
                        .arg(m_parser.value(m_saveImage)));
    }
    if (m_parser.isSet(m_grab)) {
        bool ok = false;
        const int count = m_parser.value(m_grab).toInt(&ok);
        if (!ok || count < 1) {
            return fail(QStringLiteral("--grab needs a number of frames of 1 or more, not \"%1\"")
                            .arg(m_parser.value(m_grab)));
        }
        if (m_parser.isSet(m_screenshot) || m_parser.isSet(m_panel) || m_parser.isSet(m_live) ||
            m_parser.isSet(m_windowSize)) {
            return fail(QStringLiteral("--grab shows no window: --screenshot, --panel, --live and "
                                       "--window-size do not apply"));
        }
        if (m_parser.isSet(m_saveFeatures)) {
            return fail(QStringLiteral("--grab and --save-features are runs of their own; "
                                       "--load-features is what combines with --grab"));
        }
        m_grabCount = count;
        m_mode = Mode::Grab;
        return true;
    }
    if (m_parser.isSet(m_dump)) {
        if (m_parser.isSet(m_screenshot) || m_parser.isSet(m_panel) || m_parser.isSet(m_live) ||
            m_parser.isSet(m_windowSize)) {
            return fail(QStringLiteral("--dump shows no window: --screenshot, --panel, --live "
                                       "and --window-size do not apply"));
        }
        m_mode = Mode::Dump;
    }
    if (m_mode == Mode::Window && !m_diff.isEmpty()) {
        m_mode = Mode::DiffFeatures;
    } else if (m_mode == Mode::Window &&
               (m_parser.isSet(m_saveFeatures) || m_parser.isSet(m_loadFeatures))) {
        m_mode = Mode::Features;
    }
    if ((m_mode == Mode::Features || m_mode == Mode::DiffFeatures) &&
        (m_parser.isSet(m_screenshot) || m_parser.isSet(m_panel))) {
        return fail(QStringLiteral("feature sets are handled without a window: --screenshot and "
                                   "--panel do not apply"));
    }
    return true;
}

// --diff-features takes two values; the second is the argument right after the first.
bool CommandLine::parseFeatureSets(const QStringList& arguments, QStringList* positional)
{
    m_diff.clear();
    for (const QCommandLineOption* option : {&m_saveFeatures, &m_loadFeatures}) {
        if (m_parser.isSet(*option) && m_parser.value(*option).isEmpty()) {
            return fail(QStringLiteral("--%1 needs a file name").arg(option->names().first()));
        }
    }
    if (!m_parser.isSet(m_diffFeatures)) {
        return true;
    }
    if (m_parser.values(m_diffFeatures).size() > 1) {
        return fail(QStringLiteral("--diff-features can be given only once"));
    }
    const QString a = m_parser.value(m_diffFeatures);
    int at = -1;
    for (int i = 1; i < arguments.size() && at < 0; ++i) {
        if (arguments.at(i) == QLatin1String("--diff-features")) {
            at = i + 2;
        } else if (arguments.at(i).startsWith(QLatin1String("--diff-features="))) {
            at = i + 1;
        }
    }
    const QString b = at > 0 && at < arguments.size() ? arguments.at(at) : QString();
    if (b.isEmpty() || b.startsWith(QLatin1Char('-')) || !positional->contains(b) || a.isEmpty()) {
        return fail(QStringLiteral("--diff-features needs two sides, A and B: files, or "
                                   "\"%1\" for the open camera")
                        .arg(kCameraArgument));
    }
    positional->removeOne(b);
    if (a == kCameraArgument && b == kCameraArgument) {
        return fail(QStringLiteral("--diff-features: only one camera is open, so only one side "
                                   "can be \"%1\"")
                        .arg(kCameraArgument));
    }
    if (m_parser.isSet(m_saveFeatures) || m_parser.isSet(m_loadFeatures) ||
        m_parser.isSet(m_dump) || m_parser.isSet(m_discover) || m_parser.isSet(m_grab)) {
        return fail(QStringLiteral("--diff-features is a run of its own: it does not combine "
                                   "with --save-features, --load-features, --dump, --grab or "
                                   "--discover"));
    }
    m_diff = QStringList{a, b};
    return true;
}

QString CommandLine::saveFeatures() const
{
    return m_parser.value(m_saveFeatures);
}

QString CommandLine::loadFeatures() const
{
    return m_parser.value(m_loadFeatures);
}

bool CommandLine::needsCamera() const
{
    return m_mode != Mode::DiffFeatures || m_diff.contains(kCameraArgument);
}

QString CommandLine::helpText() const
{
    return m_parser.helpText();
}

bool CommandLine::simulate() const
{
    return m_parser.isSet(m_simulate);
}

QString CommandLine::simulatedFile() const
{
    QStringList files = m_parser.positionalArguments();
    if (!m_diff.isEmpty()) {
        files.removeOne(m_diff.last());
    }
    return files.isEmpty() ? QString() : files.first();
}

QString CommandLine::camera() const
{
    return m_parser.value(m_camera);
}

QString CommandLine::pluginDir() const
{
    return m_parser.value(m_pluginDir);
}

QString CommandLine::screenshot() const
{
    return m_parser.value(m_screenshot);
}

QString CommandLine::language() const
{
    return m_parser.value(m_lang);
}

QString CommandLine::saveImage() const
{
    return m_parser.value(m_saveImage);
}

bool CommandLine::dumpAfterGrab() const
{
    return m_mode == Mode::Grab && m_parser.isSet(m_dump);
}

QString CommandLine::panel() const
{
    return m_parser.value(m_panel);
}

bool CommandLine::live() const
{
    return m_parser.isSet(m_live);
}

} // namespace VantoViewer
