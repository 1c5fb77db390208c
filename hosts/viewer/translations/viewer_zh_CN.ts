<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Batch</name>
    <message>
        <source>The result for %1 is too large for a TIFF.</source>
        <translation>%1 的结果太大，无法写入 TIFF。</translation>
    </message>
    <message>
        <source>There is not enough memory for %1.</source>
        <translation>内存不足，无法处理 %1。</translation>
    </message>
</context>
<context>
    <name>Calibration</name>
    <message>
        <source>The length of a pixel has to be above zero.</source>
        <translation>像素的长度必须大于零。</translation>
    </message>
    <message>
        <source>The unit is missing, such as mm or px.</source>
        <translation>缺少单位，例如 mm 或 px。</translation>
    </message>
    <message>
        <source>A pixel is %1 %2</source>
        <translation>一个像素为 %1 %2</translation>
    </message>
    <message>
        <source>The object has no length: choose a length, a polyline, a profile or an arrow.</source>
        <translation>该对象没有长度：请选择长度、折线、剖面线或箭头。</translation>
    </message>
    <message>
        <source>The line has no length in the picture.</source>
        <translation>该线段在图像中长度为零。</translation>
    </message>
    <message>
        <source>The true length has to be above zero.</source>
        <translation>真实长度必须大于零。</translation>
    </message>
</context>
<context>
    <name>ClassicTool</name>
    <message>
        <source>Shift and a drag or clicks draw, a drag moves, Control and a drag pan</source>
        <translation>按住 Shift 拖动或单击绘制，拖动移动，按住 Control 拖动平移</translation>
    </message>
</context>
<context>
    <name>Clipboard</name>
    <message numerus="yes">
        <source>Pasted %n objects</source>
        <translation>
            <numerusform>已粘贴 %n 个对象</numerusform>
        </translation>
    </message>
    <message>
        <source>No object is selected.</source>
        <translation>没有选择对象。</translation>
    </message>
    <message numerus="yes">
        <source>Copied %n objects</source>
        <translation>
            <numerusform>已复制 %n 个对象</numerusform>
        </translation>
    </message>
    <message>
        <source>The picture is too large for the clipboard.</source>
        <translation>图像太大，剪贴板容纳不下。</translation>
    </message>
    <message>
        <source>There is nothing to copy.</source>
        <translation>没有可复制的内容。</translation>
    </message>
    <message>
        <source>Copied the picture</source>
        <translation>已复制图像</translation>
    </message>
    <message numerus="yes">
        <source>Cut %n objects</source>
        <translation>
            <numerusform>已剪切 %n 个对象</numerusform>
        </translation>
    </message>
    <message>
        <source>The clipboard holds neither objects nor a picture.</source>
        <translation>剪贴板中既没有对象也没有图像。</translation>
    </message>
    <message numerus="yes">
        <source>Duplicated %n objects</source>
        <translation>
            <numerusform>已创建 %n 个对象的副本</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>ColorMaps</name>
    <message>
        <source>gray</source>
        <translation>灰度</translation>
    </message>
    <message>
        <source>inverted</source>
        <translation>反相</translation>
    </message>
    <message>
        <source>fire</source>
        <translation>火焰</translation>
    </message>
    <message>
        <source>ice</source>
        <translation>冰蓝</translation>
    </message>
</context>
<context>
    <name>Commands</name>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Draw</source>
        <translation>绘制(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Measure</source>
        <translation>测量(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Image</source>
        <translation>图像(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Process</source>
        <translation>处理(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>窗口(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>S&amp;et scale...</source>
        <translation>设置标尺(&amp;E)...</translation>
    </message>
    <message>
        <source>By the true length of the selected line, or that of a pixel; all measures follow</source>
        <translation>按所选线段的真实长度或像素的长度；所有测量值随之改变</translation>
    </message>
    <message>
        <source>For&amp;get scale</source>
        <translation>清除标尺(&amp;G)</translation>
    </message>
    <message>
        <source>Measures are in px again, also of the next pictures of the folder</source>
        <translation>测量值恢复为 px，此文件夹中以后打开的图像也是如此</translation>
    </message>
    <message>
        <source>&amp;Rectangle</source>
        <translation>矩形(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Ellipse</source>
        <translation>椭圆(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Polygon</source>
        <translation>多边形(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Spline</source>
        <translation>样条曲线(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Free region</source>
        <translation>自由区域(&amp;F)</translation>
    </message>
    <message>
        <source>Poly&amp;line</source>
        <translation>折线(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Arrow</source>
        <translation>箭头(&amp;A)</translation>
    </message>
    <message>
        <source>Stro&amp;ke</source>
        <translation>笔画(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation>文字(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Length</source>
        <translation>长度(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Angle</source>
        <translation>角度(&amp;A)</translation>
    </message>
    <message>
        <source>Angle of &amp;two lines</source>
        <translation>两线夹角(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Profile</source>
        <translation>剖面线(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Count marks</source>
        <translation>计数标记(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Information window</source>
        <translation>信息窗口(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Neighbour values</source>
        <translation>邻域数值(&amp;N)</translation>
    </message>
    <message>
        <source>Puts the tool away: presses select, drags move</source>
        <translation>收起工具：单击选择，拖动移动</translation>
    </message>
    <message>
        <source>&amp;Nowhere</source>
        <translation>不吸附(&amp;N)</translation>
    </message>
    <message>
        <source>To pixel &amp;centres</source>
        <translation>吸附到像素中心(&amp;C)</translation>
    </message>
    <message>
        <source>To pixel &amp;edges</source>
        <translation>吸附到像素边缘(&amp;E)</translation>
    </message>
    <message>
        <source>Colors, width and text height, also given to the selected objects</source>
        <translation>颜色、线宽和文字高度，也用于所选对象</translation>
    </message>
    <message>
        <source>&amp;Classic gestures</source>
        <translation>经典操作方式(&amp;C)</translation>
    </message>
    <message>
        <source>Shift draws, Control pans and zooms, as the canvas itself has it</source>
        <translation>按 Shift 绘制，按 Control 平移和缩放，与画布本身一致</translation>
    </message>
    <message>
        <source>S&amp;nap points</source>
        <translation>吸附点(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>Takes back the last change of objects or contrast</source>
        <translation>撤销对对象或对比度的上一次更改</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>Brings again what was taken back</source>
        <translation>恢复已撤销的更改</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>剪切(&amp;T)</translation>
    </message>
    <message>
        <source>Moves the selected objects to the clipboard</source>
        <translation>将所选对象移到剪贴板</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>Copies the selected objects, as objects, drawing and measures, or else the picture</source>
        <translation>复制所选对象（对象、图形和测量值）；未选择时复制图像</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>Adds the objects of the clipboard, or shows its picture</source>
        <translation>添加剪贴板中的对象，或显示其中的图像</translation>
    </message>
    <message>
        <source>&amp;Duplicate</source>
        <translation>创建副本(&amp;D)</translation>
    </message>
    <message>
        <source>Adds copies of the selected objects beside them</source>
        <translation>在所选对象旁添加其副本</translation>
    </message>
    <message>
        <source>De&amp;lete</source>
        <translation>删除(&amp;L)</translation>
    </message>
    <message>
        <source>Removes the selected objects</source>
        <translation>删除所选对象</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>全选(&amp;A)</translation>
    </message>
    <message>
        <source>Select &amp;nothing</source>
        <translation>取消选择(&amp;N)</translation>
    </message>
    <message>
        <source>Bring to &amp;front</source>
        <translation>移到最前(&amp;F)</translation>
    </message>
    <message>
        <source>Draws the selected objects over all others</source>
        <translation>将所选对象绘制在所有对象之上</translation>
    </message>
    <message>
        <source>Send to &amp;back</source>
        <translation>移到最后(&amp;B)</translation>
    </message>
    <message>
        <source>Draws the selected objects under all others</source>
        <translation>将所选对象绘制在所有对象之下</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>打开(&amp;O)...</translation>
    </message>
    <message>
        <source>Pictures, stacks, raw data, sessions and regions</source>
        <translation>图像、图像序列、原始数据、会话和区域</translation>
    </message>
    <message>
        <source>Open &amp;folder...</source>
        <translation>打开文件夹(&amp;F)...</translation>
    </message>
    <message>
        <source>The pictures of a folder as one stack</source>
        <translation>将文件夹中的图像作为一个序列</translation>
    </message>
    <message>
        <source>Open s&amp;eries...</source>
        <translation>打开编号序列(&amp;E)...</translation>
    </message>
    <message>
        <source>A picture and all that are numbered like it, as one stack</source>
        <translation>将一幅图像及同样编号的图像作为一个序列</translation>
    </message>
    <message>
        <source>Open ra&amp;w data...</source>
        <translation>打开原始数据(&amp;W)...</translation>
    </message>
    <message>
        <source>Any file as values without a header, one picture or a volume</source>
        <translation>将任意文件作为无文件头的数值：一幅图像或体数据</translation>
    </message>
    <message>
        <source>&amp;Save session</source>
        <translation>保存会话(&amp;S)</translation>
    </message>
    <message>
        <source>Objects, names, contrast, scale and view, with the picture by its path</source>
        <translation>对象、名称、对比度、标尺和视图，图像以路径记录</translation>
    </message>
    <message>
        <source>Save session &amp;as...</source>
        <translation>会话另存为(&amp;A)...</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>最近的文件(&amp;R)</translation>
    </message>
    <message>
        <source>Recent sess&amp;ions</source>
        <translation>最近的会话(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Find a command...</source>
        <translation>查找命令(&amp;F)...</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>使用指南(&amp;G)</translation>
    </message>
    <message>
        <source>How to measure, what the numbers mean, what files hold</source>
        <translation>如何测量、数值的含义、文件的内容</translation>
    </message>
    <message>
        <source>First &amp;steps</source>
        <translation>入门(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Keys...</source>
        <translation>快捷键(&amp;K)...</translation>
    </message>
    <message>
        <source>All commands with their keys, which can be changed</source>
        <translation>所有命令及其快捷键，可以更改</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>关于(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Next page</source>
        <translation>下一页(&amp;N)</translation>
    </message>
    <message>
        <source>Of the stack; the objects stay</source>
        <translation>图像序列的页；对象保留</translation>
    </message>
    <message>
        <source>&amp;Previous page</source>
        <translation>上一页(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;First page</source>
        <translation>第一页(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Last page</source>
        <translation>最后一页(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Keep contrast on all pages</source>
        <translation>所有页使用同一对比度(&amp;K)</translation>
    </message>
    <message>
        <source>Else each page gets a window that fits its values</source>
        <translation>否则每页按自身数值设置灰度窗</translation>
    </message>
    <message>
        <source>Image of re&amp;gions</source>
        <translation>区域图像(&amp;G)</translation>
    </message>
    <message>
        <source>An image whose values are the labels of the regions, 0 outside</source>
        <translation>数值为区域标签的图像，区域外为 0</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>停止(&amp;T)</translation>
    </message>
    <message>
        <source>Ends the routine that is running</source>
        <translation>结束正在运行的处理</translation>
    </message>
    <message>
        <source>&amp;Whole image</source>
        <translation>整幅图像(&amp;W)</translation>
    </message>
    <message>
        <source>Shows the whole image as large as the window lets it</source>
        <translation>在窗口中尽可能大地显示整幅图像</translation>
    </message>
    <message>
        <source>&amp;100 %</source>
        <translation>100 %(&amp;1)</translation>
    </message>
    <message>
        <source>One pixel of the image on one of the screen</source>
        <translation>图像的一个像素对应屏幕的一个像素</translation>
    </message>
    <message>
        <source>Zoom to &amp;selection</source>
        <translation>缩放到所选对象(&amp;S)</translation>
    </message>
    <message>
        <source>Fills the window with the selected objects</source>
        <translation>使所选对象充满窗口</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation>放大(&amp;I)</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <translation>缩小(&amp;O)</translation>
    </message>
    <message>
        <source>Zoom &amp;box</source>
        <translation>框选放大(&amp;B)</translation>
    </message>
    <message>
        <source>Fills the window with a box that is dragged</source>
        <translation>使拖出的方框充满窗口</translation>
    </message>
    <message>
        <source>S&amp;mooth pixels</source>
        <translation>平滑显示(&amp;M)</translation>
    </message>
    <message>
        <source>Averages and interpolates pixels when zoomed</source>
        <translation>缩放时对像素求平均和插值</translation>
    </message>
    <message>
        <source>&amp;Rulers</source>
        <translation>标尺刻度(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Grid</source>
        <translation>网格(&amp;G)</translation>
    </message>
    <message>
        <source>Lines along the edges of pixels</source>
        <translation>沿像素边缘的线</translation>
    </message>
    <message>
        <source>&amp;Full screen</source>
        <translation>全屏(&amp;F)</translation>
    </message>
    <message>
        <source>As the &amp;system</source>
        <translation>跟随系统(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>浅色(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>深色(&amp;D)</translation>
    </message>
    <message>
        <source>S&amp;maller text</source>
        <translation>缩小文字(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Colors and text</source>
        <translation>颜色和文字(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Tiles</source>
        <translation>平铺(&amp;T)</translation>
    </message>
    <message>
        <source>All documents side by side instead of in tabs</source>
        <translation>所有文档并排显示，而不用标签页</translation>
    </message>
    <message>
        <source>&amp;Next document</source>
        <translation>下一个文档(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Previous document</source>
        <translation>上一个文档(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Link views</source>
        <translation>联动视图(&amp;L)</translation>
    </message>
    <message>
        <source>All documents pan and zoom together, with the pointer shown on each</source>
        <translation>所有文档一起平移和缩放，并各自显示指针位置</translation>
    </message>
    <message>
        <source>&amp;Blink</source>
        <translation>交替显示(&amp;B)</translation>
    </message>
    <message>
        <source>Shows this document and the one before in turns, to see what differs</source>
        <translation>交替显示此文档和前一个文档，以便看出差异</translation>
    </message>
    <message>
        <source>&amp;Difference</source>
        <translation>差值(&amp;D)</translation>
    </message>
    <message>
        <source>Subtracts the document before from this one, pixel by pixel, into a new one</source>
        <translation>将此文档逐像素减去前一个文档，得到新文档</translation>
    </message>
    <message>
        <source>&amp;Histogram</source>
        <translation>直方图(&amp;H)</translation>
    </message>
    <message>
        <source>Values of the image or the selected region, and the contrast</source>
        <translation>图像或所选区域的数值，以及对比度</translation>
    </message>
    <message>
        <source>&amp;Objects</source>
        <translation>对象(&amp;O)</translation>
    </message>
    <message>
        <source>The list of the objects with their names, colors and order</source>
        <translation>对象列表：名称、颜色和顺序</translation>
    </message>
    <message>
        <source>&amp;Measures</source>
        <translation>测量值(&amp;M)</translation>
    </message>
    <message>
        <source>The table of all measures</source>
        <translation>所有测量值的表格</translation>
    </message>
    <message>
        <source>The values along the selected line</source>
        <translation>沿所选线的数值</translation>
    </message>
    <message>
        <source>H&amp;istory</source>
        <translation>历史记录(&amp;I)</translation>
    </message>
    <message>
        <source>The steps that can be undone and redone</source>
        <translation>可以撤销和重做的步骤</translation>
    </message>
    <message>
        <source>O&amp;verview</source>
        <translation>概览(&amp;V)</translation>
    </message>
    <message>
        <source>The whole image, small, with the part that is shown</source>
        <translation>整幅图像的缩略图及当前显示的部分</translation>
    </message>
    <message>
        <source>&amp;Standard layout</source>
        <translation>标准布局(&amp;S)</translation>
    </message>
    <message>
        <source>Puts the panels where they were at first</source>
        <translation>将面板恢复到初始位置</translation>
    </message>
    <message>
        <source>&amp;Panels</source>
        <translation>面板(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;English</source>
        <translation>English(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Chinese</source>
        <translation>中文(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>语言(&amp;L)</translation>
    </message>
    <message>
        <source>Select and &amp;move</source>
        <translation>选择和移动(&amp;M)</translation>
    </message>
    <message>
        <source>Look of &amp;drawn objects...</source>
        <translation>绘制对象的外观(&amp;D)...</translation>
    </message>
    <message>
        <source>Sc&amp;ale bar</source>
        <translation>比例尺(&amp;A)</translation>
    </message>
    <message>
        <source>Lar&amp;ger text</source>
        <translation>放大文字(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Batch over a folder...</source>
        <translation>批量处理文件夹(&amp;B)...</translation>
    </message>
    <message>
        <source>Runs routines and measures on every picture of a folder</source>
        <translation>对文件夹中的每幅图像运行处理并测量</translation>
    </message>
    <message>
        <source>&amp;Join with the document before...</source>
        <translation>与前一个文档拼接(&amp;J)...</translation>
    </message>
    <message>
        <source>Puts this picture to the right of the one before, with what both show once</source>
        <translation>把此图像接在前一文档的图像右侧，重叠部分只出现一次</translation>
    </message>
</context>
<context>
    <name>CountTool</name>
    <message>
        <source>Click what is to be counted, Backspace takes one back, Enter begins another count, Esc ends</source>
        <translation>单击要计数的目标，退格键取消一个，回车键开始另一组计数，Esc 结束</translation>
    </message>
</context>
<context>
    <name>DragTool</name>
    <message>
        <source>Shift keeps the sides equal, Esc drops it</source>
        <translation>按住 Shift 使各边相等，Esc 放弃</translation>
    </message>
    <message>
        <source>Drag from corner to corner; Esc puts the tool away</source>
        <translation>从一角拖到另一角；Esc 收起工具</translation>
    </message>
    <message>
        <source>Shift keeps to multiples of 45 degrees, Esc drops it</source>
        <translation>按住 Shift 保持 45 度的倍数，Esc 放弃</translation>
    </message>
    <message>
        <source>Drag from end to end; Esc puts the tool away</source>
        <translation>从一端拖到另一端；Esc 收起工具</translation>
    </message>
</context>
<context>
    <name>Files</name>
    <message>
        <source>Saved %1</source>
        <translation>已保存 %1</translation>
    </message>
    <message>
        <source>session</source>
        <translation>会话</translation>
    </message>
    <message>
        <source>label image</source>
        <translation>标签图像</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a link to a file that does not exist.</source>
        <translation>“%1”是指向不存在的文件的链接。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not exist.</source>
        <translation>“%1”不存在。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a file but a pipe or a device.</source>
        <translation>“%1”不是文件，而是管道或设备。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; may not be read: you have no permission.</source>
        <translation>无法读取“%1”：没有权限。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is empty.</source>
        <translation>“%1”是空文件。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be read: %2.</source>
        <translation>无法读取“%1”：%2。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be written: it is a folder.</source>
        <translation>无法写入“%1”：它是文件夹。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be written: there is no such folder.</source>
        <translation>无法写入“%1”：没有这样的文件夹。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be written: the disk is read-only.</source>
        <translation>无法写入“%1”：磁盘是只读的。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be written: you have no permission in this folder.</source>
        <translation>无法写入“%1”：没有此文件夹的权限。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be written: the disk is full.</source>
        <translation>无法写入“%1”：磁盘已满。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a %2 file that is cut short.</source>
        <translation>“%1”是不完整的 %2 文件。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a %2 file that is damaged.</source>
        <translation>“%1”是已损坏的 %2 文件。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a %2 file of a kind that is not supported.</source>
        <translation>“%1”是不受支持的一种 %2 文件。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; holds a picture that is too large to be shown.</source>
        <translation>“%1”中的图像太大，无法显示。</translation>
    </message>
    <message>
        <source>There is not enough memory for &quot;%1&quot;.</source>
        <translation>内存不足，无法打开“%1”。</translation>
    </message>
    <message>
        <source>There is not enough memory to write &quot;%1&quot;.</source>
        <translation>内存不足，无法写入“%1”。</translation>
    </message>
    <message>
        <source>the disk has too little room, or another program holds the file open</source>
        <translation>磁盘空间不足，或另一个程序正在使用该文件</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be written: %2.</source>
        <translation>无法写入“%1”：%2。</translation>
    </message>
</context>
<context>
    <name>FreehandTool</name>
    <message>
        <source>Drag around the region; Esc puts the tool away</source>
        <translation>沿区域边缘拖动；Esc 收起工具</translation>
    </message>
    <message>
        <source>Drag a stroke; Esc puts the tool away</source>
        <translation>拖动画出笔画；Esc 收起工具</translation>
    </message>
</context>
<context>
    <name>KindName</name>
    <message>
        <source>Ellipse</source>
        <translation>椭圆</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>矩形</translation>
    </message>
    <message>
        <source>Polygon</source>
        <translation>多边形</translation>
    </message>
    <message>
        <source>Spline</source>
        <translation>样条曲线</translation>
    </message>
    <message>
        <source>Free region</source>
        <translation>自由区域</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>Stroke</source>
        <translation>笔画</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>长度</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message>
        <source>Angle of two lines</source>
        <translation>两线夹角</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>信息</translation>
    </message>
    <message>
        <source>Neighbour values</source>
        <translation>邻域数值</translation>
    </message>
    <message>
        <source>Profile</source>
        <translation>剖面线</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>点</translation>
    </message>
    <message>
        <source>Polyline</source>
        <translation>折线</translation>
    </message>
    <message>
        <source>Arrow</source>
        <translation>箭头</translation>
    </message>
    <message>
        <source>Object</source>
        <translation>对象</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Shows pictures, stacks and raw data, and measures what is drawn on them.</source>
        <translation>显示图像、图像序列和原始数据，并测量在其上绘制的对象。</translation>
    </message>
    <message>
        <source>Language of the interface: en or zh_CN.</source>
        <translation>界面语言：en 或 zh_CN。</translation>
    </message>
    <message>
        <source>code</source>
        <translation>代码</translation>
    </message>
    <message>
        <source>Files, folders and sessions to open.</source>
        <translation>要打开的文件、文件夹和会话。</translation>
    </message>
    <message>
        <source>Vostel Viewer</source>
        <translation>Vostel 图像查看器</translation>
    </message>
</context>
<context>
    <name>Measures</name>
    <message>
        <source>No.</source>
        <translation>序号</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>标签</translation>
    </message>
    <message>
        <source>Pixels</source>
        <translation>像素数</translation>
    </message>
    <message>
        <source>Not finite</source>
        <translation>非有限值</translation>
    </message>
    <message>
        <source>Area</source>
        <translation>面积</translation>
    </message>
    <message>
        <source>Perimeter</source>
        <translation>周长</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>长度</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>平均值</translation>
    </message>
    <message>
        <source>Deviation</source>
        <translation>标准差</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>最小值</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>最大值</translation>
    </message>
    <message>
        <source>Sum</source>
        <translation>总和</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>中位数</translation>
    </message>
    <message>
        <source>Centroid x</source>
        <translation>质心 x</translation>
    </message>
    <message>
        <source>Centroid y</source>
        <translation>质心 y</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>上</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>下</translation>
    </message>
    <message>
        <source>Feret max.</source>
        <translation>最大费雷特径</translation>
    </message>
    <message>
        <source>Feret min.</source>
        <translation>最小费雷特径</translation>
    </message>
    <message>
        <source>Circularity</source>
        <translation>圆度</translation>
    </message>
</context>
<context>
    <name>PanelTool</name>
    <message>
        <source>Click where it is to lie; Esc puts the tool away</source>
        <translation>单击放置的位置；Esc 收起工具</translation>
    </message>
</context>
<context>
    <name>PathTool</name>
    <message>
        <source>Click an end, the vertex and the other end; Esc drops it</source>
        <translation>依次单击一端、顶点和另一端；Esc 放弃</translation>
    </message>
    <message>
        <source>Click both ends of one line, then of the other; Esc drops it</source>
        <translation>先单击一条线的两端，再单击另一条线的两端；Esc 放弃</translation>
    </message>
    <message>
        <source>Click the first node; Esc puts the tool away</source>
        <translation>单击第一个节点；Esc 收起工具</translation>
    </message>
    <message>
        <source>Click the next node, Backspace takes one back, Enter or a double click ends, Esc drops it</source>
        <translation>单击下一个节点，退格键取消一个，回车键或双击结束，Esc 放弃</translation>
    </message>
</context>
<context>
    <name>Routines</name>
    <message>
        <source>Strength (gradient)</source>
        <translation>强度（梯度）</translation>
    </message>
    <message>
        <source>Across columns</source>
        <translation>沿列方向</translation>
    </message>
    <message>
        <source>Across rows</source>
        <translation>沿行方向</translation>
    </message>
    <message>
        <source>Lines and dots (Laplace)</source>
        <translation>线和点（拉普拉斯）</translation>
    </message>
    <message>
        <source>Logarithm of the magnitude</source>
        <translation>幅值的对数</translation>
    </message>
    <message>
        <source>Magnitude</source>
        <translation>幅值</translation>
    </message>
    <message>
        <source>Phase</source>
        <translation>相位</translation>
    </message>
    <message>
        <source>Sigma (px)</source>
        <translation>标准差 σ (px)</translation>
    </message>
    <message>
        <source>Side of the neighborhood (odd, px)</source>
        <translation>邻域边长（奇数，px）</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>强度</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>From</source>
        <translation>从</translation>
    </message>
    <message>
        <source>To</source>
        <translation>到</translation>
    </message>
    <message>
        <source>Side of the neighborhood (px)</source>
        <translation>邻域边长 (px)</translation>
    </message>
    <message>
        <source>Times the mean around</source>
        <translation>周围平均值的倍数</translation>
    </message>
    <message>
        <source>Width (% of this one)</source>
        <translation>宽度（原图的 %）</translation>
    </message>
    <message>
        <source>Height (% of this one)</source>
        <translation>高度（原图的 %）</translation>
    </message>
    <message>
        <source>Sampling distance</source>
        <translation>采样间距</translation>
    </message>
    <message>
        <source>&amp;Smooth (Gaussian)...</source>
        <translation>平滑（高斯）(&amp;S)...</translation>
    </message>
    <message>
        <source>Takes noise away and keeps shapes</source>
        <translation>去除噪声并保留形状</translation>
    </message>
    <message>
        <source>Smooth (&amp;mean)...</source>
        <translation>平滑（均值）(&amp;M)...</translation>
    </message>
    <message>
        <source>Each pixel becomes the mean of its neighborhood</source>
        <translation>每个像素变为其邻域的平均值</translation>
    </message>
    <message>
        <source>S&amp;harpen...</source>
        <translation>锐化(&amp;H)...</translation>
    </message>
    <message>
        <source>Adds what differs from the mean of the neighborhood</source>
        <translation>增强与邻域平均值的差别</translation>
    </message>
    <message>
        <source>&amp;Edges...</source>
        <translation>边缘(&amp;E)...</translation>
    </message>
    <message>
        <source>Shows how steeply values change</source>
        <translation>显示数值变化的陡缓</translation>
    </message>
    <message>
        <source>White where the value lies in a range</source>
        <translation>数值在范围内处为白色</translation>
    </message>
    <message>
        <source>Threshold (&amp;Otsu)</source>
        <translation>阈值分割（大津法）(&amp;O)</translation>
    </message>
    <message>
        <source>Finds the value that parts dark from bright best, and shows what is brighter</source>
        <translation>求出最能区分明暗的数值，并显示较亮的部分</translation>
    </message>
    <message>
        <source>Threshold (&amp;local mean)...</source>
        <translation>阈值分割（局部均值）(&amp;L)...</translation>
    </message>
    <message>
        <source>White where a pixel is brighter than its neighborhood</source>
        <translation>像素比其邻域亮处为白色</translation>
    </message>
    <message>
        <source>&amp;Invert</source>
        <translation>反相(&amp;I)</translation>
    </message>
    <message>
        <source>The least value becomes the greatest and the other way round</source>
        <translation>最小值变为最大值，反之亦然</translation>
    </message>
    <message>
        <source>&amp;Resize...</source>
        <translation>改变尺寸(&amp;R)...</translation>
    </message>
    <message>
        <source>An image with more or fewer pixels</source>
        <translation>像素更多或更少的图像</translation>
    </message>
    <message>
        <source>S&amp;pectrum (Fourier)...</source>
        <translation>频谱（傅里叶）(&amp;P)...</translation>
    </message>
    <message>
        <source>The frequencies of the image, zero in the middle</source>
        <translation>图像的频率，零频在中央</translation>
    </message>
    <message>
        <source>Ramp &amp;filter of rows...</source>
        <translation>按行斜坡滤波(&amp;F)...</translation>
    </message>
    <message>
        <source>Filters projections for a reconstruction</source>
        <translation>为重建对投影滤波</translation>
    </message>
    <message>
        <source>Threshold by &amp;value...</source>
        <translation>按数值阈值分割(&amp;V)...</translation>
    </message>
</context>
<context>
    <name>Saves</name>
    <message>
        <source>&quot;%1&quot; cannot be written: a TIFF holds at most 4 GiB. Save raw data instead.</source>
        <translation>无法写入“%1”：TIFF 最多 4 GiB。请改存原始数据。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not written: there is no region to make a mask of.</source>
        <translation>未写入“%1”：没有可生成掩膜的区域。</translation>
    </message>
    <message>
        <source>PNG</source>
        <translation>PNG</translation>
    </message>
    <message>
        <source>TIFF</source>
        <translation>TIFF</translation>
    </message>
    <message>
        <source>JPEG</source>
        <translation>JPEG</translation>
    </message>
    <message>
        <source>Bitmap</source>
        <translation>位图</translation>
    </message>
    <message>
        <source>SVG drawing</source>
        <translation>SVG 图形</translation>
    </message>
    <message>
        <source>PDF page</source>
        <translation>PDF 页面</translation>
    </message>
    <message>
        <source>&amp;Data, unscaled...</source>
        <translation>原始数值(&amp;D)...</translation>
    </message>
    <message>
        <source>Raw data</source>
        <translation>原始数据</translation>
    </message>
    <message>
        <source>&amp;Label image...</source>
        <translation>标签图像(&amp;L)...</translation>
    </message>
    <message>
        <source>Label image, PNG of 16 bits</source>
        <translation>标签图像，16 位 PNG</translation>
    </message>
    <message>
        <source>Objects</source>
        <translation>对象</translation>
    </message>
    <message>
        <source>GeoJSON</source>
        <translation>GeoJSON</translation>
    </message>
    <message>
        <source>COCO annotations</source>
        <translation>COCO 标注</translation>
    </message>
    <message>
        <source>ImageJ selections</source>
        <translation>ImageJ 选区</translation>
    </message>
    <message>
        <source>ImageJ selection</source>
        <translation>ImageJ 选区（单个）</translation>
    </message>
    <message>
        <source>Table of points</source>
        <translation>点的表格</translation>
    </message>
    <message>
        <source>CSV</source>
        <translation>CSV</translation>
    </message>
    <message>
        <source>Table with tabs</source>
        <translation>制表符分隔的表格</translation>
    </message>
    <message>
        <source>JSON</source>
        <translation>JSON</translation>
    </message>
    <message>
        <source>&amp;Picture with objects...</source>
        <translation>带对象的图像(&amp;P)...</translation>
    </message>
    <message>
        <source>Picture as show&amp;n, without objects...</source>
        <translation>按显示的图像，不含对象(&amp;N)...</translation>
    </message>
    <message>
        <source>Mask of the re&amp;gions...</source>
        <translation>区域掩膜(&amp;G)...</translation>
    </message>
    <message>
        <source>O&amp;bjects and regions...</source>
        <translation>对象和区域(&amp;B)...</translation>
    </message>
    <message>
        <source>&amp;Table of measures...</source>
        <translation>测量值表格(&amp;T)...</translation>
    </message>
</context>
<context>
    <name>SelectTool</name>
    <message>
        <source>Release to select what lies in the box</source>
        <translation>松开鼠标以选择框内的对象</translation>
    </message>
    <message>
        <source>Drag moves the image, the wheel zooms, a click selects, Shift and a drag select by a box</source>
        <translation>拖动移动图像，滚轮缩放，单击选择，按住 Shift 拖动框选</translation>
    </message>
    <message>
        <source>Drag or the arrow keys move, a double click on the outline adds a node, Alt+click takes one away, Delete removes</source>
        <translation>拖动或方向键移动，双击轮廓添加节点，Alt+单击去掉节点，Delete 删除</translation>
    </message>
</context>
<context>
    <name>Steps</name>
    <message>
        <source>Add %1</source>
        <translation>添加%1</translation>
    </message>
    <message>
        <source>Remove %1</source>
        <translation>移除%1</translation>
    </message>
    <message>
        <source>Change %1</source>
        <translation>更改%1</translation>
    </message>
    <message>
        <source>Move %1</source>
        <translation>移动%1</translation>
    </message>
    <message>
        <source>Cut %1</source>
        <translation>剪切%1</translation>
    </message>
    <message>
        <source>Paste %1</source>
        <translation>粘贴%1</translation>
    </message>
    <message>
        <source>Duplicate %1</source>
        <translation>复制%1</translation>
    </message>
    <message>
        <source>rectangle</source>
        <translation>矩形</translation>
    </message>
    <message>
        <source>ellipse</source>
        <translation>椭圆</translation>
    </message>
    <message>
        <source>polygon</source>
        <translation>多边形</translation>
    </message>
    <message>
        <source>spline</source>
        <translation>样条曲线</translation>
    </message>
    <message>
        <source>free region</source>
        <translation>自由区域</translation>
    </message>
    <message>
        <source>text</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>strokes</source>
        <translation>笔画</translation>
    </message>
    <message>
        <source>length</source>
        <translation>长度</translation>
    </message>
    <message>
        <source>angle</source>
        <translation>角度</translation>
    </message>
    <message>
        <source>panel</source>
        <translation>面板</translation>
    </message>
    <message>
        <source>profile</source>
        <translation>剖面线</translation>
    </message>
    <message>
        <source>points</source>
        <translation>点</translation>
    </message>
    <message>
        <source>polyline</source>
        <translation>折线</translation>
    </message>
    <message>
        <source>arrow</source>
        <translation>箭头</translation>
    </message>
    <message>
        <source>object</source>
        <translation>对象</translation>
    </message>
    <message>
        <source>objects</source>
        <translation>对象</translation>
    </message>
    <message>
        <source>contrast</source>
        <translation>对比度</translation>
    </message>
    <message>
        <source>order</source>
        <translation>顺序</translation>
    </message>
    <message>
        <source>node</source>
        <translation>节点</translation>
    </message>
    <message>
        <source>mark</source>
        <translation>标记</translation>
    </message>
    <message>
        <source>scale</source>
        <translation>标尺</translation>
    </message>
    <message>
        <source>name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>style</source>
        <translation>样式</translation>
    </message>
    <message>
        <source>Reset contrast</source>
        <translation>重置对比度</translation>
    </message>
    <message>
        <source>Hide objects</source>
        <translation>隐藏对象</translation>
    </message>
    <message>
        <source>Show objects</source>
        <translation>显示对象</translation>
    </message>
    <message>
        <source>Lock objects</source>
        <translation>锁定对象</translation>
    </message>
    <message>
        <source>Unlock objects</source>
        <translation>解锁对象</translation>
    </message>
    <message>
        <source>Rename object</source>
        <translation>重命名对象</translation>
    </message>
    <message>
        <source>Change label</source>
        <translation>更改标签</translation>
    </message>
    <message>
        <source>Show object</source>
        <translation>显示对象</translation>
    </message>
    <message>
        <source>Hide object</source>
        <translation>隐藏对象</translation>
    </message>
    <message>
        <source>Lock object</source>
        <translation>锁定对象</translation>
    </message>
    <message>
        <source>Unlock object</source>
        <translation>解锁对象</translation>
    </message>
    <message>
        <source>Change line color</source>
        <translation>更改线条颜色</translation>
    </message>
    <message>
        <source>Change fill color</source>
        <translation>更改填充颜色</translation>
    </message>
    <message>
        <source>Change line width</source>
        <translation>更改线宽</translation>
    </message>
    <message>
        <source>Delete objects</source>
        <translation>删除对象</translation>
    </message>
</context>
<context>
    <name>TextTool</name>
    <message>
        <source>Click where the text is to stand, type, Enter; Esc puts the tool away</source>
        <translation>单击文字的位置，输入后按回车键；Esc 收起工具</translation>
    </message>
</context>
<context>
    <name>ZoomTool</name>
    <message>
        <source>Drag a box to fill the window with it, click to zoom in, Alt+click to zoom out</source>
        <translation>拖出方框使其充满窗口，单击放大，Alt+单击缩小</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::BatchDialog</name>
    <message>
        <source>Batch over a folder</source>
        <translation>批量处理文件夹</translation>
    </message>
    <message>
        <source>Folder of pictures:</source>
        <translation>图像文件夹：</translation>
    </message>
    <message>
        <source>Folder of pictures</source>
        <translation>图像文件夹</translation>
    </message>
    <message>
        <source>Which names, such as *.png;*.tif</source>
        <translation>文件名模式，例如 *.png;*.tif</translation>
    </message>
    <message>
        <source>Names:</source>
        <translation>文件名：</translation>
    </message>
    <message>
        <source>Routines:</source>
        <translation>处理：</translation>
    </message>
    <message>
        <source>Folder of results:</source>
        <translation>结果文件夹：</translation>
    </message>
    <message>
        <source>Folder of results</source>
        <translation>结果文件夹</translation>
    </message>
    <message>
        <source>None: results are measured only</source>
        <translation>不填：只测量结果，不保存</translation>
    </message>
    <message>
        <source>Measure objects of:</source>
        <translation>测量其中的对象：</translation>
    </message>
    <message>
        <source>Measure objects of</source>
        <translation>测量其中的对象</translation>
    </message>
    <message>
        <source>Sessions (*.vostel.json)</source>
        <translation>会话 (*.vostel.json)</translation>
    </message>
    <message>
        <source>A session; none: nothing is measured</source>
        <translation>一个会话；不填：不测量</translation>
    </message>
    <message>
        <source>Table of measures:</source>
        <translation>测量表：</translation>
    </message>
    <message>
        <source>Table of measures</source>
        <translation>测量表</translation>
    </message>
    <message>
        <source>Results are gray. No file is written over: where a name is taken, a number is added.</source>
        <translation>结果为灰度图像。不会覆盖任何文件：文件名已存在时会加上编号。</translation>
    </message>
    <message>
        <source>What failed</source>
        <translation>失败列表</translation>
    </message>
    <message>
        <source>&amp;Start</source>
        <translation>开始(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>暂停(&amp;P)</translation>
    </message>
    <message>
        <source>S&amp;top</source>
        <translation>停止(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Choose: %1</source>
        <translation>选择：%1</translation>
    </message>
    <message>
        <source>Routines in their order</source>
        <translation>按顺序的处理</translation>
    </message>
    <message>
        <source>One after the other; a drag changes the order</source>
        <translation>依次进行；拖动可改变顺序</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>添加(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>移除(&amp;R)</translation>
    </message>
    <message>
        <source>The folder holds no pictures of such names.</source>
        <translation>文件夹中没有符合文件名的图像。</translation>
    </message>
    <message>
        <source>The folder of results is missing.</source>
        <translation>结果文件夹不存在。</translation>
    </message>
    <message>
        <source>No routine is chosen that makes results.</source>
        <translation>没有选择产生结果的处理。</translation>
    </message>
    <message>
        <source>Neither a folder of results nor a session to measure is chosen.</source>
        <translation>既没有选择结果文件夹，也没有选择要测量的会话。</translation>
    </message>
    <message>
        <source>The session is missing.</source>
        <translation>会话不存在。</translation>
    </message>
    <message>
        <source>Measures want both a session and a table.</source>
        <translation>测量需要同时选择会话和表。</translation>
    </message>
    <message>
        <source>Picture %1 of %2</source>
        <translation>第 %1 幅图像，共 %2 幅</translation>
    </message>
    <message>
        <source>Stopping ...</source>
        <translation>正在停止 ...</translation>
    </message>
    <message>
        <source>%1, paused</source>
        <translation>%1，已暂停</translation>
    </message>
    <message>
        <source>%1 of %2 pictures done</source>
        <translation>%2 幅图像中已完成 %1 幅</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>已停止</translation>
    </message>
    <message>
        <source>failures: %1</source>
        <translation>失败：%1</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::CalibrationDialog</name>
    <message>
        <source>Scale</source>
        <translation>标尺</translation>
    </message>
    <message>
        <source>The selected line:</source>
        <translation>所选线段：</translation>
    </message>
    <message>
        <source>%1 px long</source>
        <translation>长 %1 px</translation>
    </message>
    <message>
        <source>Its true &amp;length:</source>
        <translation>真实长度(&amp;L)：</translation>
    </message>
    <message>
        <source>True length of the selected line</source>
        <translation>所选线段的真实长度</translation>
    </message>
    <message>
        <source>&amp;Length of a pixel:</source>
        <translation>像素的长度(&amp;L)：</translation>
    </message>
    <message>
        <source>Length of a pixel</source>
        <translation>像素的长度</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>单位</translation>
    </message>
    <message>
        <source>&amp;Unit:</source>
        <translation>单位(&amp;U)：</translation>
    </message>
    <message>
        <source>For all pictures of this &amp;folder</source>
        <translation>用于此文件夹的所有图像(&amp;F)</translation>
    </message>
    <message>
        <source>Select a line of known length to set the scale by it.</source>
        <translation>选择一条已知长度的线段即可按其设置标尺。</translation>
    </message>
    <message>
        <source>A pixel is %1 %2.</source>
        <translation>一个像素为 %1 %2。</translation>
    </message>
    <message>
        <source>A length above zero and a unit are needed.</source>
        <translation>需要大于零的长度和单位。</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::CanvasView</name>
    <message>
        <source>Canvas</source>
        <translation>画布</translation>
    </message>
    <message>
        <source>The image and the objects on it; the list of objects tells them one by one</source>
        <translation>图像及其上的对象；对象列表逐一说明</translation>
    </message>
    <message>
        <source>Opening ...</source>
        <translation>正在打开 ...</translation>
    </message>
    <message>
        <source>Drop a picture, raw data or a session here,
or open one by Ctrl+O</source>
        <translation>将图像、原始数据或会话拖到这里，
或按 Ctrl+O 打开</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文字</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::ColourMenu</name>
    <message>
        <source>Yellow</source>
        <translation>黄色</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>橙色</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>红色</translation>
    </message>
    <message>
        <source>Magenta</source>
        <translation>品红</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>蓝色</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>青色</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>绿色</translation>
    </message>
    <message>
        <source>White</source>
        <translation>白色</translation>
    </message>
    <message>
        <source>Black</source>
        <translation>黑色</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Other...</source>
        <translation>其他...</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::CommandList</name>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Open folder</source>
        <translation>打开文件夹</translation>
    </message>
    <message>
        <source>Forget all</source>
        <translation>全部清除</translation>
    </message>
    <message>
        <source>Save session</source>
        <translation>保存会话</translation>
    </message>
    <message>
        <source>Sessions</source>
        <translation>会话</translation>
    </message>
    <message>
        <source>Open a picture of a series</source>
        <translation>打开序列中的一幅图像</translation>
    </message>
    <message>
        <source>Open raw data</source>
        <translation>打开原始数据</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Vostel Viewer %1&lt;/h3&gt;&lt;p&gt;Shows pictures, stacks and raw data, with regions, measures and their numbers.&lt;/p&gt;&lt;p&gt;Qt %2&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Vostel 图像查看器 %1&lt;/h3&gt;&lt;p&gt;显示图像、图像序列和原始数据，以及区域、测量及其数值。&lt;/p&gt;&lt;p&gt;Qt %2&lt;/p&gt;</translation>
    </message>
    <message>
        <source>No region is drawn.</source>
        <translation>没有绘制区域。</translation>
    </message>
    <message>
        <source>%1, regions</source>
        <translation>%1，区域</translation>
    </message>
    <message>
        <source>The two pictures have different sizes: %1 x %2 and %3 x %4.</source>
        <translation>两幅图像的尺寸不同：%1 x %2 和 %3 x %4。</translation>
    </message>
    <message>
        <source>%1 less %2</source>
        <translation>%1 减 %2</translation>
    </message>
    <message>
        <source>The language changes at the next start.</source>
        <translation>语言将在下次启动时更改。</translation>
    </message>
    <message>
        <source>The two pictures have different heights: %1 and %2.</source>
        <translation>两幅图像的高度不同：%1 和 %2。</translation>
    </message>
    <message>
        <source>Join</source>
        <translation>拼接</translation>
    </message>
    <message>
        <source>Columns that both pictures show, 0 or at least 2:</source>
        <translation>两幅图像共有的列数，0 或至少 2：</translation>
    </message>
    <message>
        <source>%1 and %2</source>
        <translation>%1 与 %2</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::CommandPalette</name>
    <message>
        <source>Find a command</source>
        <translation>查找命令</translation>
    </message>
    <message>
        <source>Parts of a command&apos;s name</source>
        <translation>命令名称的一部分</translation>
    </message>
    <message>
        <source>Commands that were found</source>
        <translation>找到的命令</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::CurvePlot</name>
    <message>
        <source>Length (%1)</source>
        <translation>长度 (%1)</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>数值</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::Document</name>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>%1, page %2 of %3</source>
        <translation>%1，第 %2 页，共 %3 页</translation>
    </message>
    <message>
        <source>The folder &quot;%1&quot; holds no pictures.</source>
        <translation>文件夹“%1”中没有图像。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no picture, in spite of its name.</source>
        <translation>“%1”不是图像，尽管名称如此。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a %2 file. Files of this kind are not supported.</source>
        <translation>“%1”是 %2 文件，不支持此类文件。</translation>
    </message>
    <message>
        <source>Pasted a picture of %1 × %2 px</source>
        <translation>已粘贴 %1 × %2 px 的图像</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>已打开 %1</translation>
    </message>
    <message numerus="yes">
        <source>Added %n objects of %1</source>
        <translation>
            <numerusform>已添加 %1 中的 %n 个对象</numerusform>
        </translation>
    </message>
    <message>
        <source> - without the picture, which is in no file: save it too</source>
        <translation> - 不含图像，图像不在任何文件中：请另行保存</translation>
    </message>
    <message>
        <source>The picture that was kept of &quot;%1&quot; cannot be read.</source>
        <translation>无法读取为“%1”保留的图像。</translation>
    </message>
    <message>
        <source>Recovered %1</source>
        <translation>已恢复 %1</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::HelpWindow</name>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>搜索</translation>
    </message>
    <message>
        <source>Words to look for in the pages</source>
        <translation>在页面中查找的词</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>页面</translation>
    </message>
    <message>
        <source>No page has these words.</source>
        <translation>没有页面包含这些词。</translation>
    </message>
    <message>
        <source>Text of the page</source>
        <translation>页面正文</translation>
    </message>
    <message>
        <source>en</source>
        <extracomment>The folder of the help&apos;s pages in the language of the interface.</extracomment>
        <translation>zh_CN</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::HistogramPanel</name>
    <message>
        <source>How counts are drawn</source>
        <translation>计数的显示方式</translation>
    </message>
    <message>
        <source>Linear counts</source>
        <translation>线性计数</translation>
    </message>
    <message>
        <source>Logarithmic counts</source>
        <translation>对数计数</translation>
    </message>
    <message>
        <source>Channel that is counted</source>
        <translation>统计的通道</translation>
    </message>
    <message>
        <source>Luma</source>
        <translation>亮度</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>红色</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>绿色</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>蓝色</translation>
    </message>
    <message>
        <source>Histogram with the window of the contrast</source>
        <translation>直方图及对比度灰度窗</translation>
    </message>
    <message>
        <source>Value that becomes the darkest shade</source>
        <translation>变为最暗的数值</translation>
    </message>
    <message>
        <source>Value that becomes the brightest shade</source>
        <translation>变为最亮的数值</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>下限</translation>
    </message>
    <message>
        <source>High</source>
        <translation>上限</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Leave out %1 % of the pixels at each end</source>
        <translation>两端各舍去 %1 % 的像素</translation>
    </message>
    <message>
        <source>Full range</source>
        <translation>全范围</translation>
    </message>
    <message>
        <source>From the lowest to the highest value of the image</source>
        <translation>从图像的最小值到最大值</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>重置</translation>
    </message>
    <message>
        <source>The contrast of a newly opened image</source>
        <translation>新打开图像的对比度</translation>
    </message>
    <message>
        <source>Gamma: above 1 brightens the middle</source>
        <translation>伽马：大于 1 使中间调变亮</translation>
    </message>
    <message>
        <source>Color map</source>
        <translation>颜色映射</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>伽马</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Below</source>
        <translation>低于</translation>
    </message>
    <message>
        <source>Color of values below the window</source>
        <translation>低于灰度窗的数值的颜色</translation>
    </message>
    <message>
        <source>Above</source>
        <translation>高于</translation>
    </message>
    <message>
        <source>Color of values above the window</source>
        <translation>高于灰度窗的数值的颜色</translation>
    </message>
    <message>
        <source>Not finite</source>
        <translation>非有限值</translation>
    </message>
    <message>
        <source>Color of values that are not finite</source>
        <translation>非有限数值的颜色</translation>
    </message>
    <message>
        <source>No image</source>
        <translation>没有图像</translation>
    </message>
    <message>
        <source>No canvas</source>
        <translation>没有画布</translation>
    </message>
    <message>
        <source>Values in %1 %2</source>
        <translation>%1 %2 内的数值</translation>
    </message>
    <message>
        <source>Values of the whole image</source>
        <translation>整幅图像的数值</translation>
    </message>
    <message>
        <source>, %1 not finite in the image</source>
        <translation>，图像中有 %1 个非有限值</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::HistogramPlot</name>
    <message>
        <source>%1: %2 pixels</source>
        <translation>%1：%2 个像素</translation>
    </message>
    <message>
        <source>%1 to %2: %3 pixels</source>
        <translation>%1 至 %2：%3 个像素</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::HistoryPanel</name>
    <message>
        <source>Steps that can be taken back and brought again</source>
        <translation>可以撤销和重做的步骤</translation>
    </message>
    <message>
        <source>No canvas</source>
        <translation>没有画布</translation>
    </message>
    <message>
        <source>1 step, %1 of %2</source>
        <translation>1 步，%1 / %2</translation>
    </message>
    <message>
        <source>%3 steps, %1 of %2</source>
        <translation>%3 步，%1 / %2</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::KeysDialog</name>
    <message>
        <source>Keys</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>Commands and their keys</source>
        <translation>命令及其快捷键</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>Key of the chosen command</source>
        <translation>所选命令的快捷键</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>No key</source>
        <translation>无快捷键</translation>
    </message>
    <message>
        <source>All as at first</source>
        <translation>全部恢复初始值</translation>
    </message>
    <message>
        <source>Key:</source>
        <translation>快捷键：</translation>
    </message>
    <message>
        <source>A key that another command has moves to the chosen one.</source>
        <translation>其他命令的快捷键将转给所选命令。</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::MainWindow</name>
    <message>
        <source>File, edit and view</source>
        <translation>文件、编辑和视图</translation>
    </message>
    <message>
        <source>Draw and measure</source>
        <translation>绘制和测量</translation>
    </message>
    <message>
        <source>The viewer ended without saving:</source>
        <translation>查看器未保存就已结束：</translation>
    </message>
    <message>
        <source>Recover</source>
        <translation>恢复</translation>
    </message>
    <message>
        <source>Drop</source>
        <translation>丢弃</translation>
    </message>
    <message>
        <source>Ask again later</source>
        <translation>以后再问</translation>
    </message>
    <message>
        <source>Objects or settings of &quot;%1&quot; are not saved.</source>
        <translation>“%1”的对象或设置尚未保存。</translation>
    </message>
    <message>
        <source>More menus</source>
        <translation>更多菜单</translation>
    </message>
    <message>
        <source>More of: %1</source>
        <translation>更多：%1</translation>
    </message>
    <message>
        <source>Panels</source>
        <translation>面板</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::MeasuresPanel</name>
    <message>
        <source>Columns</source>
        <translation>列</translation>
    </message>
    <message>
        <source>Choose which measures are shown</source>
        <translation>选择显示哪些测量值</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Copy all rows, for a spreadsheet</source>
        <translation>复制所有行，用于电子表格</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>保存...</translation>
    </message>
    <message>
        <source>Save the table as CSV or JSON</source>
        <translation>将表格保存为 CSV 或 JSON</translation>
    </message>
    <message>
        <source>Measures of the objects</source>
        <translation>对象的测量值</translation>
    </message>
    <message>
        <source>Statistics of the current column</source>
        <translation>当前列的统计</translation>
    </message>
    <message>
        <source>Copy selected rows</source>
        <translation>复制所选行</translation>
    </message>
    <message>
        <source>Copy all rows</source>
        <translation>复制所有行</translation>
    </message>
    <message>
        <source>unit</source>
        <translation>单位</translation>
    </message>
    <message>
        <source>No canvas</source>
        <translation>没有画布</translation>
    </message>
    <message>
        <source>No objects yet</source>
        <translation>还没有对象</translation>
    </message>
    <message>
        <source>%1: measuring...</source>
        <translation>%1：正在测量...</translation>
    </message>
    <message>
        <source>%1: no values</source>
        <translation>%1：没有数值</translation>
    </message>
    <message>
        <source>%1, %2: mean %3, deviation %4, minimum %5, maximum %6, sum %7, count %8</source>
        <translation>%1，%2：平均值 %3，标准差 %4，最小值 %5，最大值 %6，总和 %7，个数 %8</translation>
    </message>
    <message>
        <source>selected rows</source>
        <translation>所选行</translation>
    </message>
    <message>
        <source>all rows</source>
        <translation>所有行</translation>
    </message>
    <message>
        <source>Copied 1 row</source>
        <translation>已复制 1 行</translation>
    </message>
    <message>
        <source>Copied %1 rows</source>
        <translation>已复制 %1 行</translation>
    </message>
    <message>
        <source>All measures, CSV (*.csv)</source>
        <translation>所有测量值，CSV (*.csv)</translation>
    </message>
    <message>
        <source>All measures, JSON (*.json)</source>
        <translation>所有测量值，JSON (*.json)</translation>
    </message>
    <message>
        <source>The columns shown, CSV (*.csv)</source>
        <translation>显示的列，CSV (*.csv)</translation>
    </message>
    <message>
        <source>Save measures</source>
        <translation>保存测量值</translation>
    </message>
    <message>
        <source>measures</source>
        <translation>测量值</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::ObjectsModel</name>
    <message>
        <source>shown</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>hidden</source>
        <translation>隐藏</translation>
    </message>
    <message>
        <source>locked</source>
        <translation>已锁定</translation>
    </message>
    <message>
        <source>not locked</source>
        <translation>未锁定</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Label</source>
        <translation>标签</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>Locked</source>
        <translation>锁定</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::ObjectsPanel</name>
    <message>
        <source>Line color</source>
        <translation>线条颜色</translation>
    </message>
    <message>
        <source>Fill color</source>
        <translation>填充颜色</translation>
    </message>
    <message>
        <source>Objects, topmost first</source>
        <translation>对象，最上面的在前</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>线条</translation>
    </message>
    <message>
        <source>Line color of the selected objects</source>
        <translation>所选对象的线条颜色</translation>
    </message>
    <message>
        <source>Fill</source>
        <translation>填充</translation>
    </message>
    <message>
        <source>Fill color of the selected regions</source>
        <translation>所选区域的填充颜色</translation>
    </message>
    <message>
        <source>Line width of the selected objects</source>
        <translation>所选对象的线宽</translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>上移</translation>
    </message>
    <message>
        <source>Nearer to the top</source>
        <translation>向最上层移动</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>下移</translation>
    </message>
    <message>
        <source>Further to the bottom</source>
        <translation>向最下层移动</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>隐藏</translation>
    </message>
    <message>
        <source>Hide the selected objects or show them again</source>
        <translation>隐藏所选对象或重新显示</translation>
    </message>
    <message>
        <source>Lock</source>
        <translation>锁定</translation>
    </message>
    <message>
        <source>Lock the selected objects or free them again</source>
        <translation>锁定所选对象或解除锁定</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Delete the selected objects</source>
        <translation>删除所选对象</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Hide or show</source>
        <translation>隐藏或显示</translation>
    </message>
    <message>
        <source>Lock or unlock</source>
        <translation>锁定或解锁</translation>
    </message>
    <message>
        <source>To the top</source>
        <translation>移到最上层</translation>
    </message>
    <message>
        <source>To the bottom</source>
        <translation>移到最下层</translation>
    </message>
    <message>
        <source>No canvas</source>
        <translation>没有画布</translation>
    </message>
    <message>
        <source>No objects yet</source>
        <translation>还没有对象</translation>
    </message>
    <message>
        <source>1 object</source>
        <translation>1 个对象</translation>
    </message>
    <message>
        <source>%1 objects, topmost first</source>
        <translation>%1 个对象，最上面的在前</translation>
    </message>
    <message>
        <source>1 locked object stays</source>
        <translation>1 个锁定的对象保留</translation>
    </message>
    <message>
        <source>%1 locked objects stay</source>
        <translation>%1 个锁定的对象保留</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::OverviewMap</name>
    <message>
        <source>No image</source>
        <translation>没有图像</translation>
    </message>
    <message>
        <source>No canvas</source>
        <translation>没有画布</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::OverviewPanel</name>
    <message>
        <source>Overview: the arrow keys move the visible part</source>
        <translation>概览：方向键移动可见部分</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::Processing</name>
    <message>
        <source>%1 was stopped; nothing has changed</source>
        <translation>%1 已停止；没有任何更改</translation>
    </message>
    <message>
        <source>%1: stopping ...</source>
        <translation>%1：正在停止 ...</translation>
    </message>
    <message>
        <source>%1: %2 % - Esc stops it</source>
        <translation>%1：%2 % - 按 Esc 停止</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1，%2</translation>
    </message>
    <message>
        <source>%1 done, of the gray of the colors</source>
        <translation>%1 完成，取自彩色的灰度</translation>
    </message>
    <message>
        <source>%1 done</source>
        <translation>%1 完成</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::ProfilePanel</name>
    <message>
        <source>Values along the selected line</source>
        <translation>沿所选线的数值</translation>
    </message>
    <message>
        <source>Width of the line over which values are averaged</source>
        <translation>对数值求平均的线宽</translation>
    </message>
    <message>
        <source>Width </source>
        <translation>线宽 </translation>
    </message>
    <message>
        <source> px</source>
        <translation> px</translation>
    </message>
    <message>
        <source>Channel of the profile</source>
        <translation>剖面线的通道</translation>
    </message>
    <message>
        <source>Luma</source>
        <translation>亮度</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>红色</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>绿色</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>蓝色</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>保存...</translation>
    </message>
    <message>
        <source>Save the profile as CSV or SVG</source>
        <translation>将剖面保存为 CSV 或 SVG</translation>
    </message>
    <message>
        <source>No canvas</source>
        <translation>没有画布</translation>
    </message>
    <message>
        <source>Select a line, a profile or a length.</source>
        <translation>请选择线、剖面线或长度。</translation>
    </message>
    <message>
        <source>%1 %2: minimum %3, maximum %4, mean %5</source>
        <translation>%1 %2：最小值 %3，最大值 %4，平均值 %5</translation>
    </message>
    <message>
        <source> (straight from the first to the last point)</source>
        <translation>（从首点到末点的直线）</translation>
    </message>
    <message>
        <source>There is no image under the line.</source>
        <translation>线下没有图像。</translation>
    </message>
    <message>
        <source>%1 %2: value %3 at x %4, y %5</source>
        <translation>%1 %2：x %4, y %5 处的数值为 %3</translation>
    </message>
    <message>
        <source>Save profile</source>
        <translation>保存剖面</translation>
    </message>
    <message>
        <source>Table, CSV (*.csv)</source>
        <translation>表格，CSV (*.csv)</translation>
    </message>
    <message>
        <source>Drawing, SVG (*.svg)</source>
        <translation>图形，SVG (*.svg)</translation>
    </message>
    <message>
        <source>profile</source>
        <translation>剖面线</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::RawLayoutDialog</name>
    <message>
        <source>16-bit unsigned</source>
        <translation>16 位无符号</translation>
    </message>
    <message>
        <source>32-bit float</source>
        <translation>32 位浮点</translation>
    </message>
    <message>
        <source>16-bit signed</source>
        <translation>16 位有符号</translation>
    </message>
    <message>
        <source>8-bit unsigned</source>
        <translation>8 位无符号</translation>
    </message>
    <message>
        <source>Color, red green blue, 8 bits each</source>
        <translation>彩色，红绿蓝，各 8 位</translation>
    </message>
    <message>
        <source>Color, blue green red, 8 bits each</source>
        <translation>彩色，蓝绿红，各 8 位</translation>
    </message>
    <message>
        <source>Color, blue green red and a fourth byte</source>
        <translation>彩色，蓝绿红加第四字节</translation>
    </message>
    <message>
        <source>%1 after %2 bytes</source>
        <translation>%1，前有 %2 字节</translation>
    </message>
    <message>
        <source>Layout of the raw data</source>
        <translation>原始数据的布局</translation>
    </message>
    <message>
        <source>%1, %2 bytes</source>
        <translation>%1，%2 字节</translation>
    </message>
    <message>
        <source>File:</source>
        <translation>文件：</translation>
    </message>
    <message>
        <source>Type of the values</source>
        <translation>数值类型</translation>
    </message>
    <message>
        <source>Integers of 32 bits and floats of 64 bits cannot be shown.</source>
        <translation>无法显示 32 位整数和 64 位浮点数。</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>类型(&amp;T)：</translation>
    </message>
    <message>
        <source>&amp;Big-endian: the higher byte first</source>
        <translation>大端：高字节在前(&amp;B)</translation>
    </message>
    <message>
        <source>Sizes that fit the file</source>
        <translation>与文件相符的尺寸</translation>
    </message>
    <message>
        <source>choose</source>
        <translation>选择</translation>
    </message>
    <message>
        <source>&amp;Sizes that fit:</source>
        <translation>相符的尺寸(&amp;S)：</translation>
    </message>
    <message>
        <source>&amp;Width (px):</source>
        <translation>宽度 (px)(&amp;W)：</translation>
    </message>
    <message>
        <source>&amp;Height (px):</source>
        <translation>高度 (px)(&amp;H)：</translation>
    </message>
    <message>
        <source>&amp;Offset (bytes):</source>
        <translation>偏移（字节）(&amp;O)：</translation>
    </message>
    <message>
        <source>S&amp;lices:</source>
        <translation>层数(&amp;L)：</translation>
    </message>
    <message>
        <source>B&amp;ytes between slices:</source>
        <translation>层间字节数(&amp;Y)：</translation>
    </message>
    <message>
        <source>The file is %1 bytes too short for this.</source>
        <translation>文件短了 %1 字节。</translation>
    </message>
    <message>
        <source>The file has %1 bytes more, which are not read.</source>
        <translation>文件多出 %1 字节，将不读取。</translation>
    </message>
    <message>
        <source>The file holds exactly %1 slices.</source>
        <translation>文件恰好含 %1 层。</translation>
    </message>
    <message>
        <source>Fits the file exactly.</source>
        <translation>与文件完全相符。</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::RoutineDialog</name>
    <message>
        <source>Preview of a part of the image</source>
        <translation>图像局部的预览</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::RoutineRun</name>
    <message>
        <source>There is not enough memory.</source>
        <translation>内存不足。</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::Ruler</name>
    <message>
        <source>Horizontal ruler</source>
        <translation>水平标尺</translation>
    </message>
    <message>
        <source>Vertical ruler</source>
        <translation>垂直标尺</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::SaveDialog</name>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>&quot;%1&quot; exists already. Replace it?</source>
        <translation>“%1”已存在。要替换吗？</translation>
    </message>
    <message>
        <source>Sc&amp;ale:</source>
        <translation>缩放(&amp;A)：</translation>
    </message>
    <message>
        <source>Scale of the saved picture</source>
        <translation>所保存图像的缩放比例</translation>
    </message>
    <message>
        <source>%1 × %2 px</source>
        <translation>%1 × %2 px</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::StackBar</name>
    <message>
        <source>Page of the stack</source>
        <translation>图像序列的页</translation>
    </message>
    <message>
        <source>of %1</source>
        <translation>/ %1</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::StatusLine</name>
    <message>
        <source>Value %1</source>
        <translation>数值 %1</translation>
    </message>
    <message>
        <source>RGB %1, gray %2</source>
        <translation>RGB %1，灰度 %2</translation>
    </message>
    <message>
        <source>not calibrated</source>
        <translation>未标定</translation>
    </message>
    <message>
        <source>1 px = %1 %2</source>
        <translation>1 px = %1 %2</translation>
    </message>
    <message>
        <source>8 bits</source>
        <translation>8 位</translation>
    </message>
    <message>
        <source>16 bits</source>
        <translation>16 位</translation>
    </message>
    <message>
        <source>16 bits, signed</source>
        <translation>16 位有符号</translation>
    </message>
    <message>
        <source>float</source>
        <translation>浮点</translation>
    </message>
    <message>
        <source>color</source>
        <translation>彩色</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::StepList</name>
    <message>
        <source>Before all steps</source>
        <translation>所有步骤之前</translation>
    </message>
    <message>
        <source>Step %1</source>
        <translation>步骤 %1</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::StyleDialog</name>
    <message>
        <source>Look of drawn objects</source>
        <translation>绘制对象的外观</translation>
    </message>
    <message>
        <source>Lines:</source>
        <translation>线条：</translation>
    </message>
    <message>
        <source>Color of lines</source>
        <translation>线条颜色</translation>
    </message>
    <message>
        <source>Selected:</source>
        <translation>选中：</translation>
    </message>
    <message>
        <source>Color of selected lines</source>
        <translation>选中线条的颜色</translation>
    </message>
    <message>
        <source>Width:</source>
        <translation>线宽：</translation>
    </message>
    <message>
        <source>Width of lines</source>
        <translation>线条宽度</translation>
    </message>
    <message>
        <source>Text height:</source>
        <translation>文字高度：</translation>
    </message>
    <message>
        <source>Height of texts</source>
        <translation>文字高度</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::Tour</name>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Drop pictures, stacks, raw data or sessions on the window, or press Ctrl+O. Each gets a tab; F4 shows all side by side.</source>
        <translation>将图像、图像序列、原始数据或会话拖到窗口中，或按 Ctrl+O。每个文件占一个标签页；F4 并排显示全部。</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>查看</translation>
    </message>
    <message>
        <source>The wheel zooms, a drag on the background or with the middle button moves the image. Ctrl+0 shows all of it, Ctrl+1 shows it at 100 %.</source>
        <translation>滚轮缩放，在背景上拖动或用中键拖动来移动图像。Ctrl+0 显示整幅图像，Ctrl+1 以 100 % 显示。</translation>
    </message>
    <message>
        <source>Draw and measure</source>
        <translation>绘制和测量</translation>
    </message>
    <message>
        <source>Choose a tool at the left, then draw one object after another: drags for lengths and rectangles, clicks and Enter for polygons. Esc puts the tool away. Ctrl+Z undoes.</source>
        <translation>在左侧选择工具，然后逐个绘制对象：拖动画长度和矩形，单击并按回车键画多边形。Esc 收起工具。Ctrl+Z 撤销。</translation>
    </message>
    <message>
        <source>Numbers</source>
        <translation>数值</translation>
    </message>
    <message>
        <source>The docks list the objects with their measures, the histogram and the line profile. Measures are in px until you calibrate by a length that you know.</source>
        <translation>面板列出对象及其测量值、直方图和剖面线。按已知长度标定之前，测量值以 px 为单位。</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Ctrl+S saves a session: objects, contrast, scale and view. Pictures, regions and tables leave by the File menu. Ctrl+Shift+P finds every command.</source>
        <translation>Ctrl+S 保存会话：对象、对比度、标尺和视图。图像、区域和表格由“文件”菜单导出。Ctrl+Shift+P 查找任何命令。</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>上一步</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完成</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>下一步</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::Workspace</name>
    <message>
        <source>Open documents</source>
        <translation>打开的文档</translation>
    </message>
    <message>
        <source>Close %1</source>
        <translation>关闭 %1</translation>
    </message>
</context>
</TS>
