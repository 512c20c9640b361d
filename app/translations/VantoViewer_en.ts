<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en_US">
<context>
    <name>VantoViewer::AcquisitionActions</name>
    <message>
        <source>Single Shot</source>
        <translation>Single Shot</translation>
    </message>
    <message>
        <source>Continuous Shot</source>
        <translation>Continuous Shot</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>Software Trigger</source>
        <translation>Software Trigger</translation>
    </message>
    <message>
        <source>Acquires one image</source>
        <translation>Acquires one image</translation>
    </message>
    <message>
        <source>Acquires images until stopped</source>
        <translation>Acquires images until stopped</translation>
    </message>
    <message>
        <source>Stops acquiring</source>
        <translation>Stops acquiring</translation>
    </message>
    <message>
        <source>Executes TriggerSoftware: one trigger for the camera</source>
        <translation>Executes TriggerSoftware: one trigger for the camera</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ChangeJournal</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Undo</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Redo</translation>
    </message>
    <message>
        <source>Set %1 to %2</source>
        <translation>Set %1 to %2</translation>
    </message>
    <message numerus="yes">
        <source>%n feature(s)</source>
        <translation>
            <numerusform>%n feature</numerusform>
            <numerusform>%n features</numerusform>
        </translation>
    </message>
    <message>
        <source>Load %1</source>
        <translation>Load %1</translation>
    </message>
    <message>
        <source>the camera is closed</source>
        <translation>the camera is closed</translation>
    </message>
    <message>
        <source>%1: the camera has no such feature</source>
        <translation>%1: the camera has no such feature</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <translation>Undone: %1</translation>
    </message>
    <message>
        <source>Redone: %1</source>
        <translation>Redone: %1</translation>
    </message>
    <message>
        <source>Cannot undo &quot;%1&quot;: %2</source>
        <translation>Cannot undo &quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>Cannot redo &quot;%1&quot;: %2</source>
        <translation>Cannot redo &quot;%1&quot;: %2</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Undo %1</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Redo %1</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ChangesModel</name>
    <message>
        <source>Execute</source>
        <translation>Execute</translation>
    </message>
    <message>
        <source>(not read)</source>
        <translation>(not read)</translation>
    </message>
    <message>
        <source>Applied as one step</source>
        <translation>Applied as one step</translation>
    </message>
    <message>
        <source>Undone</source>
        <translation>Undone</translation>
    </message>
    <message>
        <source>Undo refused: %1</source>
        <translation>Undo refused: %1</translation>
    </message>
    <message>
        <source>Redone</source>
        <translation>Redone</translation>
    </message>
    <message>
        <source>Redo refused: %1</source>
        <translation>Redo refused: %1</translation>
    </message>
    <message>
        <source>Done (feature set)</source>
        <translation>Done (feature set)</translation>
    </message>
    <message>
        <source>Refused (feature set): %1</source>
        <translation>Refused (feature set): %1</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Done</translation>
    </message>
    <message>
        <source>Refused: %1</source>
        <translation>Refused: %1</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Feature</source>
        <translation>Feature</translation>
    </message>
    <message>
        <source>Old Value</source>
        <translation>Old Value</translation>
    </message>
    <message>
        <source>New Value</source>
        <translation>New Value</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>Result</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ConversionEngine</name>
    <message>
        <source>Pixel format %1 can&apos;t be shown.</source>
        <translation>Pixel format %1 can&apos;t be shown.</translation>
    </message>
    <message>
        <source>The %1 frame holds no image (%2 × %3).</source>
        <translation>The %1 frame holds no image (%2 × %3).</translation>
    </message>
    <message>
        <source>A frame of %1 × %2 is too large to be shown.</source>
        <translation>A frame of %1 × %2 is too large to be shown.</translation>
    </message>
    <message>
        <source>The frame holds %1 bytes; a %2 × %3 %4 image needs %5.</source>
        <translation>The frame holds %1 bytes; a %2 × %3 %4 image needs %5.</translation>
    </message>
    <message>
        <source>%1 needs an even width and height; the frame is %2 × %3.</source>
        <translation>%1 needs an even width and height; the frame is %2 × %3.</translation>
    </message>
    <message>
        <source>%1 needs an even width; the frame is %2 × %3.</source>
        <translation>%1 needs an even width; the frame is %2 × %3.</translation>
    </message>
    <message>
        <source>There is no memory for an image of %1 × %2.</source>
        <translation>There is no memory for an image of %1 × %2.</translation>
    </message>
    <message>
        <source>The conversion of %1 failed.</source>
        <translation>The conversion of %1 failed.</translation>
    </message>
</context>
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
    <name>VantoViewer::HistogramPanel</name>
    <message>
        <source>Logarithmic</source>
        <translation>Logarithmic</translation>
    </message>
    <message>
        <source>Counts on a logarithmic scale, so that rare values show</source>
        <translation>Counts on a logarithmic scale, so that rare values show</translation>
    </message>
    <message>
        <source>%1: min %2, max %3, mean %4</source>
        <translation>%1: min %2, max %3, mean %4</translation>
    </message>
    <message>
        <source>No image</source>
        <translation>No image</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ImagePanel</name>
    <message>
        <source>Save Image...</source>
        <translation>Save Image...</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Fit</translation>
    </message>
    <message>
        <source>100 %</source>
        <translation>100 %</translation>
    </message>
    <message>
        <source>Acquisition</source>
        <translation>Acquisition</translation>
    </message>
    <message>
        <source>Shows the whole image</source>
        <translation>Shows the whole image</translation>
    </message>
    <message>
        <source>Shows one screen pixel per image pixel</source>
        <translation>Shows one screen pixel per image pixel</translation>
    </message>
    <message>
        <source>Writes the image shown as PNG, TIFF or raw bytes</source>
        <translation>Writes the image shown as PNG, TIFF or raw bytes</translation>
    </message>
    <message>
        <source>The acquisition failed: %1</source>
        <translation>The acquisition failed: %1</translation>
    </message>
    <message>
        <source>No camera is open. Open one in the Devices pane or the Camera menu.</source>
        <translation>No camera is open. Open one in the Devices pane or the Camera menu.</translation>
    </message>
    <message>
        <source>This camera has no stream to show.</source>
        <translation>This camera has no stream to show.</translation>
    </message>
    <message>
        <source>Press Continuous Shot (%1) or Single Shot (%2) to see the camera&apos;s image.</source>
        <translation>Press Continuous Shot (%1) or Single Shot (%2) to see the camera&apos;s image.</translation>
    </message>
    <message>
        <source>%1, %2 × %3 pixels</source>
        <translation>%1, %2 × %3 pixels</translation>
    </message>
    <message>
        <source>x %1, y %2: %3</source>
        <translation>x %1, y %2: %3</translation>
    </message>
    <message>
        <source>There is no image to save.</source>
        <translation>There is no image to save.</translation>
    </message>
    <message>
        <source>PNG image (*.png)</source>
        <translation>PNG image (*.png)</translation>
    </message>
    <message>
        <source>TIFF image (*.tif *.tiff)</source>
        <translation>TIFF image (*.tif *.tiff)</translation>
    </message>
    <message>
        <source>Raw bytes with a side file (*.raw)</source>
        <translation>Raw bytes with a side file (*.raw)</translation>
    </message>
    <message>
        <source>Save Image</source>
        <translation>Save Image</translation>
    </message>
    <message>
        <source>Cannot save %1: %2</source>
        <translation>Cannot save %1: %2</translation>
    </message>
    <message>
        <source>%1 fps received, %2 displayed, %3 MB/s</source>
        <translation>%1 fps received, %2 displayed, %3 MB/s</translation>
    </message>
    <message>
        <source>incomplete %1, dropped for display %2</source>
        <translation>incomplete %1, dropped for display %2</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ImageWriter</name>
    <message>
        <source>Unknown image file format %1.</source>
        <translation>Unknown image file format %1.</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>Cannot write %1: %2</translation>
    </message>
    <message>
        <source>The frame holds no bytes.</source>
        <translation>The frame holds no bytes.</translation>
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
    <message>
        <source>Open Simulated Camera from GenICam File...</source>
        <translation>Open Simulated Camera from GenICam File...</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>Changes</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>Histogram</translation>
    </message>
    <message>
        <source>&amp;Acquisition</source>
        <translation>&amp;Acquisition</translation>
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
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Edit</translation>
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
    <name>VantoViewer::PixelReader</name>
    <message>
        <source>%1 (%2-bit)</source>
        <translation>%1 (%2-bit)</translation>
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
