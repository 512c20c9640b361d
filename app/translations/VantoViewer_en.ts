<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en_US">
<context>
    <name>VantoViewer::DevicesPane</name>
    <message>
        <source>%1 (lost)</source>
        <translation>%1 (lost)</translation>
    </message>
    <message>
        <source>Found cameras (double-click to open):</source>
        <translation>Found cameras (double-click to open):</translation>
    </message>
    <message>
        <source>Camera by IP Address or ID...</source>
        <translation>Camera by IP Address or ID...</translation>
    </message>
    <message>
        <source>Built-in Simulated Camera</source>
        <translation>Built-in Simulated Camera</translation>
    </message>
    <message>
        <source>Simulated Camera from GenICam File...</source>
        <translation>Simulated Camera from GenICam File...</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Open</translation>
    </message>
    <message>
        <source>Open a camera</source>
        <translation>Open a camera</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Close the selected camera</source>
        <translation>Close the selected camera</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>Scan</translation>
    </message>
    <message>
        <source>Look for cameras on every network interface and on USB</source>
        <translation>Look for cameras on every network interface and on USB</translation>
    </message>
    <message>
        <source>Scanning...</source>
        <translation>Scanning...</translation>
    </message>
    <message>
        <source>Open Camera</source>
        <translation>Open Camera</translation>
    </message>
    <message>
        <source>IP address or device ID:</source>
        <translation>IP address or device ID:</translation>
    </message>
    <message>
        <source>Simulate a Camera</source>
        <translation>Simulate a Camera</translation>
    </message>
    <message>
        <source>GenICam descriptions (*.xml *.zip)</source>
        <translation>GenICam descriptions (*.xml *.zip)</translation>
    </message>
    <message>
        <source>ID: %1
Serial number: %2
Transport: %3</source>
        <translation>ID: %1
Serial number: %2
Transport: %3</translation>
    </message>
    <message>
        <source>No cameras found</source>
        <translation>No cameras found</translation>
    </message>
    <message>
        <source>Reconnect</source>
        <translation>Reconnect</translation>
    </message>
    <message>
        <source>Open the lost camera again, once it is back</source>
        <translation>Open the lost camera again, once it is back</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetActions</name>
    <message>
        <source>Save Features...</source>
        <translation>Save Features...</translation>
    </message>
    <message>
        <source>Load Features...</source>
        <translation>Load Features...</translation>
    </message>
    <message>
        <source>Compare Features...</source>
        <translation>Compare Features...</translation>
    </message>
    <message>
        <source>Saves the camera&apos;s features to a file</source>
        <translation>Saves the camera&apos;s features to a file</translation>
    </message>
    <message>
        <source>Writes the features of a file to the camera</source>
        <translation>Writes the features of a file to the camera</translation>
    </message>
    <message>
        <source>Lists the features in which the camera differs from a file or another camera</source>
        <translation>Lists the features in which the camera differs from a file or another camera</translation>
    </message>
    <message>
        <source>%1 has no features to save</source>
        <translation>%1 has no features to save</translation>
    </message>
    <message>
        <source>Cannot read the features of %1: %2</source>
        <translation>Cannot read the features of %1: %2</translation>
    </message>
    <message>
        <source>Save Features</source>
        <translation>Save Features</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>Cannot write %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n feature value(s) saved to %1</source>
        <translation>
            <numerusform>%n feature value saved to %1</numerusform>
            <numerusform>%n feature values saved to %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Load Features</source>
        <translation>Load Features</translation>
    </message>
    <message>
        <source>Cannot load %1: %2</source>
        <translation>Cannot load %1: %2</translation>
    </message>
    <message>
        <source>Writing the features of %1...</source>
        <translation>Writing the features of %1...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>A feature set file...</source>
        <translation>A feature set file...</translation>
    </message>
    <message>
        <source>Compare Features</source>
        <translation>Compare Features</translation>
    </message>
    <message>
        <source>Compare %1 with:</source>
        <translation>Compare %1 with:</translation>
    </message>
    <message>
        <source>Cannot compare with %1: %2</source>
        <translation>Cannot compare with %1: %2</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetCompareDialog</name>
    <message>
        <source>Compare Features</source>
        <translation>Compare Features</translation>
    </message>
    <message>
        <source>%1 and %2 hold the same values.</source>
        <translation>%1 and %2 hold the same values.</translation>
    </message>
    <message numerus="yes">
        <source>%n feature(s) differ between %1 and %2.</source>
        <translation>
            <numerusform>%n feature differs between %1 and %2.</numerusform>
            <numerusform>%n features differ between %1 and %2.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetCompareModel</name>
    <message>
        <source>Feature</source>
        <translation>Feature</translation>
    </message>
    <message>
        <source>Only In</source>
        <translation>Only In</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetReportDialog</name>
    <message>
        <source>Unknown feature</source>
        <translation>Unknown feature</translation>
    </message>
    <message>
        <source>Read-only</source>
        <translation>Read-only</translation>
    </message>
    <message>
        <source>Out of range</source>
        <translation>Out of range</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>Not available</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>Locked</translation>
    </message>
    <message>
        <source>Invalid value</source>
        <translation>Invalid value</translation>
    </message>
    <message>
        <source>Refused by the camera</source>
        <translation>Refused by the camera</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Cancelled</translation>
    </message>
    <message>
        <source>Feature Set Loaded</source>
        <translation>Feature Set Loaded</translation>
    </message>
    <message numerus="yes">
        <source>%1: every line was applied; %n feature(s) changed.</source>
        <translation>
            <numerusform>%1: every line was applied; %n feature changed.</numerusform>
            <numerusform>%1: every line was applied; %n features changed.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n line(s) could not be applied.</source>
        <translation>
            <numerusform>%1: %n line could not be applied.</numerusform>
            <numerusform>%1: %n lines could not be applied.</numerusform>
        </translation>
    </message>
    <message>
        <source>Line</source>
        <translation>Line</translation>
    </message>
    <message>
        <source>Feature</source>
        <translation>Feature</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>Details</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureStatusBar</name>
    <message>
        <source>refused by the camera (access denied)</source>
        <translation>refused by the camera (access denied)</translation>
    </message>
    <message>
        <source>refused by the camera (value out of range)</source>
        <translation>refused by the camera (value out of range)</translation>
    </message>
    <message>
        <source>refused by the camera (invalid value)</source>
        <translation>refused by the camera (invalid value)</translation>
    </message>
    <message>
        <source>not written: the camera did not answer in time</source>
        <translation>not written: the camera did not answer in time</translation>
    </message>
    <message>
        <source>not written: the camera is lost</source>
        <translation>not written: the camera is lost</translation>
    </message>
    <message>
        <source>not written: the camera does not have it</source>
        <translation>not written: the camera does not have it</translation>
    </message>
    <message>
        <source>the write failed</source>
        <translation>the write failed</translation>
    </message>
</context>
<context>
    <name>VantoViewer::MainWindow</name>
    <message>
        <source>Devices</source>
        <translation>Devices</translation>
    </message>
    <message>
        <source>Vanto Viewer</source>
        <translation>Vanto Viewer</translation>
    </message>
    <message numerus="yes">
        <source>%n camera(s) found</source>
        <translation>
            <numerusform>%n camera found</numerusform>
            <numerusform>%n cameras found</numerusform>
        </translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Ready</translation>
    </message>
    <message>
        <source>Open Camera by IP Address or ID...</source>
        <translation>Open Camera by IP Address or ID...</translation>
    </message>
    <message>
        <source>Open Built-in Simulated Camera</source>
        <translation>Open Built-in Simulated Camera</translation>
    </message>
    <message>
        <source>Close Camera</source>
        <translation>Close Camera</translation>
    </message>
    <message>
        <source>Refresh Features</source>
        <translation>Refresh Features</translation>
    </message>
    <message>
        <source>Reads every shown feature from the camera again</source>
        <translation>Reads every shown feature from the camera again</translation>
    </message>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>Cannot open %1: %2</translation>
    </message>
    <message>
        <source>Cannot simulate %1: %2</source>
        <translation>Cannot simulate %1: %2</translation>
    </message>
    <message>
        <source>the built-in camera</source>
        <translation>the built-in camera</translation>
    </message>
    <message>
        <source>%1 is lost: %2</source>
        <translation>%1 is lost: %2</translation>
    </message>
    <message>
        <source>Visibility</source>
        <translation>Visibility</translation>
    </message>
    <message>
        <source>Cannot reconnect %1: %2</source>
        <translation>Cannot reconnect %1: %2</translation>
    </message>
    <message>
        <source>%1 is connected again</source>
        <translation>%1 is connected again</translation>
    </message>
    <message>
        <source>Settings cannot be saved to %1: %2. Changes to the layout and the visibility level are lost when the viewer closes.</source>
        <translation>Settings cannot be saved to %1: %2. Changes to the layout and the visibility level are lost when the viewer closes.</translation>
    </message>
    <message>
        <source>Opening %1...</source>
        <translation>Opening %1...</translation>
    </message>
</context>
<context>
    <name>VantoViewer::MenuService</name>
    <message>
        <source>&amp;Camera</source>
        <translation>&amp;Camera</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Window</translation>
    </message>
</context>
<context>
    <name>VantoViewer::OpeningProgress</name>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Opening Camera</source>
        <translation>Opening Camera</translation>
    </message>
</context>
<context>
    <name>VantoViewer::PluginManager</name>
    <message>
        <source>%1 is no Vanto Viewer plug-in: %2</source>
        <translation>%1 is no Vanto Viewer plug-in: %2</translation>
    </message>
    <message>
        <source>Cannot load %1: %2</source>
        <translation>Cannot load %1: %2</translation>
    </message>
    <message>
        <source>The plug-in %1 did not start.</source>
        <translation>The plug-in %1 did not start.</translation>
    </message>
</context>
<context>
    <name>VantoViewer::VisibilityToolBar</name>
    <message>
        <source>Visibility</source>
        <translation>Visibility</translation>
    </message>
    <message>
        <source>Beginner</source>
        <translation>Beginner</translation>
    </message>
    <message>
        <source>Show the features needed for basic camera set-up</source>
        <translation>Show the features needed for basic camera set-up</translation>
    </message>
    <message>
        <source>Expert</source>
        <translation>Expert</translation>
    </message>
    <message>
        <source>Also show the features for advanced set-up</source>
        <translation>Also show the features for advanced set-up</translation>
    </message>
    <message>
        <source>Guru</source>
        <translation>Guru</translation>
    </message>
    <message>
        <source>Show every feature, including those that need care</source>
        <translation>Show every feature, including those that need care</translation>
    </message>
</context>
<context>
    <name>VantoViewer::WindowService</name>
    <message>
        <source>the file or its folder cannot be written</source>
        <translation>the file or its folder cannot be written</translation>
    </message>
    <message>
        <source>the file is damaged</source>
        <translation>the file is damaged</translation>
    </message>
</context>
</TS>
