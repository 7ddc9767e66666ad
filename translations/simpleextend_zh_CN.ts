<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>ChannelActions</name>
    <message>
        <source>Fill Down</source>
        <translation>向下填充</translation>
    </message>
    <message>
        <source>Reset to Default</source>
        <translation>恢复默认值</translation>
    </message>
    <message>
        <source>The context menu of an editor changes several channels at once.</source>
        <translation>编辑框的右键菜单可同时设置多个通道。</translation>
    </message>
    <message>
        <source>Apply to All Channels</source>
        <translation>应用到所有通道</translation>
    </message>
    <message>
        <source>Apply to Selected Channels</source>
        <translation>应用到选中的通道</translation>
    </message>
    <message>
        <source>There is no valid value to apply.</source>
        <translation>没有可应用的有效值。</translation>
    </message>
    <message>
        <source>Applied to %1 of %2 channels.</source>
        <translation>已应用到%2个通道中的%1个。</translation>
    </message>
    <message>
        <source>1 does not offer this value.</source>
        <translation>1个没有此选项。</translation>
    </message>
    <message>
        <source>%1 do not offer this value.</source>
        <translation>%1个没有此选项。</translation>
    </message>
    <message>
        <source>1 is disabled.</source>
        <translation>1个被禁用。</translation>
    </message>
    <message>
        <source>%1 are disabled.</source>
        <translation>%1个被禁用。</translation>
    </message>
    <message>
        <source>Reset to the default value.</source>
        <translation>已恢复默认值。</translation>
    </message>
    <message>
        <source>There is no default value.</source>
        <translation>没有默认值。</translation>
    </message>
</context>
<context>
    <name>Choices</name>
    <message>
        <source>Disable</source>
        <translation>禁用</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Invalid</source>
        <translation>无效</translation>
    </message>
    <message>
        <source>Upscale</source>
        <translation>升至上限</translation>
    </message>
    <message>
        <source>Downscale</source>
        <translation>降至下限</translation>
    </message>
    <message>
        <source>2-wire</source>
        <translation>二线制</translation>
    </message>
    <message>
        <source>3-wire</source>
        <translation>三线制</translation>
    </message>
    <message>
        <source>Degrees Celsius</source>
        <translation>摄氏度</translation>
    </message>
    <message>
        <source>Degrees Fahrenheit</source>
        <translation>华氏度</translation>
    </message>
</context>
<context>
    <name>DefaultsPage</name>
    <message>
        <source>Defaults</source>
        <translation>默认值</translation>
    </message>
</context>
<context>
    <name>ParamPage</name>
    <message>
        <source>Channel %1, %2</source>
        <translation>通道 %1，%2</translation>
    </message>
</context>
<context>
    <name>SAIFilterWgt</name>
    <message>
        <source>The analog value the PLC used is the average of the number of samples taken,if the Analog Input Filter is selected. If the actual analog value exceeds the average value by more than the deadband, the average will be replaced with the actual value.</source>
        <translation>选择模拟量输入滤波后，PLC 使用的模拟量值是所取采样的平均值。如果实际模拟量值与平均值之差超过死区，则以实际值代替平均值。</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>全部清除</translation>
    </message>
    <message>
        <source>Whether to Filter</source>
        <translation>是否滤波</translation>
    </message>
    <message>
        <source>Number of Samples</source>
        <translation>采样数</translation>
    </message>
    <message>
        <source>Deadband(16 - 4080, 0 = forbid)</source>
        <translation>死区（16 - 4080，0 = 禁用）</translation>
    </message>
    <message>
        <source>The value of deadband must be multiples of sixteen.</source>
        <translation>死区值必须是 16 的倍数。</translation>
    </message>
</context>
<context>
    <name>SAIRangeWgt</name>
    <message>
        <source>Enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Filter Time</source>
        <translation>滤波时间</translation>
    </message>
    <message>
        <source>Input Range</source>
        <translation>输入量程</translation>
    </message>
    <message>
        <source>Open Wire Detect</source>
        <translation>断线检测</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>断线方向</translation>
    </message>
    <message>
        <source>Cold Junction</source>
        <translation>冷端补偿</translation>
    </message>
    <message>
        <source>Wiring Scheme</source>
        <translation>接线方式</translation>
    </message>
    <message>
        <source>Temperature Scale</source>
        <translation>温标</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>You can adjust the range parameters.</source>
        <translation>可以在此调整量程参数。</translation>
    </message>
</context>
<context>
    <name>SAQOutTblWgt</name>
    <message>
        <source>You can configure the value of each analog output on transition from RUN to STOP of the PLC.</source>
        <translation>可以在此设置 PLC 从 RUN 转换到 STOP 时各模拟量输出的值。</translation>
    </message>
    <message>
        <source>Values on transition from RUN to STOP</source>
        <translation>从 RUN 转换到 STOP 时的值</translation>
    </message>
    <message>
        <source>Freeze outputs in last state</source>
        <translation>输出冻结在最后状态</translation>
    </message>
</context>
<context>
    <name>SAQOutTypeWgt</name>
    <message>
        <source>You can configure the value of each analog output type of the PLC.</source>
        <translation>可以在此设置 PLC 各模拟量输出的类型。</translation>
    </message>
    <message>
        <source>Values on transition from RUN to STOP</source>
        <translation>从 RUN 转换到 STOP 时的值</translation>
    </message>
    <message>
        <source>Channel Enable</source>
        <translation>通道启用</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>量程</translation>
    </message>
    <message>
        <source>Channel %1:</source>
        <translation>通道 %1：</translation>
    </message>
</context>
<context>
    <name>SAddrMapWgt</name>
    <message>
        <source>Input</source>
        <translation>输入</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>输出</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>Start:</source>
        <translation>起始：</translation>
    </message>
    <message>
        <source>End:</source>
        <translation>结束：</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>长度</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>单位</translation>
    </message>
    <message>
        <source>Memory:</source>
        <translation>存储区：</translation>
    </message>
    <message>
        <source>The start must be an even number from 0 to %1.</source>
        <translation>起始地址必须是 0 到 %1 之间的偶数。</translation>
    </message>
    <message>
        <source>The start must be a number from 0 to %1.</source>
        <translation>起始地址必须是 0 到 %1 之间的数。</translation>
    </message>
</context>
<context>
    <name>SDIFilterWgt</name>
    <message>
        <source>Input Filter Delays</source>
        <translation>输入滤波延时</translation>
    </message>
    <message>
        <source>You can select the time that the input must remain constant before the signalis caught by the PLC.</source>
        <translation>可以在此选择输入信号被 PLC 捕获之前必须保持不变的时间。</translation>
    </message>
</context>
<context>
    <name>SDQOutTblWgt</name>
    <message>
        <source>States on transition from RUN to STOP</source>
        <translation>从 RUN 转换到 STOP 时的状态</translation>
    </message>
    <message>
        <source>Freeze outputs in last state</source>
        <translation>输出冻结在最后状态</translation>
    </message>
    <message>
        <source>Selected output will be ON when the PLC transitions from RUN to STOP mode.</source>
        <translation>PLC 从 RUN 模式转换到 STOP 模式时，选中的输出为 ON。</translation>
    </message>
    <message>
        <source>You can configure the ON and OFF states of each digital output on Transition from RUN to STOP of the PLC.</source>
        <translation>可以在此设置 PLC 从 RUN 转换到 STOP 时各数字量输出的 ON 和 OFF 状态。</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Clear All</source>
        <translation>全部清除</translation>
    </message>
</context>
<context>
    <name>SGeneralWgt</name>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>注释</translation>
    </message>
    <message>
        <source>You can adjust the name and comment for the object.</source>
        <translation>可以在此修改对象的名称和注释。</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>信息</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>名称(&amp;N)：</translation>
    </message>
    <message>
        <source>&amp;Comment:</source>
        <translation>注释(&amp;C)：</translation>
    </message>
</context>
<context>
    <name>SWeightParCfgWgt</name>
    <message>
        <source>Enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Sensitivity</source>
        <translation>灵敏度</translation>
    </message>
    <message>
        <source>Limit Freq</source>
        <translation>截止频率</translation>
    </message>
    <message>
        <source>Filter Depth</source>
        <translation>滤波深度</translation>
    </message>
    <message>
        <source>Sub Max</source>
        <translation>去最大值数</translation>
    </message>
    <message>
        <source>Sub Min</source>
        <translation>去最小值数</translation>
    </message>
    <message>
        <source>Filter Mode</source>
        <translation>滤波模式</translation>
    </message>
    <message>
        <source>Sample Freq</source>
        <translation>采样频率</translation>
    </message>
    <message>
        <source>Boot Clear</source>
        <translation>开机清零</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>通道</translation>
    </message>
    <message>
        <source>When filtering is enabled,
Filter Depth must be greater then the sum of Sub Max and Sub Min.</source>
        <translation>启用滤波时，
滤波深度必须大于去最大值数与去最小值数之和。</translation>
    </message>
</context>
<context>
    <name>SimpleExtendcfgdlg</name>
    <message>
        <source>Analog Module</source>
        <translation>模拟量模块</translation>
    </message>
    <message>
        <source>Digital Module</source>
        <translation>数字量模块</translation>
    </message>
    <message>
        <source>Weight Module</source>
        <translation>称重模块</translation>
    </message>
    <message>
        <source>Properties - %1</source>
        <translation>属性 - %1</translation>
    </message>
    <message>
        <source>Parameter groups</source>
        <translation>参数组</translation>
    </message>
    <message>
        <source>General</source>
        <translation>常规</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>Weight Param</source>
        <translation>称重参数</translation>
    </message>
    <message>
        <source>Input Filter</source>
        <translation>输入滤波</translation>
    </message>
    <message>
        <source>Range Config</source>
        <translation>量程设置</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>量程</translation>
    </message>
    <message>
        <source>Output Tables</source>
        <translation>输出表</translation>
    </message>
    <message>
        <source>Output Type</source>
        <translation>输出类型</translation>
    </message>
    <message>
        <source>Configuration must be downloaded before taking effect.</source>
        <translation>配置下载后才能生效。</translation>
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
        <source>Default All</source>
        <translation>全部默认</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
</context>
</TS>
