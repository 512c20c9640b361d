<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en_US">
<context>
    <name>ComboSlider</name>
    <message>
        <source>Range: %1..%2</source>
        <translation>Range: %1..%2</translation>
    </message>
    <message>
        <source>Range: %1..%2 (Increment: %3)</source>
        <translation>Range: %1..%2 (Increment: %3)</translation>
    </message>
</context>
<context>
    <name>DoubleSpinBox</name>
    <message>
        <source>Range: %1..%2 (Increment: %3)</source>
        <translation>Range: %1..%2 (Increment: %3)</translation>
    </message>
    <message>
        <source>Range: %1..%2</source>
        <translation>Range: %1..%2</translation>
    </message>
</context>
<context>
    <name>EditNotice</name>
    <message>
        <source>%1: %2 is above the maximum %3, wrote %4</source>
        <translation>%1: %2 is above the maximum %3, wrote %4</translation>
    </message>
    <message>
        <source>%1: %2 is below the minimum %3, wrote %4</source>
        <translation>%1: %2 is below the minimum %3, wrote %4</translation>
    </message>
    <message>
        <source>%1: %2 is not on the increment %3, wrote %4</source>
        <translation>%1: %2 is not on the increment %3, wrote %4</translation>
    </message>
    <message>
        <source>%1: %2 was rounded, wrote %3</source>
        <translation>%1: %2 was rounded, wrote %3</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a number, the value stays %3</source>
        <translation>%1: &quot;%2&quot; is not a number, the value stays %3</translation>
    </message>
    <message>
        <source>%1: %2 is above the maximum %3, the value stays %4</source>
        <translation>%1: %2 is above the maximum %3, the value stays %4</translation>
    </message>
    <message>
        <source>%1: %2 is below the minimum %3, the value stays %4</source>
        <translation>%1: %2 is below the minimum %3, the value stays %4</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a MAC address, the value stays %3</source>
        <translation>%1: &quot;%2&quot; is not a MAC address, the value stays %3</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not an IPv4 address, the value stays %3</source>
        <translation>%1: &quot;%2&quot; is not an IPv4 address, the value stays %3</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1: the value could not be written</source>
        <translation>%1: the value could not be written</translation>
    </message>
    <message>
        <source>%1: the camera is lost, nothing was written</source>
        <translation>%1: the camera is lost, nothing was written</translation>
    </message>
    <message>
        <source>Minimum %1, maximum %2, increment %3</source>
        <translation>Minimum %1, maximum %2, increment %3</translation>
    </message>
    <message>
        <source>Minimum %1, maximum %2, no increment</source>
        <translation>Minimum %1, maximum %2, no increment</translation>
    </message>
    <message>
        <source>Unit: %1</source>
        <translation>Unit: %1</translation>
    </message>
</context>
<context>
    <name>EditTabName</name>
    <message>
        <source>Enter a name for tab %1</source>
        <translation>Enter a name for tab %1</translation>
    </message>
    <message>
        <source>Remove this tab</source>
        <translation>Remove this tab</translation>
    </message>
</context>
<context>
    <name>Feature</name>
    <message>
        <source>Remove %1</source>
        <translation>Remove %1</translation>
    </message>
</context>
<context>
    <name>FeatureDumper</name>
    <message>
        <source>[contents left out: listed in full %1 times above]</source>
        <translation>[contents left out: listed in full %1 times above]</translation>
    </message>
    <message>
        <source>[the list ends here: the rest would make the text longer than %1 characters]</source>
        <translation>[the list ends here: the rest would make the text longer than %1 characters]</translation>
    </message>
</context>
<context>
    <name>FeatureTreeINodeItem</name>
    <message>
        <source>Integer</source>
        <translation>Integer</translation>
    </message>
    <message>
        <source>Boolean</source>
        <translation>Boolean</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>Float</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Command</translation>
    </message>
    <message>
        <source>String</source>
        <translation>String</translation>
    </message>
    <message>
        <source>Enumeration</source>
        <translation>Enumeration</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Category</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Unknown</translation>
    </message>
    <message>
        <source>&lt;not implemented&gt;</source>
        <translation>&lt;not implemented&gt;</translation>
    </message>
    <message>
        <source>&lt;not readable&gt;</source>
        <translation>&lt;not readable&gt;</translation>
    </message>
    <message>
        <source>&lt;not available&gt;</source>
        <translation>&lt;not available&gt;</translation>
    </message>
    <message>
        <source>%1, access %2, visibility %3</source>
        <translation>%1, access %2, visibility %3</translation>
    </message>
    <message>
        <source>Locked while the camera is in this state</source>
        <translation>Locked while the camera is in this state</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>Register</translation>
    </message>
    <message>
        <source>The camera is lost: this is the last value read from it.</source>
        <translation>The camera is lost: this is the last value read from it.</translation>
    </message>
    <message>
        <source>Could not be read: %1</source>
        <translation>Could not be read: %1</translation>
    </message>
    <message>
        <source>The camera is lost.</source>
        <translation>The camera is lost.</translation>
    </message>
</context>
<context>
    <name>FeatureTreeModel</name>
    <message>
        <source>Category</source>
        <translation>Category</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Value</translation>
    </message>
</context>
<context>
    <name>FeatureTreeView</name>
    <message>
        <source>No parameters match favorite selection.</source>
        <translation>No parameters match favorite selection.</translation>
    </message>
</context>
<context>
    <name>FeatureTreeWidget</name>
    <message>
        <source>Polling</source>
        <translation>Polling</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Move Up</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Move Down</translation>
    </message>
    <message>
        <source>Common Tasks</source>
        <translation>Common Tasks</translation>
    </message>
    <message>
        <source>%1 from parameter collection %2</source>
        <translation>%1 from parameter collection %2</translation>
    </message>
    <message>
        <source>the camera is lost</source>
        <translation>the camera is lost</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>FeatureTreeWidgetClass</name>
    <message>
        <source>FeatureTreeWidget</source>
        <translation>FeatureTreeWidget</translation>
    </message>
    <message>
        <source>Search for parameters</source>
        <translation>Search for parameters</translation>
    </message>
    <message>
        <source>Edit Feature Tabs</source>
        <translation>Edit Feature Tabs</translation>
    </message>
    <message>
        <source>P&amp;olling</source>
        <translation>P&amp;olling</translation>
    </message>
    <message>
        <source>Show Unavailable Features</source>
        <translation>Show Unavailable Features</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Refresh</translation>
    </message>
    <message>
        <source>Refreshes the  feature tree</source>
        <translation>Refreshes the  feature tree</translation>
    </message>
    <message>
        <source>F5</source>
        <translation>F5</translation>
    </message>
</context>
<context>
    <name>FloatEditor</name>
    <message>
        <source>&lt;not readable&gt;</source>
        <translation>&lt;not readable&gt;</translation>
    </message>
</context>
<context>
    <name>IntEditor</name>
    <message>
        <source>&lt;not readable&gt;</source>
        <translation>&lt;not readable&gt;</translation>
    </message>
    <message>
        <source>Range: 0x%1..0x%2</source>
        <translation>Range: 0x%1..0x%2</translation>
    </message>
    <message>
        <source>Range: %1..%2</source>
        <translation>Range: %1..%2</translation>
    </message>
    <message>
        <source>Increment: %1</source>
        <translation>Increment: %1</translation>
    </message>
</context>
<context>
    <name>NodeMapFilterFile</name>
    <message>
        <source>elements nested deeper than %1 levels</source>
        <translation>elements nested deeper than %1 levels</translation>
    </message>
    <message>
        <source>The filter file %1 was not used: line %2, column %3: %4</source>
        <translation>The filter file %1 was not used: line %2, column %3: %4</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::CFeatureTreeWidget</name>
    <message>
        <source>&lt;i&gt;Select any open camera in the Devices pane to display its features.&lt;/i&gt;</source>
        <translation>&lt;i&gt;Select any open camera in the Devices pane to display its features.&lt;/i&gt;</translation>
    </message>
    <message>
        <source>Copy Camera Features</source>
        <translation>Copy Camera Features</translation>
    </message>
    <message>
        <source>Copies the features of the camera and their values as text</source>
        <translation>Copies the features of the camera and their values as text</translation>
    </message>
    <message>
        <source>Host Transport Layer</source>
        <translation>Host Transport Layer</translation>
    </message>
    <message>
        <source>Stream Parameters</source>
        <translation>Stream Parameters</translation>
    </message>
    <message>
        <source>Event Grabber Parameters</source>
        <translation>Event Grabber Parameters</translation>
    </message>
    <message>
        <source>Image Format Conversion</source>
        <translation>Image Format Conversion</translation>
    </message>
    <message>
        <source>My tab</source>
        <translation>My tab</translation>
    </message>
    <message>
        <source>Edit Feature Tabs...</source>
        <translation>Edit Feature Tabs...</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::CFeatureTreeWidgetFactory</name>
    <message>
        <source>All</source>
        <translation>All</translation>
    </message>
    <message>
        <source>Basic</source>
        <translation>Basic</translation>
    </message>
    <message>
        <source>Features</source>
        <translation>Features</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::Internal::Model::CFeatureTableModel</name>
    <message>
        <source>Feature</source>
        <translation>Feature</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Value</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::Internal::View::CUseCaseEdit</name>
    <message>
        <source>End the use case</source>
        <translation>End the use case</translation>
    </message>
</context>
<context>
    <name>SearchEdit</name>
    <message>
        <source>Clear</source>
        <translation>Clear</translation>
    </message>
</context>
<context>
    <name>ToolButtonEditor</name>
    <message>
        <source>Execute</source>
        <translation>Execute</translation>
    </message>
</context>
<context>
    <name>ValueFormat</name>
    <message>
        <source>Images: %1; Errors: %2</source>
        <translation>Images: %1; Errors: %2</translation>
    </message>
</context>
<context>
    <name>featuretreeoptionmenu</name>
    <message>
        <source>Edit Feature Tabs</source>
        <translation>Edit Feature Tabs</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Feature tabs</source>
        <translation>Feature tabs</translation>
    </message>
    <message>
        <source>Features of &quot;%1&quot;</source>
        <translation>Features of &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Features</source>
        <translation>Features</translation>
    </message>
    <message>
        <source>Add features by drag and drop</source>
        <translation>Add features by drag and drop</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
</TS>
