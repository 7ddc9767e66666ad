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
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
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
</context>
<context>
    <name>Files</name>
    <message>
        <source>The file is larger than %1 bytes, the limit for configuration blocks.</source>
        <translation>文件大于%1字节，即配置数据块的上限。</translation>
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
    <message>
        <source>Undo: %1</source>
        <translation>撤销：%1</translation>
    </message>
    <message>
        <source>Redo: %1</source>
        <translation>重做：%1</translation>
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
</context>
<context>
    <name>MemoryStrip</name>
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
</context>
<context>
    <name>MemoryView</name>
    <message>
        <source>Held by no module</source>
        <translation>不属于任何模块</translation>
    </message>
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
        <source>%1, with their former addresses.</source>
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
        <source>The file has version %1; this program reads version %2.</source>
        <translation>文件的版本为%1；本程序读取版本%2。</translation>
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
        <source>not available</source>
        <translation>不可用</translation>
    </message>
    <message>
        <source>Racks</source>
        <translation>机架</translation>
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
        <source>The block is damaged and its end is unknown, so the bytes after it were not read.</source>
        <translation>数据块已损坏，无法确定其末尾，因此未读取后面的字节。</translation>
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
        <source>Change the PLC type</source>
        <translation>更改PLC类型</translation>
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
</TS>
