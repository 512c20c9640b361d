<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>ComboSlider</name>
    <message>
        <source>Range: %1..%2</source>
        <translation>范围：%1..%2</translation>
    </message>
    <message>
        <source>Range: %1..%2 (Increment: %3)</source>
        <translation>范围：%1..%2（增量：%3）</translation>
    </message>
</context>
<context>
    <name>DoubleSpinBox</name>
    <message>
        <source>Range: %1..%2 (Increment: %3)</source>
        <translation>范围：%1..%2（增量：%3）</translation>
    </message>
    <message>
        <source>Range: %1..%2</source>
        <translation>范围：%1..%2</translation>
    </message>
</context>
<context>
    <name>EditNotice</name>
    <message>
        <source>%1: %2 is above the maximum %3, wrote %4</source>
        <translation>%1: %2 高于最大值 %3，已写入 %4</translation>
    </message>
    <message>
        <source>%1: %2 is below the minimum %3, wrote %4</source>
        <translation>%1: %2 低于最小值 %3，已写入 %4</translation>
    </message>
    <message>
        <source>%1: %2 is not on the increment %3, wrote %4</source>
        <translation>%1: %2 不符合增量 %3，已写入 %4</translation>
    </message>
    <message>
        <source>%1: %2 was rounded, wrote %3</source>
        <translation>%1: %2 已被舍入，已写入 %3</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a number, the value stays %3</source>
        <translation>%1: “%2”不是数字，值保持为 %3</translation>
    </message>
    <message>
        <source>%1: %2 is above the maximum %3, the value stays %4</source>
        <translation>%1: %2 高于最大值 %3，值保持为 %4</translation>
    </message>
    <message>
        <source>%1: %2 is below the minimum %3, the value stays %4</source>
        <translation>%1: %2 低于最小值 %3，值保持为 %4</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a MAC address, the value stays %3</source>
        <translation>%1: “%2”不是 MAC 地址，值保持为 %3</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not an IPv4 address, the value stays %3</source>
        <translation>%1: “%2”不是 IPv4 地址，值保持为 %3</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>%1: the value could not be written</source>
        <translation>%1: 无法写入该值</translation>
    </message>
    <message>
        <source>%1: the camera is lost, nothing was written</source>
        <translation>%1: 相机已断开，未写入任何内容</translation>
    </message>
    <message>
        <source>Minimum %1, maximum %2, increment %3</source>
        <translation>最小值 %1，最大值 %2，增量 %3</translation>
    </message>
    <message>
        <source>Minimum %1, maximum %2, no increment</source>
        <translation>最小值 %1，最大值 %2，无增量</translation>
    </message>
    <message>
        <source>Unit: %1</source>
        <translation>单位：%1</translation>
    </message>
</context>
<context>
    <name>EditTabName</name>
    <message>
        <source>Enter a name for tab %1</source>
        <translation>输入选项卡 %1 的名称</translation>
    </message>
    <message>
        <source>Remove this tab</source>
        <translation>删除此选项卡</translation>
    </message>
</context>
<context>
    <name>Feature</name>
    <message>
        <source>Remove %1</source>
        <translation>移除 %1</translation>
    </message>
</context>
<context>
    <name>FeatureDumper</name>
    <message>
        <source>[contents left out: listed in full %1 times above]</source>
        <translation>[内容已省略：上文已完整列出 %1 次]</translation>
    </message>
    <message>
        <source>[the list ends here: the rest would make the text longer than %1 characters]</source>
        <translation>[列表到此结束：其余部分会使文本超过 %1 个字符]</translation>
    </message>
</context>
<context>
    <name>FeatureTreeINodeItem</name>
    <message>
        <source>Integer</source>
        <translation>整数</translation>
    </message>
    <message>
        <source>Boolean</source>
        <translation>布尔</translation>
    </message>
    <message>
        <source>Float</source>
        <translation>浮点</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>String</source>
        <translation>字符串</translation>
    </message>
    <message>
        <source>Enumeration</source>
        <translation>枚举</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>类别</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>未知</translation>
    </message>
    <message>
        <source>&lt;not implemented&gt;</source>
        <translation>&lt;未实现&gt;</translation>
    </message>
    <message>
        <source>&lt;not readable&gt;</source>
        <translation>&lt;不可读&gt;</translation>
    </message>
    <message>
        <source>&lt;not available&gt;</source>
        <translation>&lt;不可用&gt;</translation>
    </message>
    <message>
        <source>%1, access %2, visibility %3</source>
        <translation>%1，访问 %2，可见性 %3</translation>
    </message>
    <message>
        <source>Locked while the camera is in this state</source>
        <translation>相机处于此状态时已锁定</translation>
    </message>
    <message>
        <source>Register</source>
        <translation>寄存器</translation>
    </message>
    <message>
        <source>The camera is lost: this is the last value read from it.</source>
        <translation>相机已断开：这是最后读取的值。</translation>
    </message>
    <message>
        <source>Could not be read: %1</source>
        <translation>无法读取：%1</translation>
    </message>
    <message>
        <source>The camera is lost.</source>
        <translation>相机已断开。</translation>
    </message>
</context>
<context>
    <name>FeatureTreeModel</name>
    <message>
        <source>Category</source>
        <translation>类别</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
</context>
<context>
    <name>FeatureTreeView</name>
    <message>
        <source>No parameters match favorite selection.</source>
        <translation>没有与收藏选择匹配的参数。</translation>
    </message>
</context>
<context>
    <name>FeatureTreeWidget</name>
    <message>
        <source>Polling</source>
        <translation>轮询</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>上移</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>下移</translation>
    </message>
    <message>
        <source>Common Tasks</source>
        <translation>常用任务</translation>
    </message>
    <message>
        <source>%1 from parameter collection %2</source>
        <translation>参数集合 %2 中的 %1</translation>
    </message>
    <message>
        <source>the camera is lost</source>
        <translation>相机已断开</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
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
        <translation>搜索参数</translation>
    </message>
    <message>
        <source>Edit Feature Tabs</source>
        <translation>编辑功能选项卡</translation>
    </message>
    <message>
        <source>P&amp;olling</source>
        <translation>轮询(&amp;O)</translation>
    </message>
    <message>
        <source>Show Unavailable Features</source>
        <translation>显示不可用的功能</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>Refreshes the  feature tree</source>
        <translation>刷新功能树</translation>
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
        <translation>&lt;不可读&gt;</translation>
    </message>
</context>
<context>
    <name>IntEditor</name>
    <message>
        <source>&lt;not readable&gt;</source>
        <translation>&lt;不可读&gt;</translation>
    </message>
    <message>
        <source>Range: 0x%1..0x%2</source>
        <translation>范围：0x%1..0x%2</translation>
    </message>
    <message>
        <source>Range: %1..%2</source>
        <translation>范围：%1..%2</translation>
    </message>
    <message>
        <source>Increment: %1</source>
        <translation>增量：%1</translation>
    </message>
</context>
<context>
    <name>NodeMapFilterFile</name>
    <message>
        <source>elements nested deeper than %1 levels</source>
        <translation>元素嵌套超过 %1 层</translation>
    </message>
    <message>
        <source>The filter file %1 was not used: line %2, column %3: %4</source>
        <translation>未使用过滤器文件 %1：第 %2 行，第 %3 列：%4</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::CFeatureTreeWidget</name>
    <message>
        <source>&lt;i&gt;Select any open camera in the Devices pane to display its features.&lt;/i&gt;</source>
        <translation>&lt;i&gt;请在“设备”窗格中选择任一已打开的相机以显示其功能。&lt;/i&gt;</translation>
    </message>
    <message>
        <source>Copy Camera Features</source>
        <translation>复制相机功能</translation>
    </message>
    <message>
        <source>Copies the features of the camera and their values as text</source>
        <translation>将相机的功能及其值复制为文本</translation>
    </message>
    <message>
        <source>Host Transport Layer</source>
        <translation>主机传输层</translation>
    </message>
    <message>
        <source>Stream Parameters</source>
        <translation>流参数</translation>
    </message>
    <message>
        <source>Event Grabber Parameters</source>
        <translation>事件采集器参数</translation>
    </message>
    <message>
        <source>Image Format Conversion</source>
        <translation>图像格式转换</translation>
    </message>
    <message>
        <source>My tab</source>
        <translation>我的选项卡</translation>
    </message>
    <message>
        <source>Edit Feature Tabs...</source>
        <translation>编辑功能选项卡...</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::CFeatureTreeWidgetFactory</name>
    <message>
        <source>All</source>
        <translation>全部</translation>
    </message>
    <message>
        <source>Basic</source>
        <translation>基本</translation>
    </message>
    <message>
        <source>Features</source>
        <translation>功能</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::Internal::Model::CFeatureTableModel</name>
    <message>
        <source>Feature</source>
        <translation>功能</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
</context>
<context>
    <name>Plugin::Nodescope::Internal::View::CUseCaseEdit</name>
    <message>
        <source>End the use case</source>
        <translation>结束用例</translation>
    </message>
</context>
<context>
    <name>SearchEdit</name>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
</context>
<context>
    <name>ToolButtonEditor</name>
    <message>
        <source>Execute</source>
        <translation>执行</translation>
    </message>
</context>
<context>
    <name>ValueFormat</name>
    <message>
        <source>Images: %1; Errors: %2</source>
        <translation>图像：%1；错误：%2</translation>
    </message>
</context>
<context>
    <name>featuretreeoptionmenu</name>
    <message>
        <source>Edit Feature Tabs</source>
        <translation>编辑功能选项卡</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Feature tabs</source>
        <translation>功能选项卡</translation>
    </message>
    <message>
        <source>Features of &quot;%1&quot;</source>
        <translation>“%1”的功能</translation>
    </message>
    <message>
        <source>Features</source>
        <translation>功能</translation>
    </message>
    <message>
        <source>Add features by drag and drop</source>
        <translation>通过拖放添加功能</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
</TS>
