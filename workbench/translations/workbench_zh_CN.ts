<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>BlockResultsDialog</name>
    <message>
        <source>Decompiled Station</source>
        <translation>反编译的站</translation>
    </message>
    <message numerus="yes">
        <source>%n module(s) were rebuilt. These blocks have problems:</source>
        <translation>
            <numerusform>已重建%n个模块。以下数据块有问题：</numerusform>
        </translation>
    </message>
    <message>
        <source>Problems</source>
        <translation>问题</translation>
    </message>
    <message>
        <source>Block</source>
        <translation>数据块</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>偏移</translation>
    </message>
    <message>
        <source>Result code</source>
        <translation>结果代码</translation>
    </message>
    <message>
        <source>Reason</source>
        <translation>原因</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
</context>
<context>
    <name>BlockView</name>
    <message>
        <source>Blocks</source>
        <translation>数据块</translation>
    </message>
    <message>
        <source>Rack</source>
        <translation>机架</translation>
    </message>
    <message>
        <source>Slot</source>
        <translation>槽位</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>模块</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>字节</translation>
    </message>
    <message>
        <source>Fields</source>
        <translation>字段</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>字段</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>Meaning</source>
        <translation>含义</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>偏移</translation>
    </message>
    <message>
        <source>Configuration Blocks</source>
        <translation>配置数据块</translation>
    </message>
    <message numerus="yes">
        <source>%n module(s), %1 bytes, in the order of racks and slots</source>
        <translation>
            <numerusform>%n个模块，%1字节，按机架和槽位排序</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Save...</source>
        <translation>保存(&amp;S)...</translation>
    </message>
    <message>
        <source>damaged</source>
        <translation>已损坏</translation>
    </message>
    <message>
        <source>%1 expected, %2 found: %3</source>
        <translation>应为%1，实为%2：%3</translation>
    </message>
    <message>
        <source>Save Configuration Blocks</source>
        <translation>保存配置数据块</translation>
    </message>
    <message>
        <source>%1 cannot be written.</source>
        <translation>无法写入%1。</translation>
    </message>
    <message>
        <source>&amp;Compile Again</source>
        <translation>重新编译(&amp;C)</translation>
    </message>
    <message>
        <source>The station has changed. These blocks are outdated.</source>
        <translation>站已更改，这些数据块已过期。</translation>
    </message>
    <message numerus="yes">
        <source>%1 of %n module(s), %2 bytes, in the order of racks and slots</source>
        <translation>
            <numerusform>%n个模块中的%1个，%2字节，按机架和槽位排序</numerusform>
        </translation>
    </message>
    <message>
        <source>Not compiled: &quot;%1&quot; in rack %2, slot %3. %4</source>
        <translation>未编译：机架%2，槽位%3中的“%1”。%4</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>关闭(&amp;L)</translation>
    </message>
</context>
<context>
    <name>Catalog</name>
    <message>
        <source>The component file %1 of &quot;%2&quot; (type %3) is missing.</source>
        <translation>缺少“%2”（类型%3）的组件文件%1。</translation>
    </message>
    <message>
        <source>Analog modules</source>
        <translation>模拟量模块</translation>
    </message>
    <message>
        <source>TC/RTD modules</source>
        <translation>TC/RTD模块</translation>
    </message>
    <message>
        <source>Digital modules</source>
        <translation>数字量模块</translation>
    </message>
    <message>
        <source>Weighing modules</source>
        <translation>称重模块</translation>
    </message>
    <message>
        <source>Other modules</source>
        <translation>其他模块</translation>
    </message>
    <message>
        <source>The catalog has no description file %1 for type %2.</source>
        <translation>目录中没有类型%2的描述文件%1。</translation>
    </message>
    <message>
        <source>The description file of type %1 is malformed or needs a newer host.</source>
        <translation>类型%1的描述文件格式错误，或需要更新版本的主机。</translation>
    </message>
</context>
<context>
    <name>CatalogView</name>
    <message>
        <source>Search by name or order number</source>
        <translation>按名称或订货号搜索</translation>
    </message>
    <message>
        <source>Catalog</source>
        <translation>目录</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>模块</translation>
    </message>
    <message>
        <source>Order number</source>
        <translation>订货号</translation>
    </message>
    <message>
        <source>Type %1. Double-click it or drag it to place it.</source>
        <translation>类型%1。双击或拖动以放置。</translation>
    </message>
</context>
<context>
    <name>ChannelModel</name>
    <message>
        <source>Rack</source>
        <translation>机架</translation>
    </message>
    <message>
        <source>Slot</source>
        <translation>槽位</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>模块</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>Signal</source>
        <translation>信号</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
</context>
<context>
    <name>ChannelReader</name>
    <message>
        <source>Input filter</source>
        <translation>输入滤波</translation>
    </message>
    <message>
        <source>In STOP</source>
        <translation>STOP 时</translation>
    </message>
    <message>
        <source>last state</source>
        <translation>最后状态</translation>
    </message>
    <message>
        <source>Digital input</source>
        <translation>数字量输入</translation>
    </message>
    <message>
        <source>Weighing</source>
        <translation>称重</translation>
    </message>
    <message>
        <source>Analog input</source>
        <translation>模拟量输入</translation>
    </message>
    <message>
        <source>Thermocouple %1</source>
        <translation>热电偶%1</translation>
    </message>
    <message>
        <source>Digital output</source>
        <translation>数字量输出</translation>
    </message>
    <message>
        <source>Analog output</source>
        <translation>模拟量输出</translation>
    </message>
</context>
<context>
    <name>ChannelView</name>
    <message>
        <source>Save Channels</source>
        <translation>保存通道</translation>
    </message>
    <message>
        <source>Comma-separated values (*.csv)</source>
        <translation>逗号分隔值 (*.csv)</translation>
    </message>
    <message>
        <source>%1 cannot be written.</source>
        <translation>无法写入%1。</translation>
    </message>
    <message>
        <source>%1 of %2 channels</source>
        <translation>%1 / %2个通道</translation>
    </message>
    <message>
        <source>Filter by module, address or setting</source>
        <translation>按模块、地址或设置筛选</translation>
    </message>
    <message>
        <source>Changed &amp;only</source>
        <translation>仅已更改(&amp;O)</translation>
    </message>
    <message>
        <source>Show only channels with a value that differs from the factory settings</source>
        <translation>仅显示有值与出厂设置不同的通道</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Save as CSV...</source>
        <translation>另存为 CSV(&amp;S)...</translation>
    </message>
</context>
<context>
    <name>CompareDialog</name>
    <message>
        <source>missing</source>
        <translation>缺少</translation>
    </message>
    <message>
        <source>The projects have the same content.</source>
        <translation>两个项目内容相同。</translation>
    </message>
    <message numerus="yes">
        <source>%n difference(s)</source>
        <translation>
            <numerusform>%n处差异</numerusform>
        </translation>
    </message>
    <message>
        <source>Differences</source>
        <translation>差异</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>模块</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>差异</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>Copy the differences as text, one per line</source>
        <translation>将差异复制为文本，每行一处</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>关闭(&amp;L)</translation>
    </message>
    <message>
        <source>Project</source>
        <translation>项目</translation>
    </message>
    <message>
        <source>Rack %1, slot %2</source>
        <translation>机架%1，槽位%2</translation>
    </message>
    <message>
        <source>only here</source>
        <translation>仅在本站中</translation>
    </message>
    <message>
        <source>only in the other project</source>
        <translation>仅在另一个项目中</translation>
    </message>
    <message>
        <source>Compare: %1, %2</source>
        <translation>比较：%1、%2</translation>
    </message>
</context>
<context>
    <name>FieldTexts</name>
    <message>
        <source>Channel</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>量程</translation>
    </message>
    <message>
        <source>Filter time</source>
        <translation>滤波时间</translation>
    </message>
    <message>
        <source>Open wire</source>
        <translation>断线检测</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>断线方向</translation>
    </message>
    <message>
        <source>Cold junction</source>
        <translation>冷端补偿</translation>
    </message>
    <message>
        <source>Wiring</source>
        <translation>接线方式</translation>
    </message>
    <message>
        <source>Temperature scale</source>
        <translation>温标</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>滤波</translation>
    </message>
    <message>
        <source>Samples</source>
        <translation>采样数</translation>
    </message>
    <message>
        <source>Deadband</source>
        <translation>死区</translation>
    </message>
    <message>
        <source>Freeze in STOP</source>
        <translation>STOP 时冻结</translation>
    </message>
    <message>
        <source>Value in STOP</source>
        <translation>STOP 时的值</translation>
    </message>
    <message>
        <source>Sensitivity</source>
        <translation>灵敏度</translation>
    </message>
    <message>
        <source>Limit frequency</source>
        <translation>截止频率</translation>
    </message>
    <message>
        <source>Filter depth</source>
        <translation>滤波深度</translation>
    </message>
    <message>
        <source>Sub max</source>
        <translation>去最大值数</translation>
    </message>
    <message>
        <source>Sub min</source>
        <translation>去最小值数</translation>
    </message>
    <message>
        <source>Filter mode</source>
        <translation>滤波模式</translation>
    </message>
    <message>
        <source>Sample frequency</source>
        <translation>采样频率</translation>
    </message>
    <message>
        <source>Boot clear</source>
        <translation>开机清零</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>注释</translation>
    </message>
    <message>
        <source>Rack</source>
        <translation>机架</translation>
    </message>
    <message>
        <source>Slot</source>
        <translation>槽位</translation>
    </message>
    <message>
        <source>Input address</source>
        <translation>输入地址</translation>
    </message>
    <message>
        <source>Input length</source>
        <translation>输入长度</translation>
    </message>
    <message>
        <source>Output address</source>
        <translation>输出地址</translation>
    </message>
    <message>
        <source>Output length</source>
        <translation>输出长度</translation>
    </message>
    <message>
        <source>Outputs in STOP</source>
        <translation>STOP 时的输出</translation>
    </message>
    <message>
        <source>Input %1</source>
        <translation>输入%1</translation>
    </message>
    <message>
        <source>Output %1</source>
        <translation>输出%1</translation>
    </message>
    <message>
        <source>Input filter, row %1</source>
        <translation>输入滤波，第%1行</translation>
    </message>
    <message>
        <source>States in STOP, byte %1</source>
        <translation>STOP 时的状态，字节%1</translation>
    </message>
    <message>
        <source>on</source>
        <translation>开</translation>
    </message>
    <message>
        <source>off</source>
        <translation>关</translation>
    </message>
    <message>
        <source>Controller</source>
        <translation>控制器</translation>
    </message>
    <message>
        <source>Title</source>
        <translation>标题</translation>
    </message>
    <message>
        <source>Author</source>
        <translation>作者</translation>
    </message>
    <message>
        <source>Revision</source>
        <translation>版次</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>备注</translation>
    </message>
</context>
<context>
    <name>FileCommands</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Module Workbench</source>
        <translation>模块工作台</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>打开项目</translation>
    </message>
    <message>
        <source>Opening %1...</source>
        <translation>正在打开%1...</translation>
    </message>
    <message>
        <source>%1 cannot be opened.</source>
        <translation>无法打开%1。</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>已打开%1</translation>
    </message>
    <message>
        <source>Rack %1, slot %2: %3</source>
        <translation>机架%1，槽位%2：%3</translation>
    </message>
    <message numerus="yes">
        <source>%n module(s) cannot be restored. They stay in the project as they were stored.</source>
        <translation>
            <numerusform>有%n个模块无法恢复，它们按原样保留在项目中。</numerusform>
        </translation>
    </message>
    <message>
        <source>Save Project</source>
        <translation>保存项目</translation>
    </message>
    <message>
        <source>%1 cannot be saved.</source>
        <translation>无法保存%1。</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>已保存%1</translation>
    </message>
    <message>
        <source>Compiling...</source>
        <translation>正在编译...</translation>
    </message>
    <message>
        <source>Decompile Configuration Blocks</source>
        <translation>反编译配置数据块</translation>
    </message>
    <message>
        <source>Decompiling...</source>
        <translation>正在反编译...</translation>
    </message>
    <message>
        <source>%1 cannot be read.</source>
        <translation>无法读取%1。</translation>
    </message>
    <message>
        <source>New station</source>
        <translation>新站</translation>
    </message>
    <message>
        <source>Unsaved Changes</source>
        <translation>未保存的更改</translation>
    </message>
    <message>
        <source>Save the changes to &quot;%1&quot;?</source>
        <translation>是否保存对“%1”的更改？</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>不保存(&amp;D)</translation>
    </message>
    <message>
        <source>Recover opens the modules that can still be read as a new station. The file stays as it is.</source>
        <translation>“恢复”把仍可读取的模块作为新站打开，文件保持不变。</translation>
    </message>
    <message>
        <source>%1 contains the project before the latest save.</source>
        <translation>%1包含最近一次保存之前的项目。</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>恢复(&amp;R)</translation>
    </message>
    <message>
        <source>Recovering...</source>
        <translation>正在恢复...</translation>
    </message>
    <message>
        <source>%1 cannot be recovered.</source>
        <translation>无法恢复%1。</translation>
    </message>
    <message numerus="yes">
        <source>Recovered %n module(s) as a new station.</source>
        <translation>
            <numerusform>已把%n个模块恢复为新站。</numerusform>
        </translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>File Changed</source>
        <translation>文件已更改</translation>
    </message>
    <message>
        <source>%1 was changed by another program since it was opened or saved here.</source>
        <translation>自从在此处打开或保存以来，%1已被其他程序更改。</translation>
    </message>
    <message>
        <source>Overwrite replaces those changes and keeps them in %1. Save As writes to another file.</source>
        <translation>“覆盖”会替换那些更改，并把它们保留在%1中。“另存为”写入另一个文件。</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>覆盖(&amp;O)</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>另存为(&amp;A)...</translation>
    </message>
    <message>
        <source>No module can be rebuilt from %1.</source>
        <translation>无法从%1重建任何模块。</translation>
    </message>
    <message>
        <source>Probably it is not a file of configuration blocks. The present station stays open.</source>
        <translation>它可能不是配置数据块文件。当前的站保持打开。</translation>
    </message>
    <message numerus="yes">
        <source>%n module(s) rebuilt from %1</source>
        <translation>
            <numerusform>已从%1重建%n个模块</numerusform>
        </translation>
    </message>
    <message>
        <source>Save As writes to another file.</source>
        <translation>“另存为”写入另一个文件。</translation>
    </message>
</context>
<context>
    <name>FileQuestions</name>
    <message>
        <source>Station files (*.station);;All files (*)</source>
        <translation>站文件 (*.station);;所有文件 (*)</translation>
    </message>
    <message>
        <source>Configuration blocks (*.blk);;All files (*)</source>
        <translation>配置数据块 (*.blk);;所有文件 (*)</translation>
    </message>
    <message>
        <source>Module Workbench</source>
        <translation>模块工作台</translation>
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
<context>
    <name>Files</name>
    <message>
        <source>The file is larger than %1 bytes, the limit for configuration blocks.</source>
        <translation>文件大于%1字节，即配置数据块的上限。</translation>
    </message>
    <message>
        <source>The file is a project, and only a project can replace it. Choose another name.</source>
        <translation>该文件是项目文件，只能由项目替换。请使用其他名称。</translation>
    </message>
</context>
<context>
    <name>FindDialog</name>
    <message>
        <source>Rack %1, slot %2</source>
        <translation>机架%1，槽位%2</translation>
    </message>
    <message>
        <source>Type a name, an order number or an address such as I 35.2, AIW40 or QB4.</source>
        <translation>输入名称、订货号或地址，例如 I 35.2、AIW40 或 QB4。</translation>
    </message>
    <message>
        <source>%1 modules, the first %2 are shown.</source>
        <translation>%1个模块，显示前%2个。</translation>
    </message>
    <message>
        <source>No module found.</source>
        <translation>未找到模块。</translation>
    </message>
    <message numerus="yes">
        <source>%n module(s) found.</source>
        <translation>
            <numerusform>找到%n个模块。</numerusform>
        </translation>
    </message>
    <message>
        <source>Find Module</source>
        <translation>查找模块</translation>
    </message>
    <message>
        <source>Name, order number or address</source>
        <translation>名称、订货号或地址</translation>
    </message>
    <message>
        <source>Modules found</source>
        <translation>找到的模块</translation>
    </message>
    <message>
        <source>Place</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>模块</translation>
    </message>
    <message>
        <source>Details</source>
        <translation>详细信息</translation>
    </message>
</context>
<context>
    <name>HelpBrowser</name>
    <message>
        <source>en</source>
        <extracomment>Folder of the help pages in this language: en or zh.</extracomment>
        <translation>zh</translation>
    </message>
    <message>
        <source>Help page</source>
        <translation>帮助页</translation>
    </message>
</context>
<context>
    <name>HelpDialog</name>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
</context>
<context>
    <name>HelpDialogs</name>
    <message>
        <source>Shortcuts</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>按键</translation>
    </message>
    <message>
        <source>Racks</source>
        <translation>机架</translation>
    </message>
    <message>
        <source>Move the selection</source>
        <translation>移动选择</translation>
    </message>
    <message>
        <source>Arrow keys</source>
        <translation>方向键</translation>
    </message>
    <message>
        <source>Select all modules</source>
        <translation>选择所有模块</translation>
    </message>
    <message>
        <source>Move the module to the next free slot</source>
        <translation>将模块移到下一个空槽位</translation>
    </message>
    <message>
        <source>Ctrl+Arrow keys</source>
        <translation>Ctrl+方向键</translation>
    </message>
    <message>
        <source>Card size</source>
        <translation>卡片大小</translation>
    </message>
    <message>
        <source>Ctrl+Mouse wheel</source>
        <translation>Ctrl+鼠标滚轮</translation>
    </message>
    <message>
        <source>Properties of a module</source>
        <translation>模块属性</translation>
    </message>
    <message>
        <source>Apply to All Channels</source>
        <translation>应用到所有通道</translation>
    </message>
    <message>
        <source>Fill Down</source>
        <translation>向下填充</translation>
    </message>
    <message>
        <source>Reset to Default</source>
        <translation>恢复默认值</translation>
    </message>
    <message>
        <source>Go to the previous or next channel</source>
        <translation>转到上一个或下一个通道</translation>
    </message>
    <message>
        <source>Go to the first or last channel</source>
        <translation>转到第一个或最后一个通道</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>关闭(&amp;L)</translation>
    </message>
    <message>
        <source>About Module Workbench</source>
        <translation>关于模块工作台</translation>
    </message>
    <message>
        <source>Module Workbench %1</source>
        <translation>模块工作台%1</translation>
    </message>
    <message>
        <source>Plug-in: %1
Host libraries: basemodule and helpsharemodule, simulated
Qt %2, compiled with Qt %3
Project files: SQLite, through Qt</source>
        <translation>插件：%1
主机库：basemodule 和 helpsharemodule（模拟）
Qt %2，使用 Qt %3编译
项目文件：SQLite（通过 Qt）</translation>
    </message>
</context>
<context>
    <name>HelpDock</name>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Plug-in: %1</source>
        <translation>插件：%1</translation>
    </message>
    <message>
        <source>Catalog</source>
        <translation>目录</translation>
    </message>
    <message>
        <source>Memory map</source>
        <translation>存储区映射</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>新建(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>打开(&amp;O)...</translation>
    </message>
    <message>
        <source>Open a project</source>
        <translation>打开项目</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Save the station to its project file</source>
        <translation>把站保存到项目文件</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>另存为(&amp;A)...</translation>
    </message>
    <message>
        <source>Save the station to another file</source>
        <translation>把站保存到另一个文件</translation>
    </message>
    <message>
        <source>&amp;Compile...</source>
        <translation>编译(&amp;C)...</translation>
    </message>
    <message>
        <source>Show the configuration blocks of all modules</source>
        <translation>显示所有模块的配置数据块</translation>
    </message>
    <message>
        <source>&amp;Decompile...</source>
        <translation>反编译(&amp;D)...</translation>
    </message>
    <message>
        <source>Rebuild a station from a file of configuration blocks</source>
        <translation>由配置数据块文件重建站</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>Close the workbench</source>
        <translation>关闭工作台</translation>
    </message>
    <message>
        <source>&amp;Recent Projects</source>
        <translation>最近的项目(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>剪切(&amp;T)</translation>
    </message>
    <message>
        <source>Copy the selected modules and remove them</source>
        <translation>复制并删除选中的模块</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>Copy the selected modules and their parameters</source>
        <translation>复制选中的模块及其参数</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>Re&amp;move</source>
        <translation>删除(&amp;M)</translation>
    </message>
    <message>
        <source>Remove the selected modules and free their addresses</source>
        <translation>删除选中的模块并释放其地址</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>P&amp;lace from Catalog</source>
        <translation>从目录放置(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Move to...</source>
        <translation>移到(&amp;M)...</translation>
    </message>
    <message>
        <source>Move the module to another rack or slot</source>
        <translation>把模块移到其他机架或槽位</translation>
    </message>
    <message>
        <source>P&amp;roperties...</source>
        <translation>属性(&amp;R)...</translation>
    </message>
    <message>
        <source>Edit the parameters of the module</source>
        <translation>编辑模块的参数</translation>
    </message>
    <message>
        <source>&amp;Module</source>
        <translation>模块(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Controller</source>
        <translation>控制器(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>放大(&amp;I)</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>缩小(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>语言(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Help on the Module</source>
        <translation>模块帮助(&amp;H)</translation>
    </message>
    <message>
        <source>Open the help page of the current module&apos;s family</source>
        <translation>打开当前模块类别的帮助页面</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>The station cannot have this controller.</source>
        <translation>该站不能使用此控制器。</translation>
    </message>
    <message numerus="yes">
        <source>%n module(s), controller %1</source>
        <translation>
            <numerusform>%n个模块，控制器%1</numerusform>
        </translation>
    </message>
    <message>
        <source>%1[*] - Module Workbench</source>
        <translation>%1[*] - 模块工作台</translation>
    </message>
    <message>
        <source>Create an empty station</source>
        <translation>新建空站</translation>
    </message>
    <message>
        <source>Undo the last step</source>
        <translation>撤销上一步</translation>
    </message>
    <message>
        <source>Redo the last undone step</source>
        <translation>重做上一个撤销的步骤</translation>
    </message>
    <message>
        <source>Place the catalog&apos;s current module in the current slot, or in the next free slot</source>
        <translation>把目录中的当前模块放到当前槽位或下一个空闲槽位</translation>
    </message>
    <message>
        <source>Enlarge the memory map</source>
        <translation>放大存储区映射</translation>
    </message>
    <message>
        <source>Reduce the memory map</source>
        <translation>缩小存储区映射</translation>
    </message>
    <message>
        <source>Problems</source>
        <translation>问题</translation>
    </message>
    <message>
        <source>No problems</source>
        <translation>没有问题</translation>
    </message>
    <message numerus="yes">
        <source>%n problem(s)</source>
        <translation>
            <numerusform>%n个问题</numerusform>
        </translation>
    </message>
    <message>
        <source>The unsaved changes are recovered. Save them to keep them.</source>
        <translation>已恢复未保存的更改。请保存它们。</translation>
    </message>
    <message>
        <source>Paste modules from the current slot on; cut modules keep their addresses, copies get new ones</source>
        <translation>从当前槽位开始粘贴模块；剪切的模块保留地址，副本获得新地址</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>Project Proper&amp;ties...</source>
        <translation>项目属性(&amp;T)...</translation>
    </message>
    <message>
        <source>Edit title, author, revision and notes of the project</source>
        <translation>编辑项目的标题、作者、版次和备注</translation>
    </message>
    <message>
        <source>Compare &amp;with...</source>
        <translation>比较(&amp;W)...</translation>
    </message>
    <message>
        <source>Show the differences from another project</source>
        <translation>显示与另一个项目的差异</translation>
    </message>
    <message>
        <source>Re&amp;port...</source>
        <translation>报告(&amp;P)...</translation>
    </message>
    <message>
        <source>Show, print or save a document of the station</source>
        <translation>显示、打印或保存站的文档</translation>
    </message>
    <message>
        <source>Paste P&amp;arameters</source>
        <translation>粘贴参数(&amp;A)</translation>
    </message>
    <message>
        <source>Give the parameters of the copied module to all selected modules of its type</source>
        <translation>将所复制模块的参数应用到所有选中的同类型模块</translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation>查找(&amp;F)...</translation>
    </message>
    <message>
        <source>Find a module by its name, order number or address</source>
        <translation>按名称、订货号或地址查找模块</translation>
    </message>
    <message>
        <source>All &amp;Racks and Slots</source>
        <translation>所有机架和槽位(&amp;R)</translation>
    </message>
    <message>
        <source>Show all racks and slots, not only the used ones and one more</source>
        <translation>显示所有机架和槽位，而不只是已用的和再多一个</translation>
    </message>
    <message>
        <source>Lar&amp;ger Cards</source>
        <translation>放大卡片(&amp;G)</translation>
    </message>
    <message>
        <source>Enlarge the cards of the modules</source>
        <translation>放大模块卡片</translation>
    </message>
    <message>
        <source>S&amp;maller Cards</source>
        <translation>缩小卡片(&amp;M)</translation>
    </message>
    <message>
        <source>Reduce the cards of the modules</source>
        <translation>缩小模块卡片</translation>
    </message>
    <message>
        <source>&amp;Shortcuts</source>
        <translation>快捷键(&amp;S)</translation>
    </message>
    <message>
        <source>List the keys of all commands</source>
        <translation>列出所有命令的按键</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>关于(&amp;A)</translation>
    </message>
    <message>
        <source>Show the versions of the program and its libraries</source>
        <translation>显示程序及其库的版本</translation>
    </message>
    <message>
        <source>Show the list of problems</source>
        <translation>显示问题列表</translation>
    </message>
</context>
<context>
    <name>MemoryAreas</name>
    <message>
        <source>Analog inputs</source>
        <translation>模拟量输入</translation>
    </message>
    <message>
        <source>Analog outputs</source>
        <translation>模拟量输出</translation>
    </message>
    <message>
        <source>Digital inputs</source>
        <translation>数字量输入</translation>
    </message>
    <message>
        <source>Digital outputs</source>
        <translation>数字量输出</translation>
    </message>
    <message>
        <source>Variables</source>
        <translation>变量</translation>
    </message>
</context>
<context>
    <name>MemoryStrip</name>
    <message>
        <source>%1 of %2 bytes free, longest gap %3</source>
        <translation>空闲%1/%2字节，最长连续%3</translation>
    </message>
    <message>
        <source>%1 %2..%3, %4 bytes</source>
        <translation>%1 %2..%3，%4字节</translation>
    </message>
    <message>
        <source>Free: %1</source>
        <translation>空闲：%1</translation>
    </message>
    <message>
        <source>%1, %2: 0..%3</source>
        <translation>%1，%2：0..%3</translation>
    </message>
    <message>
        <source>%1% used, %2</source>
        <translation>已用%1%，%2</translation>
    </message>
    <message>
        <source>Held by no module</source>
        <translation>不属于任何模块</translation>
    </message>
</context>
<context>
    <name>MemoryView</name>
    <message>
        <source>%1 (rack %2, slot %3)</source>
        <translation>%1（机架%2，槽位%3）</translation>
    </message>
    <message>
        <source>Memory map</source>
        <translation>存储区映射</translation>
    </message>
</context>
<context>
    <name>ModuleCommands</name>
    <message>
        <source>No module can be added.</source>
        <translation>无法添加模块。</translation>
    </message>
    <message>
        <source>Every slot of the station is taken.</source>
        <translation>站的所有槽位都已占用。</translation>
    </message>
    <message>
        <source>%1 cannot be added to rack %2, slot %3.</source>
        <translation>无法把%1添加到机架%2，槽位%3。</translation>
    </message>
    <message>
        <source>Added %1 in rack %2, slot %3</source>
        <translation>已把%1添加到机架%2，槽位%3</translation>
    </message>
    <message numerus="yes">
        <source>%n module(s) cannot be moved.</source>
        <translation>
            <numerusform>无法移动%n个模块。</numerusform>
        </translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no properties while it is not available.</source>
        <translation>“%1”不可用，因此没有属性。</translation>
    </message>
    <message numerus="yes">
        <source>%n module(s) cut</source>
        <translation>
            <numerusform>已剪切%n个模块</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n module(s) copied</source>
        <translation>
            <numerusform>已复制%n个模块</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n module(s) moved</source>
        <translation>
            <numerusform>已移动%n个模块</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n module(s) removed</source>
        <translation>
            <numerusform>已删除%n个模块</numerusform>
        </translation>
    </message>
    <message>
        <source>The clipboard contains no modules that can be read.</source>
        <translation>剪贴板中没有可读取的模块。</translation>
    </message>
    <message>
        <source>Undone: %1</source>
        <translation>已撤销：%1</translation>
    </message>
    <message>
        <source>Redone: %1</source>
        <translation>已重做：%1</translation>
    </message>
</context>
<context>
    <name>PasteResult</name>
    <message numerus="yes">
        <source>%1 of %n module(s) pasted</source>
        <translation>
            <numerusform>%n个模块中已粘贴%1个</numerusform>
        </translation>
    </message>
    <message>
        <source>%1.</source>
        <translation>%1。</translation>
    </message>
    <message>
        <source>%1, with new addresses.</source>
        <translation>%1，使用新地址。</translation>
    </message>
    <message>
        <source>%1, with the former addresses.</source>
        <translation>%1，保留原地址。</translation>
    </message>
    <message>
        <source>%1: %2 with former addresses, %3 with new ones because the former are taken.</source>
        <translation>%1：%2个保留原地址，%3个因原地址已被占用而使用新地址。</translation>
    </message>
    <message numerus="yes">
        <source>%n module(s): %1</source>
        <translation>
            <numerusform>%n个模块：%1</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>PlaceDialog</name>
    <message>
        <source>&amp;Rack:</source>
        <translation>机架(&amp;R)：</translation>
    </message>
    <message>
        <source>&amp;Slot:</source>
        <translation>槽位(&amp;S)：</translation>
    </message>
    <message>
        <source>The module&apos;s present slot.</source>
        <translation>模块当前所在的槽位。</translation>
    </message>
    <message>
        <source>This slot is free.</source>
        <translation>此槽位空闲。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>移动%1</translation>
    </message>
</context>
<context>
    <name>PluginLibrary</name>
    <message>
        <source>%1 does not export %2.</source>
        <translation>%1没有导出%2。</translation>
    </message>
</context>
<context>
    <name>ProblemModel</name>
    <message>
        <source>Module</source>
        <translation>模块</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>Description file</source>
        <translation>描述文件</translation>
    </message>
    <message>
        <source>Recovery copy</source>
        <translation>恢复副本</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>种类</translation>
    </message>
    <message>
        <source>Where</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>Problem</source>
        <translation>问题</translation>
    </message>
</context>
<context>
    <name>ProblemView</name>
    <message>
        <source>Unsaved changes are lost if the program fails. Save often. %1</source>
        <translation>如果程序出错，未保存的更改会丢失。请经常保存。%1</translation>
    </message>
    <message>
        <source>Problems</source>
        <translation>问题</translation>
    </message>
</context>
<context>
    <name>Problems</name>
    <message>
        <source>%1 is not reserved, because it overlaps the addresses of %2. Change those addresses.</source>
        <translation>%1未保留，因为它与%2的地址重叠。请更改那些地址。</translation>
    </message>
    <message>
        <source>%1 is not reserved, because it is outside its area. Choose a larger controller.</source>
        <translation>%1未保留，因为它在其存储区之外。请选择更大的控制器。</translation>
    </message>
    <message>
        <source>%1 is not reserved for its module. Open the project again.</source>
        <translation>%1没有为其模块保留。请重新打开项目。</translation>
    </message>
    <message>
        <source>%1 is reserved, but no module uses it. Open the project again.</source>
        <translation>%1已保留，但没有模块使用。请重新打开项目。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not available, and Compile leaves it out. %2</source>
        <translation>“%1”不可用，编译时略去。%2</translation>
    </message>
    <message>
        <source>Rack %1, slot %2</source>
        <translation>机架%1，槽位%2</translation>
    </message>
    <message>
        <source>%1, line %2</source>
        <translation>%1，第%2行</translation>
    </message>
</context>
<context>
    <name>ProjectFile</name>
    <message>
        <source>Qt&apos;s SQLite driver is not installed.</source>
        <translation>未安装Qt的SQLite驱动。</translation>
    </message>
    <message>
        <source>The file is too large for a station.</source>
        <translation>文件太大，不可能是一个站。</translation>
    </message>
    <message>
        <source>The file is damaged: %1</source>
        <translation>文件已损坏：%1</translation>
    </message>
    <message>
        <source>The file or its folder is write-protected.</source>
        <translation>文件或其所在文件夹有写保护。</translation>
    </message>
    <message>
        <source>The disk is full, or it failed to read or write.</source>
        <translation>磁盘已满，或读写失败。</translation>
    </message>
    <message>
        <source>The disk is full.</source>
        <translation>磁盘已满。</translation>
    </message>
    <message>
        <source>The folder does not exist, or files cannot be created in it.</source>
        <translation>文件夹不存在，或无法在其中创建文件。</translation>
    </message>
    <message>
        <source>its tables are not those of a station.</source>
        <translation>其中的表不属于一个站。</translation>
    </message>
    <message>
        <source>This is not a station file, or its header is damaged.</source>
        <translation>这不是站文件，或其文件头已损坏。</translation>
    </message>
    <message>
        <source>its modules do not match its checksum.</source>
        <translation>其中的模块与校验和不符。</translation>
    </message>
    <message>
        <source>Another program is using the file. Close it there, or try again later.</source>
        <translation>其他程序正在使用该文件。请在那里关闭它，或稍后重试。</translation>
    </message>
    <message>
        <source>The file is damaged: parts of it cannot be read.</source>
        <translation>文件已损坏：部分内容无法读取。</translation>
    </message>
    <message>
        <source>The file is damaged: SQLite reports the error %1.</source>
        <translation>文件已损坏：SQLite报告错误%1。</translation>
    </message>
    <message>
        <source>The backup %1 cannot be written. %2</source>
        <translation>无法写入备份%1。%2</translation>
    </message>
    <message>
        <source>This is the database of another program, or its header is damaged.</source>
        <translation>这是其他程序的数据库，或其文件头已损坏。</translation>
    </message>
    <message>
        <source>The file has version %1; this program reads the versions up to %2.</source>
        <translation>该文件的版本为%1；本程序可读取的最高版本为%2。</translation>
    </message>
    <message>
        <source>it has unreadable pages or invalid values.</source>
        <translation>其中有无法读取的页或无效的值。</translation>
    </message>
    <message>
        <source>A file name that begins with a colon needs its folder, such as ./%1.</source>
        <translation>以冒号开头的文件名需要带上文件夹，例如 ./%1。</translation>
    </message>
    <message>
        <source>The file name has %1 bytes. That of a project can have at most %2 bytes.</source>
        <translation>文件名有 %1 个字节。项目的文件名最多可有 %2 个字节。</translation>
    </message>
</context>
<context>
    <name>ProjectPropertiesDialog</name>
    <message>
        <source>Project Properties</source>
        <translation>项目属性</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>&amp;Title:</source>
        <translation>标题(&amp;T)：</translation>
    </message>
    <message>
        <source>&amp;Author:</source>
        <translation>作者(&amp;A)：</translation>
    </message>
    <message>
        <source>&amp;Revision:</source>
        <translation>版次(&amp;R)：</translation>
    </message>
    <message>
        <source>&amp;Notes:</source>
        <translation>备注(&amp;N)：</translation>
    </message>
</context>
<context>
    <name>ProjectRecovery</name>
    <message>
        <source>The file is too large for a station.</source>
        <translation>对于站来说，文件太大。</translation>
    </message>
    <message>
        <source>The checksum of the file does not match. Parameters of the modules may be wrong too: compare them with a backup or a report.</source>
        <translation>文件的校验和不符。模块的参数也可能有误：请与备份或报告比较。</translation>
    </message>
    <message>
        <source>Rack %1, slot %2: the module is damaged.</source>
        <translation>机架%1，槽位%2：模块已损坏。</translation>
    </message>
    <message>
        <source>Rack %1, slot %2, &quot;%3&quot;: the module type is contradictory.</source>
        <translation>机架%1，槽位%2，“%3”：模块类型自相矛盾。</translation>
    </message>
    <message>
        <source>Rack %1, slot %2 to rack %3, slot %4: all modules there are lost.</source>
        <translation>机架%1，槽位%2至机架%3，槽位%4：那里的所有模块都已丢失。</translation>
    </message>
    <message>
        <source>No temporary file can be written.</source>
        <translation>无法写入临时文件。</translation>
    </message>
    <message>
        <source>No module of the file can be read.</source>
        <translation>无法读取文件中的任何模块。</translation>
    </message>
</context>
<context>
    <name>RackModel</name>
    <message>
        <source>Rack %1</source>
        <translation>机架%1</translation>
    </message>
    <message>
        <source>Slot %1</source>
        <translation>槽位%1</translation>
    </message>
    <message>
        <source>Type %1, order number %2</source>
        <translation>类型%1，订货号%2</translation>
    </message>
    <message>
        <source>Type %1</source>
        <translation>类型%1</translation>
    </message>
    <message>
        <source>Not available: %1</source>
        <translation>不可用：%1</translation>
    </message>
    <message>
        <source>free</source>
        <translation>空闲</translation>
    </message>
    <message>
        <source>Rack %1, slot %2: %3</source>
        <translation>机架%1，槽位%2：%3</translation>
    </message>
</context>
<context>
    <name>RackView</name>
    <message>
        <source>Racks</source>
        <translation>机架</translation>
    </message>
    <message>
        <source>%1, not available</source>
        <translation>%1，不可用</translation>
    </message>
</context>
<context>
    <name>RecoveryCopy</name>
    <message>
        <source>The folder %1 cannot be written.</source>
        <translation>无法写入文件夹%1。</translation>
    </message>
    <message>
        <source>The recovery copy is damaged.</source>
        <translation>恢复副本已损坏。</translation>
    </message>
</context>
<context>
    <name>RecoveryQuestion</name>
    <message>
        <source>New station</source>
        <translation>新站</translation>
    </message>
    <message>
        <source>Unsaved Changes</source>
        <translation>未保存的更改</translation>
    </message>
    <message numerus="yes">
        <source>The copy of %1 has %n module(s). Recover opens it as unsaved changes; the project file stays as it is until you save.</source>
        <translation>
            <numerusform>%1的副本有%n个模块。“恢复”把它作为未保存的更改打开；在您保存之前，项目文件保持不变。</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>恢复(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>不保存(&amp;D)</translation>
    </message>
    <message>
        <source>Ask &amp;Later</source>
        <translation>以后再问(&amp;L)</translation>
    </message>
    <message>
        <source>The changes cannot be recovered. Their copy stays.</source>
        <translation>无法恢复更改。其副本保留。</translation>
    </message>
    <message>
        <source>The workbench ended before the changes to &quot;%1&quot; were saved.</source>
        <translation>工作台在保存对“%1”的更改之前就结束了。</translation>
    </message>
</context>
<context>
    <name>ReportDialog</name>
    <message>
        <source>Preparing the report...</source>
        <translation>正在准备报告...</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>报告</translation>
    </message>
    <message>
        <source>PDF (*.pdf);;HTML (*.html);;Channels, comma-separated values (*.csv);;All fields, JSON (*.json)</source>
        <translation>PDF (*.pdf);;HTML (*.html);;通道，逗号分隔值 (*.csv);;所有字段，JSON (*.json)</translation>
    </message>
    <message>
        <source>Save Report</source>
        <translation>保存报告</translation>
    </message>
    <message>
        <source>%1 cannot be written.</source>
        <translation>无法写入%1。</translation>
    </message>
    <message>
        <source>&amp;Save As...</source>
        <translation>另存为(&amp;S)...</translation>
    </message>
</context>
<context>
    <name>ReportFile</name>
    <message>
        <source>Page %1</source>
        <translation>第%1页</translation>
    </message>
    <message>
        <source>The name of a report ends in .html, .pdf, .csv or .json.</source>
        <translation>报告的文件名须以 .html、.pdf、.csv 或 .json 结尾。</translation>
    </message>
    <message>
        <source>A PDF needs Qt&apos;s fonts, which this program did not load.</source>
        <translation>PDF 需要 Qt 的字体，而本程序未加载这些字体。</translation>
    </message>
</context>
<context>
    <name>Station</name>
    <message>
        <source>Rack %1, slot %2 is taken by &quot;%3&quot;.</source>
        <translation>机架%1的槽位%2已被“%3”占用。</translation>
    </message>
    <message>
        <source>The block is damaged.</source>
        <translation>数据块已损坏。</translation>
    </message>
    <message>
        <source>Its saved state is damaged.</source>
        <translation>其保存的状态已损坏。</translation>
    </message>
    <message>
        <source>Rack %1, slot %2 does not exist. Racks have the numbers 0 to %3, slots 0 to %4.</source>
        <translation>机架%1的槽位%2不存在。机架编号为0至%3，槽位编号为0至%4。</translation>
    </message>
    <message>
        <source>The plug-in cannot create a module of type %1.</source>
        <translation>插件无法创建类型%1的模块。</translation>
    </message>
    <message>
        <source>Its saved state belongs to rack %1, slot %2.</source>
        <translation>其保存的状态属于机架%1，槽位%2。</translation>
    </message>
    <message>
        <source>The lengths of its address ranges do not match its type.</source>
        <translation>其地址区的长度与类型不符。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; in rack %2, slot %3</source>
        <translation>机架%2，槽位%3中的“%1”</translation>
    </message>
</context>
<context>
    <name>StationBlocks</name>
    <message>
        <source>The end of this block is unknown, so the bytes after it were not read.</source>
        <translation>无法确定该数据块的末尾，因此未读取后面的字节。</translation>
    </message>
</context>
<context>
    <name>StationDocument</name>
    <message>
        <source>Parameters that cannot be read have factory values.</source>
        <translation>无法读取的参数使用出厂值。</translation>
    </message>
    <message>
        <source>Rack %1, slot %2, &quot;%3&quot;: %4</source>
        <translation>机架%1，槽位%2，“%3”：%4</translation>
    </message>
    <message>
        <source>The controller type is lost. Check the type that was chosen.</source>
        <translation>控制器类型已丢失。请检查所选的类型。</translation>
    </message>
</context>
<context>
    <name>StationEdits</name>
    <message>
        <source>Add %1</source>
        <translation>添加%1</translation>
    </message>
    <message>
        <source>Paste %1</source>
        <translation>粘贴%1</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>移动%1</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>删除%1</translation>
    </message>
    <message numerus="yes">
        <source>Remove %n module(s)</source>
        <translation>
            <numerusform>删除%n个模块</numerusform>
        </translation>
    </message>
    <message>
        <source>Edit %1</source>
        <translation>编辑%1</translation>
    </message>
    <message>
        <source>Change the controller</source>
        <translation>更改控制器</translation>
    </message>
    <message>
        <source>No free slot follows. Paste them at an earlier slot.</source>
        <translation>后面没有空闲槽位。请粘贴到前面的槽位。</translation>
    </message>
    <message numerus="yes">
        <source>Paste %n module(s)</source>
        <translation>
            <numerusform>粘贴%n个模块</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Move %n module(s)</source>
        <translation>
            <numerusform>移动%n个模块</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Paste parameters to %n module(s)</source>
        <translation>
            <numerusform>将参数粘贴到%n个模块</numerusform>
        </translation>
    </message>
    <message>
        <source>Edit the project properties</source>
        <translation>编辑项目属性</translation>
    </message>
</context>
<context>
    <name>StationExport</name>
    <message>
        <source>%1: %2 instead of %3</source>
        <translation>%1：%2（出厂值%3）</translation>
    </message>
    <message>
        <source>Rack</source>
        <translation>机架</translation>
    </message>
    <message>
        <source>Slot</source>
        <translation>槽位</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>模块</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>Signal</source>
        <translation>信号</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Changed from the factory settings</source>
        <translation>与出厂设置不同</translation>
    </message>
</context>
<context>
    <name>StationMemory</name>
    <message>
        <source>The host has no PLC type %1.</source>
        <translation>主机没有PLC类型%1。</translation>
    </message>
    <message numerus="yes">
        <source>The area %1 has no room for %n more byte(s). Remove modules or choose a larger controller.</source>
        <translation>
            <numerusform>%1区没有再容纳%n字节的空间。请删除模块或选择更大的控制器。</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 uses %2, but the area %3 of this controller ends at %4. Change the address or remove the module first.</source>
        <translation>%1使用%2，但此控制器的%3区到%4为止。请先更改地址或删除该模块。</translation>
    </message>
    <message>
        <source>%1 overlaps the addresses of %2. Change one of the two addresses.</source>
        <translation>%1与%2的地址重叠。请更改两个地址之一。</translation>
    </message>
    <message>
        <source>%1 lies outside the area %2, which ends at %3. Change the address or choose a larger controller.</source>
        <translation>%1在%2区之外，该区到%3为止。请更改地址或选择更大的控制器。</translation>
    </message>
</context>
<context>
    <name>StationReport</name>
    <message>
        <source>New station</source>
        <translation>新建站</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Author</source>
        <translation>作者</translation>
    </message>
    <message>
        <source>Revision</source>
        <translation>版次</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>日期</translation>
    </message>
    <message>
        <source>Controller</source>
        <translation>控制器</translation>
    </message>
    <message>
        <source>Modules</source>
        <translation>模块</translation>
    </message>
    <message>
        <source>Not available</source>
        <translation>不可用</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>备注</translation>
    </message>
    <message>
        <source>Racks</source>
        <translation>机架</translation>
    </message>
    <message>
        <source>Rack %1</source>
        <translation>机架%1</translation>
    </message>
    <message>
        <source>Slot %1</source>
        <translation>槽位%1</translation>
    </message>
    <message>
        <source>free</source>
        <translation>空闲</translation>
    </message>
    <message>
        <source>not available</source>
        <translation>不可用</translation>
    </message>
    <message>
        <source>Addresses</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>%1, %2: %3 of %4 bytes used</source>
        <translation>%1，%2：已用%3 / %4字节</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>字节</translation>
    </message>
    <message>
        <source>Module</source>
        <translation>模块</translation>
    </message>
    <message>
        <source>Rack</source>
        <translation>机架</translation>
    </message>
    <message>
        <source>Slot</source>
        <translation>槽位</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>Values that differ from the factory settings are bold and marked with *.</source>
        <translation>与出厂设置不同的值以粗体显示，并标有 *。</translation>
    </message>
    <message>
        <source>Rack %1, slot %2: %3 (%4)</source>
        <translation>机架%1，槽位%2：%3（%4）</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>Signal</source>
        <translation>信号</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
</context>
<context>
    <name>StationSearch</name>
    <message>
        <source>%1, channel %2</source>
        <translation>%1，通道%2</translation>
    </message>
</context>
<context>
    <name>StationTools</name>
    <message>
        <source>Rack %1, slot %2 has no module any more.</source>
        <translation>机架%1，槽位%2已没有模块。</translation>
    </message>
    <message>
        <source>Compare with Project</source>
        <translation>与项目比较</translation>
    </message>
    <message>
        <source>%1 cannot be opened.</source>
        <translation>无法打开%1。</translation>
    </message>
    <message>
        <source>This station</source>
        <translation>本站</translation>
    </message>
    <message>
        <source>Copy a module, then select the modules that are to get its parameters.</source>
        <translation>请先复制一个模块，再选择要接收其参数的模块。</translation>
    </message>
    <message>
        <source>The parameters cannot be pasted.</source>
        <translation>无法粘贴参数。</translation>
    </message>
    <message numerus="yes">
        <source>Parameters pasted to %n module(s)</source>
        <translation>
            <numerusform>参数已粘贴到%n个模块</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n had them already</source>
        <translation>
            <numerusform>%n个已是这些参数</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n of another type left alone</source>
        <translation>
            <numerusform>%n个其他类型的模块未更改</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n not available</source>
        <translation>
            <numerusform>%n个不可用</numerusform>
        </translation>
    </message>
</context>
</TS>
