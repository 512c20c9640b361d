<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>VantoViewer::AcquisitionActions</name>
    <message>
        <source>Single Shot</source>
        <translation>单帧采集</translation>
    </message>
    <message>
        <source>Continuous Shot</source>
        <translation>连续采集</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Software Trigger</source>
        <translation>软件触发</translation>
    </message>
    <message>
        <source>Acquires one image</source>
        <translation>采集一幅图像</translation>
    </message>
    <message>
        <source>Acquires images until stopped</source>
        <translation>持续采集图像直到停止</translation>
    </message>
    <message>
        <source>Stops acquiring</source>
        <translation>停止采集</translation>
    </message>
    <message>
        <source>Executes TriggerSoftware: one trigger for the camera</source>
        <translation>执行 TriggerSoftware：向相机发出一次触发</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ChangeJournal</name>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>Set %1 to %2</source>
        <translation>将 %1 设为 %2</translation>
    </message>
    <message numerus="yes">
        <source>%n feature(s)</source>
        <translation>
            <numerusform>%n 个功能</numerusform>
        </translation>
    </message>
    <message>
        <source>Load %1</source>
        <translation>加载 %1</translation>
    </message>
    <message>
        <source>the camera is closed</source>
        <translation>相机已关闭</translation>
    </message>
    <message>
        <source>%1: the camera has no such feature</source>
        <translation>%1: 相机没有此功能</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <translation>已撤销: %1</translation>
    </message>
    <message>
        <source>Redone: %1</source>
        <translation>已重做: %1</translation>
    </message>
    <message>
        <source>Cannot undo &quot;%1&quot;: %2</source>
        <translation>无法撤销“%1”: %2</translation>
    </message>
    <message>
        <source>Cannot redo &quot;%1&quot;: %2</source>
        <translation>无法重做“%1”: %2</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>撤销 %1(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>重做 %1(&amp;R)</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ChangesModel</name>
    <message>
        <source>Execute</source>
        <translation>执行</translation>
    </message>
    <message>
        <source>(not read)</source>
        <translation>(未读取)</translation>
    </message>
    <message>
        <source>Applied as one step</source>
        <translation>作为一步应用</translation>
    </message>
    <message>
        <source>Undone</source>
        <translation>已撤销</translation>
    </message>
    <message>
        <source>Undo refused: %1</source>
        <translation>撤销被拒绝: %1</translation>
    </message>
    <message>
        <source>Redone</source>
        <translation>已重做</translation>
    </message>
    <message>
        <source>Redo refused: %1</source>
        <translation>重做被拒绝: %1</translation>
    </message>
    <message>
        <source>Done (feature set)</source>
        <translation>完成 (功能集)</translation>
    </message>
    <message>
        <source>Refused (feature set): %1</source>
        <translation>被拒绝 (功能集): %1</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>Refused: %1</source>
        <translation>被拒绝: %1</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Feature</source>
        <translation>功能</translation>
    </message>
    <message>
        <source>Old Value</source>
        <translation>旧值</translation>
    </message>
    <message>
        <source>New Value</source>
        <translation>新值</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>结果</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ConversionEngine</name>
    <message>
        <source>Pixel format %1 can&apos;t be shown.</source>
        <translation>无法显示像素格式 %1。</translation>
    </message>
    <message>
        <source>The %1 frame holds no image (%2 × %3).</source>
        <translation>%1 帧中没有图像（%2 × %3）。</translation>
    </message>
    <message>
        <source>A frame of %1 × %2 is too large to be shown.</source>
        <translation>%1 × %2 的帧太大，无法显示。</translation>
    </message>
    <message>
        <source>The frame holds %1 bytes; a %2 × %3 %4 image needs %5.</source>
        <translation>帧只有 %1 字节；%2 × %3 的 %4 图像需要 %5 字节。</translation>
    </message>
    <message>
        <source>%1 needs an even width and height; the frame is %2 × %3.</source>
        <translation>%1 需要偶数的宽度和高度；该帧为 %2 × %3。</translation>
    </message>
    <message>
        <source>%1 needs an even width; the frame is %2 × %3.</source>
        <translation>%1 需要偶数的宽度；该帧为 %2 × %3。</translation>
    </message>
    <message>
        <source>There is no memory for an image of %1 × %2.</source>
        <translation>没有足够的内存存放 %1 × %2 的图像。</translation>
    </message>
    <message>
        <source>The conversion of %1 failed.</source>
        <translation>%1 的转换失败。</translation>
    </message>
</context>
<context>
    <name>VantoViewer::DevicesPane</name>
    <message>
        <source>%1 (lost)</source>
        <translation>%1 (已断开)</translation>
    </message>
    <message>
        <source>Found cameras (double-click to open):</source>
        <translation>找到的相机 (双击打开):</translation>
    </message>
    <message>
        <source>Camera by IP Address or ID...</source>
        <translation>按 IP 地址或 ID 指定相机...</translation>
    </message>
    <message>
        <source>Built-in Simulated Camera</source>
        <translation>内置模拟相机</translation>
    </message>
    <message>
        <source>Simulated Camera from GenICam File...</source>
        <translation>从 GenICam 文件创建模拟相机...</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Open a camera</source>
        <translation>打开相机</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Close the selected camera</source>
        <translation>关闭所选相机</translation>
    </message>
    <message>
        <source>Scan</source>
        <translation>扫描</translation>
    </message>
    <message>
        <source>Look for cameras on every network interface and on USB</source>
        <translation>在所有网络接口和 USB 上查找相机</translation>
    </message>
    <message>
        <source>Scanning...</source>
        <translation>正在扫描...</translation>
    </message>
    <message>
        <source>Open Camera</source>
        <translation>打开相机</translation>
    </message>
    <message>
        <source>IP address or device ID:</source>
        <translation>IP 地址或设备 ID:</translation>
    </message>
    <message>
        <source>Simulate a Camera</source>
        <translation>模拟相机</translation>
    </message>
    <message>
        <source>GenICam descriptions (*.xml *.zip)</source>
        <translation>GenICam 描述文件 (*.xml *.zip)</translation>
    </message>
    <message>
        <source>ID: %1
Serial number: %2
Transport: %3</source>
        <translation>ID: %1
序列号: %2
传输方式: %3</translation>
    </message>
    <message>
        <source>No cameras found</source>
        <translation>未找到相机</translation>
    </message>
    <message>
        <source>Reconnect</source>
        <translation>重新连接</translation>
    </message>
    <message>
        <source>Open the lost camera again, once it is back</source>
        <translation>断开的相机恢复后重新打开它</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetActions</name>
    <message>
        <source>Save Features...</source>
        <translation>保存功能...</translation>
    </message>
    <message>
        <source>Load Features...</source>
        <translation>加载功能...</translation>
    </message>
    <message>
        <source>Compare Features...</source>
        <translation>比较功能...</translation>
    </message>
    <message>
        <source>Saves the camera&apos;s features to a file</source>
        <translation>将相机的功能保存到文件</translation>
    </message>
    <message>
        <source>Writes the features of a file to the camera</source>
        <translation>将文件中的功能写入相机</translation>
    </message>
    <message>
        <source>Lists the features in which the camera differs from a file or another camera</source>
        <translation>列出相机与文件或另一台相机不同的功能</translation>
    </message>
    <message>
        <source>%1 has no features to save</source>
        <translation>%1 没有可保存的功能</translation>
    </message>
    <message>
        <source>Cannot read the features of %1: %2</source>
        <translation>无法读取 %1 的功能: %2</translation>
    </message>
    <message>
        <source>Save Features</source>
        <translation>保存功能</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>无法写入 %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>%n feature value(s) saved to %1</source>
        <translation>
            <numerusform>已将 %n 个功能值保存到 %1</numerusform>
        </translation>
    </message>
    <message>
        <source>Load Features</source>
        <translation>加载功能</translation>
    </message>
    <message>
        <source>Cannot load %1: %2</source>
        <translation>无法加载 %1: %2</translation>
    </message>
    <message>
        <source>Writing the features of %1...</source>
        <translation>正在写入 %1 的功能...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>A feature set file...</source>
        <translation>功能集文件...</translation>
    </message>
    <message>
        <source>Compare Features</source>
        <translation>比较功能</translation>
    </message>
    <message>
        <source>Compare %1 with:</source>
        <translation>将 %1 与以下对象比较:</translation>
    </message>
    <message>
        <source>Cannot compare with %1: %2</source>
        <translation>无法与 %1 比较: %2</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetCompareDialog</name>
    <message>
        <source>Compare Features</source>
        <translation>比较功能</translation>
    </message>
    <message>
        <source>%1 and %2 hold the same values.</source>
        <translation>%1 与 %2 的值相同。</translation>
    </message>
    <message numerus="yes">
        <source>%n feature(s) differ between %1 and %2.</source>
        <translation>
            <numerusform>%1 与 %2 之间有 %n 个功能不同。</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetCompareModel</name>
    <message>
        <source>Feature</source>
        <translation>功能</translation>
    </message>
    <message>
        <source>Only In</source>
        <translation>仅存在于</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureSetReportDialog</name>
    <message>
        <source>Unknown feature</source>
        <translation>未知功能</translation>
    </message>
    <message>
        <source>Read-only</source>
        <translation>只读</translation>
    </message>
    <message>
        <source>Out of range</source>
        <translation>超出范围</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>不可用</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>已锁定</translation>
    </message>
    <message>
        <source>Invalid value</source>
        <translation>无效值</translation>
    </message>
    <message>
        <source>Refused by the camera</source>
        <translation>相机拒绝</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>Feature Set Loaded</source>
        <translation>功能集已加载</translation>
    </message>
    <message numerus="yes">
        <source>%1: every line was applied; %n feature(s) changed.</source>
        <translation>
            <numerusform>%1: 所有行均已应用；%n 个功能已更改。</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %n line(s) could not be applied.</source>
        <translation>
            <numerusform>%1: 有 %n 行无法应用。</numerusform>
        </translation>
    </message>
    <message>
        <source>Line</source>
        <translation>行</translation>
    </message>
    <message>
        <source>Feature</source>
        <translation>功能</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>原因</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>详情</translation>
    </message>
</context>
<context>
    <name>VantoViewer::FeatureStatusBar</name>
    <message>
        <source>refused by the camera (access denied)</source>
        <translation>相机拒绝 (拒绝访问)</translation>
    </message>
    <message>
        <source>refused by the camera (value out of range)</source>
        <translation>相机拒绝 (值超出范围)</translation>
    </message>
    <message>
        <source>refused by the camera (invalid value)</source>
        <translation>相机拒绝 (无效值)</translation>
    </message>
    <message>
        <source>not written: the camera did not answer in time</source>
        <translation>未写入: 相机未及时响应</translation>
    </message>
    <message>
        <source>not written: the camera is lost</source>
        <translation>未写入: 相机已断开</translation>
    </message>
    <message>
        <source>not written: the camera does not have it</source>
        <translation>未写入: 相机没有此功能</translation>
    </message>
    <message>
        <source>the write failed</source>
        <translation>写入失败</translation>
    </message>
</context>
<context>
    <name>VantoViewer::HistogramPanel</name>
    <message>
        <source>Logarithmic</source>
        <translation>对数</translation>
    </message>
    <message>
        <source>Counts on a logarithmic scale, so that rare values show</source>
        <translation>以对数刻度显示计数，使稀少的值也能看到</translation>
    </message>
    <message>
        <source>%1: min %2, max %3, mean %4</source>
        <translation>%1：最小 %2，最大 %3，平均 %4</translation>
    </message>
    <message>
        <source>No image</source>
        <translation>无图像</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ImagePanel</name>
    <message>
        <source>Save Image...</source>
        <translation>保存图像...</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>适合窗口</translation>
    </message>
    <message>
        <source>100 %</source>
        <translation>原始大小 (100 %)</translation>
    </message>
    <message>
        <source>Acquisition</source>
        <translation>采集</translation>
    </message>
    <message>
        <source>Shows the whole image</source>
        <translation>显示整幅图像</translation>
    </message>
    <message>
        <source>Shows one screen pixel per image pixel</source>
        <translation>每个图像像素显示为一个屏幕像素</translation>
    </message>
    <message>
        <source>Writes the image shown as PNG, TIFF or raw bytes</source>
        <translation>将显示的图像写为 PNG、TIFF 或原始字节</translation>
    </message>
    <message>
        <source>The acquisition failed: %1</source>
        <translation>采集失败：%1</translation>
    </message>
    <message>
        <source>No camera is open. Open one in the Devices pane or the Camera menu.</source>
        <translation>没有打开的相机。请在设备窗格或相机菜单中打开一台。</translation>
    </message>
    <message>
        <source>This camera has no stream to show.</source>
        <translation>此相机没有可显示的图像流。</translation>
    </message>
    <message>
        <source>Press Continuous Shot (%1) or Single Shot (%2) to see the camera&apos;s image.</source>
        <translation>按连续采集 (%1) 或单帧采集 (%2) 查看相机图像。</translation>
    </message>
    <message>
        <source>%1, %2 × %3 pixels</source>
        <translation>%1，%2 × %3 像素</translation>
    </message>
    <message>
        <source>x %1, y %2: %3</source>
        <translation>像素 x %1, y %2: %3</translation>
    </message>
    <message>
        <source>There is no image to save.</source>
        <translation>没有可保存的图像。</translation>
    </message>
    <message>
        <source>PNG image (*.png)</source>
        <translation>PNG 图像 (*.png)</translation>
    </message>
    <message>
        <source>TIFF image (*.tif *.tiff)</source>
        <translation>TIFF 图像 (*.tif *.tiff)</translation>
    </message>
    <message>
        <source>Raw bytes with a side file (*.raw)</source>
        <translation>原始字节及说明文件 (*.raw)</translation>
    </message>
    <message>
        <source>Save Image</source>
        <translation>保存图像</translation>
    </message>
    <message>
        <source>Cannot save %1: %2</source>
        <translation>无法保存 %1：%2</translation>
    </message>
    <message>
        <source>%1 fps received, %2 displayed, %3 MB/s</source>
        <translation>接收 %1 fps，显示 %2 fps，%3 MB/s</translation>
    </message>
    <message>
        <source>incomplete %1, dropped for display %2</source>
        <translation>不完整 %1，显示丢弃 %2</translation>
    </message>
</context>
<context>
    <name>VantoViewer::ImageWriter</name>
    <message>
        <source>Unknown image file format %1.</source>
        <translation>未知的图像文件格式 %1。</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>无法写入 %1: %2</translation>
    </message>
    <message>
        <source>The frame holds no bytes.</source>
        <translation>帧中没有数据。</translation>
    </message>
</context>
<context>
    <name>VantoViewer::MainWindow</name>
    <message>
        <source>Devices</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Vanto Viewer</source>
        <translation>Vanto Viewer</translation>
    </message>
    <message numerus="yes">
        <source>%n camera(s) found</source>
        <translation>
            <numerusform>找到 %n 台相机</numerusform>
        </translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>就绪</translation>
    </message>
    <message>
        <source>Open Camera by IP Address or ID...</source>
        <translation>按 IP 地址或 ID 打开相机...</translation>
    </message>
    <message>
        <source>Open Built-in Simulated Camera</source>
        <translation>打开内置模拟相机</translation>
    </message>
    <message>
        <source>Close Camera</source>
        <translation>关闭相机</translation>
    </message>
    <message>
        <source>Refresh Features</source>
        <translation>刷新功能</translation>
    </message>
    <message>
        <source>Reads every shown feature from the camera again</source>
        <translation>从相机重新读取所有显示的功能</translation>
    </message>
    <message>
        <source>Cannot open %1: %2</source>
        <translation>无法打开 %1: %2</translation>
    </message>
    <message>
        <source>Cannot simulate %1: %2</source>
        <translation>无法模拟 %1: %2</translation>
    </message>
    <message>
        <source>the built-in camera</source>
        <translation>内置相机</translation>
    </message>
    <message>
        <source>%1 is lost: %2</source>
        <translation>%1 已断开连接: %2</translation>
    </message>
    <message>
        <source>Visibility</source>
        <translation>可见性级别</translation>
    </message>
    <message>
        <source>Cannot reconnect %1: %2</source>
        <translation>无法重新连接 %1: %2</translation>
    </message>
    <message>
        <source>%1 is connected again</source>
        <translation>%1 已重新连接</translation>
    </message>
    <message>
        <source>Settings cannot be saved to %1: %2. Changes to the layout and the visibility level are lost when the viewer closes.</source>
        <translation>无法将设置保存到 %1: %2。关闭查看器后，布局和可见性级别的更改将丢失。</translation>
    </message>
    <message>
        <source>Opening %1...</source>
        <translation>正在打开 %1...</translation>
    </message>
    <message>
        <source>Open Simulated Camera from GenICam File...</source>
        <translation>从 GenICam 文件打开模拟相机...</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>更改记录</translation>
    </message>
    <message>
        <source>Histogram</source>
        <translation>直方图</translation>
    </message>
    <message>
        <source>&amp;Acquisition</source>
        <translation>采集(&amp;A)</translation>
    </message>
</context>
<context>
    <name>VantoViewer::MenuService</name>
    <message>
        <source>&amp;Camera</source>
        <translation>相机(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>窗口(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
</context>
<context>
    <name>VantoViewer::OpeningProgress</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Opening Camera</source>
        <translation>正在打开相机</translation>
    </message>
</context>
<context>
    <name>VantoViewer::PixelReader</name>
    <message>
        <source>%1 (%2-bit)</source>
        <translation>%1（%2 位）</translation>
    </message>
</context>
<context>
    <name>VantoViewer::PluginManager</name>
    <message>
        <source>%1 is no Vanto Viewer plug-in: %2</source>
        <translation>%1 不是 Vanto Viewer 插件: %2</translation>
    </message>
    <message>
        <source>Cannot load %1: %2</source>
        <translation>无法加载 %1: %2</translation>
    </message>
    <message>
        <source>The plug-in %1 did not start.</source>
        <translation>插件 %1 未能启动。</translation>
    </message>
</context>
<context>
    <name>VantoViewer::VisibilityToolBar</name>
    <message>
        <source>Visibility</source>
        <translation>可见性级别</translation>
    </message>
    <message>
        <source>Beginner</source>
        <translation>初级</translation>
    </message>
    <message>
        <source>Show the features needed for basic camera set-up</source>
        <translation>显示基本相机设置所需的功能</translation>
    </message>
    <message>
        <source>Expert</source>
        <translation>专家</translation>
    </message>
    <message>
        <source>Also show the features for advanced set-up</source>
        <translation>同时显示高级设置的功能</translation>
    </message>
    <message>
        <source>Guru</source>
        <translation>大师</translation>
    </message>
    <message>
        <source>Show every feature, including those that need care</source>
        <translation>显示所有功能，包括需要谨慎使用的功能</translation>
    </message>
</context>
<context>
    <name>VantoViewer::WindowService</name>
    <message>
        <source>the file or its folder cannot be written</source>
        <translation>无法写入该文件或其文件夹</translation>
    </message>
    <message>
        <source>the file is damaged</source>
        <translation>文件已损坏</translation>
    </message>
</context>
</TS>
