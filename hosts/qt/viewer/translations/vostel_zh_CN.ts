<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name>Commands</name>
    <message>
        <source>Pictures and raw data</source>
        <translation>图片和原始数据</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>所有文件</translation>
    </message>
    <message>
        <source>There is no such canvas.</source>
        <translation>没有这个画布。</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>文件不存在。</translation>
    </message>
    <message>
        <source>This is a folder, not a file.</source>
        <translation>这是文件夹，不是文件。</translation>
    </message>
    <message>
        <source>This file is not a picture that can be read.</source>
        <translation>该文件不是可以读取的图片。</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>打开(&amp;O)...</translation>
    </message>
    <message>
        <source>Open a picture or a raw file on the current canvas.</source>
        <translation>在当前画布上打开图片或原始数据文件。</translation>
    </message>
    <message>
        <source>&amp;Recent files</source>
        <translation>最近的文件(&amp;R)</translation>
    </message>
    <message>
        <source>Open a file that was open before.</source>
        <translation>打开以前打开过的文件。</translation>
    </message>
    <message>
        <source>Save image &amp;with objects...</source>
        <translation>保存图像及标注(&amp;W)...</translation>
    </message>
    <message>
        <source>Save the image at its size on the screen, with all objects.</source>
        <translation>按屏幕显示的大小保存图像及其上的全部对象。</translation>
    </message>
    <message>
        <source>Save image &amp;as shown...</source>
        <translation>保存显示图像(&amp;A)...</translation>
    </message>
    <message>
        <source>Save the image or its selected rectangle at its own resolution.</source>
        <translation>按原始分辨率保存图像或其选中的矩形区域。</translation>
    </message>
    <message>
        <source>Save &amp;canvas area...</source>
        <translation>保存画布区域(&amp;C)...</translation>
    </message>
    <message>
        <source>Save the canvas, or the selected rectangle in it, as it is on the screen.</source>
        <translation>按屏幕所见保存画布或其中选中的矩形。</translation>
    </message>
    <message>
        <source>Save &amp;8-bit gray...</source>
        <translation>保存 8 位灰度图(&amp;8)...</translation>
    </message>
    <message>
        <source>Save the image as shown as an 8-bit gray bitmap.</source>
        <translation>将显示的图像保存为 8 位灰度位图。</translation>
    </message>
    <message>
        <source>Save &amp;float data...</source>
        <translation>保存浮点数据(&amp;F)...</translation>
    </message>
    <message>
        <source>Save the data, stretched to 0..65535, as 32-bit floats without a header.</source>
        <translation>将拉伸到 0..65535 的数据保存为无文件头的 32 位浮点数。</translation>
    </message>
    <message>
        <source>Save &amp;labels...</source>
        <translation>保存标签图(&amp;L)...</translation>
    </message>
    <message>
        <source>Save the numbers of the regions as 32-bit integers without a header.</source>
        <translation>将区域编号保存为无文件头的 32 位整数。</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>Close the viewer.</source>
        <translation>关闭查看器。</translation>
    </message>
    <message>
        <source>&amp;Fixed view</source>
        <translation>固定视图(&amp;F)</translation>
    </message>
    <message>
        <source>The mouse neither moves nor zooms the image.</source>
        <translation>鼠标既不平移也不缩放图像。</translation>
    </message>
    <message>
        <source>Zoom about the c&amp;entre</source>
        <translation>以中心缩放(&amp;E)</translation>
    </message>
    <message>
        <source>Control and the wheel zoom about the centre of the image.</source>
        <translation>按住 Ctrl 并滚动滚轮，以图像中心缩放。</translation>
    </message>
    <message>
        <source>Zoom about the c&amp;ursor</source>
        <translation>以光标缩放(&amp;U)</translation>
    </message>
    <message>
        <source>Control and the wheel zoom about the point under the cursor.</source>
        <translation>按住 Ctrl 并滚动滚轮，以光标所在的点缩放。</translation>
    </message>
    <message>
        <source>&amp;Nearest pixels (fast)</source>
        <translation>最近邻显示（快速）(&amp;N)</translation>
    </message>
    <message>
        <source>Show the nearest pixel of the image; switched off, the display is smoothed.</source>
        <translation>显示最邻近的图像像素；关闭后显示经过平滑。</translation>
    </message>
    <message>
        <source>Contrast &amp;slider</source>
        <translation>对比度滑块(&amp;S)</translation>
    </message>
    <message>
        <source>Show the slider that sets the darkest and the lightest value of float data.</source>
        <translation>显示设置浮点数据最暗值和最亮值的滑块。</translation>
    </message>
    <message>
        <source>&amp;Whole image</source>
        <translation>显示整幅图像(&amp;W)</translation>
    </message>
    <message>
        <source>Zoom and centre the image so that all of it shows.</source>
        <translation>缩放并居中，使整幅图像可见。</translation>
    </message>
    <message>
        <source>&amp;One canvas</source>
        <translation>单个画布(&amp;O)</translation>
    </message>
    <message>
        <source>Show the current canvas alone.</source>
        <translation>只显示当前画布。</translation>
    </message>
    <message>
        <source>&amp;Tiled canvases</source>
        <translation>平铺画布(&amp;T)</translation>
    </message>
    <message>
        <source>Show all five canvases side by side.</source>
        <translation>并排显示全部五个画布。</translation>
    </message>
    <message>
        <source>Canvas &amp;1</source>
        <translation>画布 &amp;1</translation>
    </message>
    <message>
        <source>Make this the current canvas.</source>
        <translation>将其设为当前画布。</translation>
    </message>
    <message>
        <source>Canvas &amp;2</source>
        <translation>画布 &amp;2</translation>
    </message>
    <message>
        <source>Canvas &amp;3</source>
        <translation>画布 &amp;3</translation>
    </message>
    <message>
        <source>Canvas &amp;4</source>
        <translation>画布 &amp;4</translation>
    </message>
    <message>
        <source>Canvas &amp;5</source>
        <translation>画布 &amp;5</translation>
    </message>
    <message>
        <source>&amp;Rectangle</source>
        <translation>矩形(&amp;R)</translation>
    </message>
    <message>
        <source>Hold Shift and drag from corner to corner.</source>
        <translation>按住 Shift，从一角拖到对角。</translation>
    </message>
    <message>
        <source>Rectangle by &amp;numbers...</source>
        <translation>按数值绘制矩形(&amp;N)...</translation>
    </message>
    <message>
        <source>Give the edges of a rectangle in image pixels.</source>
        <translation>以图像像素给出矩形的边。</translation>
    </message>
    <message>
        <source>&amp;Polygon</source>
        <translation>多边形(&amp;P)</translation>
    </message>
    <message>
        <source>Hold Shift and click each corner.</source>
        <translation>按住 Shift，依次单击各个顶点。</translation>
    </message>
    <message>
        <source>&amp;Spline</source>
        <translation>样条曲线(&amp;S)</translation>
    </message>
    <message>
        <source>Hold Shift and click each point of the curve.</source>
        <translation>按住 Shift，依次单击曲线上的各点。</translation>
    </message>
    <message>
        <source>&amp;Free region</source>
        <translation>自由区域(&amp;F)</translation>
    </message>
    <message>
        <source>Hold Shift and drag round the region.</source>
        <translation>按住 Shift，沿区域边界拖动。</translation>
    </message>
    <message>
        <source>Free stro&amp;ke</source>
        <translation>自由笔画(&amp;K)</translation>
    </message>
    <message>
        <source>Hold Shift and drag; the keys A and D make the pen wider and narrower.</source>
        <translation>按住 Shift 拖动；A 键和 D 键使画笔变粗和变细。</translation>
    </message>
    <message>
        <source>&amp;Text...</source>
        <translation>文字(&amp;T)...</translation>
    </message>
    <message>
        <source>Add a line of text that is tied to the image; drag it to its place.</source>
        <translation>添加一行随图像移动的文字；将其拖到所需位置。</translation>
    </message>
    <message>
        <source>Text &amp;lines...</source>
        <translation>多行文字(&amp;L)...</translation>
    </message>
    <message>
        <source>Add a box of several lines; drag it to its place.</source>
        <translation>添加多行文字框；将其拖到所需位置。</translation>
    </message>
    <message>
        <source>&amp;Delete selected</source>
        <translation>删除所选(&amp;D)</translation>
    </message>
    <message>
        <source>Delete the selected object.</source>
        <translation>删除选中的对象。</translation>
    </message>
    <message>
        <source>Delete &amp;all</source>
        <translation>全部删除(&amp;A)</translation>
    </message>
    <message>
        <source>Delete all objects of the current canvas.</source>
        <translation>删除当前画布上的全部对象。</translation>
    </message>
    <message>
        <source>&amp;Convolution...</source>
        <translation>卷积(&amp;C)...</translation>
    </message>
    <message>
        <source>Filter with a box, sharpening, Sobel or Laplace kernel.</source>
        <translation>用均值、锐化、Sobel 或拉普拉斯核滤波。</translation>
    </message>
    <message>
        <source>Convolution by for&amp;m...</source>
        <translation>按形式卷积(&amp;M)...</translation>
    </message>
    <message>
        <source>Filter by one of the routines that treat the border differently.</source>
        <translation>用边界处理方式不同的例程之一滤波。</translation>
    </message>
    <message>
        <source>&amp;Gaussian smoothing...</source>
        <translation>高斯平滑(&amp;G)...</translation>
    </message>
    <message>
        <source>Smooth with a Gaussian kernel.</source>
        <translation>用高斯核平滑。</translation>
    </message>
    <message>
        <source>&amp;Threshold...</source>
        <translation>阈值分割(&amp;T)...</translation>
    </message>
    <message>
        <source>Mark the pixels that are brighter than the mean around them.</source>
        <translation>标出比周围均值亮的像素。</translation>
    </message>
    <message>
        <source>Re&amp;size...</source>
        <translation>调整大小(&amp;S)...</translation>
    </message>
    <message>
        <source>Scale the image to another size.</source>
        <translation>将图像缩放到另一大小。</translation>
    </message>
    <message>
        <source>&amp;Fourier transform...</source>
        <translation>傅里叶变换(&amp;F)...</translation>
    </message>
    <message>
        <source>Show the spectrum of the rows, the columns or the whole image.</source>
        <translation>显示行、列或整幅图像的频谱。</translation>
    </message>
    <message>
        <source>&amp;Ramp filter...</source>
        <translation>斜坡滤波(&amp;R)...</translation>
    </message>
    <message>
        <source>Filter the rows as filtered back-projection does.</source>
        <translation>按滤波反投影的方式对各行滤波。</translation>
    </message>
    <message>
        <source>&amp;Join two canvases...</source>
        <translation>拼接两个画布(&amp;J)...</translation>
    </message>
    <message>
        <source>Put the image of another canvas to the right of this one.</source>
        <translation>将另一画布的图像拼接到本图像右侧。</translation>
    </message>
    <message>
        <source>Matrix &amp;product...</source>
        <translation>矩阵乘积(&amp;P)...</translation>
    </message>
    <message>
        <source>Multiply this image with the one of another canvas, as matrices.</source>
        <translation>将本图像与另一画布的图像作为矩阵相乘。</translation>
    </message>
    <message>
        <source>&amp;Label image</source>
        <translation>标签图像(&amp;L)</translation>
    </message>
    <message>
        <source>Show the numbers of the drawn regions as an image.</source>
        <translation>将所绘区域的编号显示为图像。</translation>
    </message>
    <message>
        <source>F&amp;illed shape...</source>
        <translation>填充形状(&amp;I)...</translation>
    </message>
    <message>
        <source>Fill an ellipse, a polygon or a spline in an empty plane.</source>
        <translation>在空白平面中填充椭圆、多边形或样条曲线。</translation>
    </message>
    <message>
        <source>Gaussian cur&amp;ve...</source>
        <translation>高斯曲线(&amp;V)...</translation>
    </message>
    <message>
        <source>Show the values of a Gaussian curve as an image.</source>
        <translation>将高斯曲线的值显示为图像。</translation>
    </message>
    <message>
        <source>Gaussian &amp;kernel...</source>
        <translation>高斯核(&amp;K)...</translation>
    </message>
    <message>
        <source>Show a Gaussian kernel as an image.</source>
        <translation>将高斯核显示为图像。</translation>
    </message>
    <message>
        <source>R&amp;amp kernel...</source>
        <translation>斜坡滤波核(&amp;A)...</translation>
    </message>
    <message>
        <source>Show the taps of the ramp filter, or their spectrum, as an image.</source>
        <translation>将斜坡滤波器的系数或其频谱显示为图像。</translation>
    </message>
    <message>
        <source>Cancel the r&amp;outine</source>
        <translation>取消处理(&amp;O)</translation>
    </message>
    <message>
        <source>Stop the routine that is under way; the image stays as it is.</source>
        <translation>停止正在进行的处理；图像保持不变。</translation>
    </message>
    <message>
        <source>&amp;Undo the routine</source>
        <translation>撤销处理(&amp;U)</translation>
    </message>
    <message>
        <source>Show the image again that the last routine worked on.</source>
        <translation>恢复上一次处理之前的图像。</translation>
    </message>
    <message>
        <source>Line &amp;profile</source>
        <translation>线剖面(&amp;P)</translation>
    </message>
    <message>
        <source>Hold Shift and drag a line; its values are plotted while the mouse moves.</source>
        <translation>按住 Shift 拖出一条线；移动鼠标时绘出其数值曲线。</translation>
    </message>
    <message>
        <source>&amp;Information window</source>
        <translation>信息窗口(&amp;I)</translation>
    </message>
    <message>
        <source>Show the position and the value under the cursor on the canvas.</source>
        <translation>在画布上显示光标处的位置和数值。</translation>
    </message>
    <message>
        <source>&amp;Neighbour values</source>
        <translation>邻域数值(&amp;N)</translation>
    </message>
    <message>
        <source>Show the five by five values round the cursor on the canvas.</source>
        <translation>在画布上显示光标周围 5×5 的数值。</translation>
    </message>
    <message>
        <source>&amp;Length</source>
        <translation>长度(&amp;L)</translation>
    </message>
    <message>
        <source>Hold Shift and drag from end to end.</source>
        <translation>按住 Shift，从一端拖到另一端。</translation>
    </message>
    <message>
        <source>&amp;Angle of three points</source>
        <translation>三点角度(&amp;A)</translation>
    </message>
    <message>
        <source>Hold Shift and click; then drag the three points to their places.</source>
        <translation>按住 Shift 单击；再将三个点拖到所需位置。</translation>
    </message>
    <message>
        <source>Angle of &amp;four points</source>
        <translation>四点角度(&amp;F)</translation>
    </message>
    <message>
        <source>Hold Shift and click; then drag the ends of the two lines to their places.</source>
        <translation>按住 Shift 单击；再将两条线的端点拖到所需位置。</translation>
    </message>
    <message>
        <source>&amp;Scale...</source>
        <translation>比例尺(&amp;S)...</translation>
    </message>
    <message>
        <source>Give the length of an image pixel for the measures that follow.</source>
        <translation>给出后续测量所用的单个图像像素的长度。</translation>
    </message>
    <message>
        <source>&amp;Gestures and keys</source>
        <translation>手势与按键(&amp;G)</translation>
    </message>
    <message>
        <source>How the mouse and the keys work.</source>
        <translation>鼠标和按键的用法。</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>关于(&amp;A)</translation>
    </message>
    <message>
        <source>Name and version of the viewer.</source>
        <translation>查看器的名称和版本。</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
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
        <source>&amp;Process</source>
        <translation>处理(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Measure</source>
        <translation>测量(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>The size of a kernel is an odd number.</source>
        <translation>核的大小须为奇数。</translation>
    </message>
    <message>
        <source>The kernel is larger than the image.</source>
        <translation>核大于图像。</translation>
    </message>
    <message>
        <source>See</source>
        <translation>查看</translation>
    </message>
    <message>
        <source>Control + wheel	zoom in and out</source>
        <translation>Ctrl + 滚轮	放大和缩小</translation>
    </message>
    <message>
        <source>Control + drag	move the image</source>
        <translation>Ctrl + 拖动	平移图像</translation>
    </message>
    <message>
        <source>Drag the contrast slider	set the darkest and the lightest value</source>
        <translation>拖动对比度滑块	设置最暗值和最亮值</translation>
    </message>
    <message>
        <source>Draw: choose a shape in the menu, then</source>
        <translation>绘制：先在菜单中选择形状，然后</translation>
    </message>
    <message>
        <source>Shift + drag	rectangle, length, profile, free region, free stroke</source>
        <translation>Shift + 拖动	矩形、长度、剖面、自由区域、自由笔画</translation>
    </message>
    <message>
        <source>Shift + click	a corner of a polygon, a point of a spline, an angle</source>
        <translation>Shift + 单击	多边形的顶点、样条曲线的点、角度</translation>
    </message>
    <message>
        <source>Press without Shift	ends the shape</source>
        <translation>不按 Shift 单击	结束绘制</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>修改</translation>
    </message>
    <message>
        <source>Click	select the object under the cursor</source>
        <translation>单击	选中光标下的对象</translation>
    </message>
    <message>
        <source>Drag inside	move the object</source>
        <translation>在内部拖动	移动对象</translation>
    </message>
    <message>
        <source>Drag a handle	move one point of it</source>
        <translation>拖动控制点	移动其中一点</translation>
    </message>
    <message>
        <source>A, D	a wider, a narrower pen for the selected free stroke</source>
        <translation>A、D	使选中的自由笔画变粗、变细</translation>
    </message>
    <message>
        <source>R, Delete	delete the selected object</source>
        <translation>R、Delete	删除选中的对象</translation>
    </message>
    <message>
        <source>Tab	switch the contrast slider off and on</source>
        <translation>Tab	关闭和打开对比度滑块</translation>
    </message>
    <message>
        <source>Esc	stop a routine that is under way</source>
        <translation>Esc	停止正在进行的处理</translation>
    </message>
    <message>
        <source>The image would have more than 134 million pixels.</source>
        <translation>图像将超过 1.34 亿像素。</translation>
    </message>
    <message>
        <source>The margin leaves no room for the shape.</source>
        <translation>边距过大，放不下形状。</translation>
    </message>
    <message>
        <source>Box mean</source>
        <translation>均值</translation>
    </message>
    <message>
        <source>Sharpen</source>
        <translation>锐化</translation>
    </message>
    <message>
        <source>Sobel x</source>
        <translation>Sobel x</translation>
    </message>
    <message>
        <source>Sobel y</source>
        <translation>Sobel y</translation>
    </message>
    <message>
        <source>Laplace</source>
        <translation>拉普拉斯</translation>
    </message>
    <message>
        <source>All processors</source>
        <translation>全部处理器</translation>
    </message>
    <message>
        <source>One processor</source>
        <translation>单个处理器</translation>
    </message>
    <message>
        <source>One row without side borders</source>
        <translation>单行，不处理左右边界</translation>
    </message>
    <message>
        <source>Inner pixels only</source>
        <translation>仅内部像素</translation>
    </message>
    <message>
        <source>In place</source>
        <translation>原位</translation>
    </message>
    <message>
        <source>16-bit whole numbers</source>
        <translation>16 位整数</translation>
    </message>
    <message>
        <source>Rows and columns</source>
        <translation>行和列</translation>
    </message>
    <message>
        <source>Rows</source>
        <translation>行</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>列</translation>
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
        <source>Real part</source>
        <translation>实部</translation>
    </message>
    <message>
        <source>Imaginary part</source>
        <translation>虚部</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>Ellipse</source>
        <translation>椭圆</translation>
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
        <source>Taps</source>
        <translation>系数</translation>
    </message>
    <message>
        <source>Magnitude of the spectrum</source>
        <translation>频谱幅值</translation>
    </message>
    <message>
        <source>Kernel</source>
        <translation>核</translation>
    </message>
    <message>
        <source>Size of the kernel (odd, px)</source>
        <translation>核大小（奇数，像素）</translation>
    </message>
    <message>
        <source>Passes</source>
        <translation>次数</translation>
    </message>
    <message>
        <source>Form</source>
        <translation>形式</translation>
    </message>
    <message>
        <source>Sigma (px)</source>
        <translation>Sigma（像素）</translation>
    </message>
    <message>
        <source>Side of the neighbourhood (px)</source>
        <translation>邻域边长（像素）</translation>
    </message>
    <message>
        <source>Width (px)</source>
        <translation>宽度（像素）</translation>
    </message>
    <message>
        <source>Height (px)</source>
        <translation>高度（像素）</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>方向</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>Frequency zero in the middle</source>
        <translation>零频率居中</translation>
    </message>
    <message>
        <source>Sampling distance</source>
        <translation>采样间距</translation>
    </message>
    <message>
        <source>Overlap (px)</source>
        <translation>重叠（像素）</translation>
    </message>
    <message>
        <source>Trim at each side of the overlap (px)</source>
        <translation>重叠区每侧裁剪（像素）</translation>
    </message>
    <message>
        <source>Make rows equally bright</source>
        <translation>使各行亮度一致</translation>
    </message>
    <message>
        <source>Shape</source>
        <translation>形状</translation>
    </message>
    <message>
        <source>Width of the plane (px)</source>
        <translation>平面宽度（像素）</translation>
    </message>
    <message>
        <source>Height of the plane (px)</source>
        <translation>平面高度（像素）</translation>
    </message>
    <message>
        <source>Margin (px)</source>
        <translation>边距（像素）</translation>
    </message>
    <message>
        <source>Corners of a polygon, points of a spline</source>
        <translation>多边形顶点数、样条点数</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>数值</translation>
    </message>
    <message>
        <source>Samples</source>
        <translation>采样数</translation>
    </message>
    <message>
        <source>Sigma along the first axis (px)</source>
        <translation>第一轴 Sigma（像素）</translation>
    </message>
    <message>
        <source>Sigma along the second axis (px)</source>
        <translation>第二轴 Sigma（像素）</translation>
    </message>
    <message>
        <source>Angle (degrees)</source>
        <translation>角度（度）</translation>
    </message>
    <message>
        <source>Convolution</source>
        <translation>卷积</translation>
    </message>
    <message>
        <source>Convolution by form</source>
        <translation>按形式卷积</translation>
    </message>
    <message>
        <source>Gaussian smoothing</source>
        <translation>高斯平滑</translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation>阈值分割</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>调整大小</translation>
    </message>
    <message>
        <source>Fourier transform</source>
        <translation>傅里叶变换</translation>
    </message>
    <message>
        <source>Ramp filter</source>
        <translation>斜坡滤波</translation>
    </message>
    <message>
        <source>Join two canvases</source>
        <translation>拼接两个画布</translation>
    </message>
    <message>
        <source>Matrix product</source>
        <translation>矩阵乘积</translation>
    </message>
    <message>
        <source>Label image</source>
        <translation>标签图像</translation>
    </message>
    <message>
        <source>Filled shape</source>
        <translation>填充形状</translation>
    </message>
    <message>
        <source>Gaussian curve</source>
        <translation>高斯曲线</translation>
    </message>
    <message>
        <source>Gaussian kernel</source>
        <translation>高斯核</translation>
    </message>
    <message>
        <source>Ramp kernel</source>
        <translation>斜坡滤波核</translation>
    </message>
    <message>
        <source>This is not a number.</source>
        <translation>这不是数字。</translation>
    </message>
    <message>
        <source>A whole number is wanted.</source>
        <translation>需要整数。</translation>
    </message>
    <message>
        <source>The value is below the least that is allowed.</source>
        <translation>数值小于允许的最小值。</translation>
    </message>
    <message>
        <source>The value is above the most that is allowed.</source>
        <translation>数值大于允许的最大值。</translation>
    </message>
    <message>
        <source>A value is missing.</source>
        <translation>缺少数值。</translation>
    </message>
    <message>
        <source>An image is missing.</source>
        <translation>缺少图像。</translation>
    </message>
    <message>
        <source>The canvas shows no image.</source>
        <translation>画布上没有图像。</translation>
    </message>
    <message>
        <source>The second canvas shows no image.</source>
        <translation>第二个画布上没有图像。</translation>
    </message>
    <message>
        <source>There is not enough memory for this image.</source>
        <translation>内存不足，无法容纳此图像。</translation>
    </message>
    <message>
        <source>The first image must be as wide as the second is high to multiply them.</source>
        <translation>相乘时第一幅图像的宽度须等于第二幅的高度。</translation>
    </message>
    <message>
        <source>The overlap is wider than one of the images.</source>
        <translation>重叠宽度超过其中一幅图像。</translation>
    </message>
    <message>
        <source>The overlap must be wider than twice the trim plus one.</source>
        <translation>重叠宽度须大于裁剪宽度的两倍加一。</translation>
    </message>
    <message>
        <source>The second image is lower than the first.</source>
        <translation>第二幅图像的高度小于第一幅。</translation>
    </message>
    <message>
        <source>There is not enough memory for this.</source>
        <translation>内存不足。</translation>
    </message>
    <message>
        <source>There are no more than five canvases.</source>
        <translation>最多只有五个画布。</translation>
    </message>
    <message>
        <source>A routine works on this canvas. Press Esc to stop it first.</source>
        <translation>此画布上正在进行处理。请先按 Esc 停止。</translation>
    </message>
    <message>
        <source>%1 ...</source>
        <translation>%1……</translation>
    </message>
    <message>
        <source>Canvas %1  %2</source>
        <translation>画布 %1  %2</translation>
    </message>
    <message>
        <source>%1: step %2 of %3</source>
        <translation>%1：第 %2 步，共 %3 步</translation>
    </message>
    <message>
        <source>%1: cancelled</source>
        <translation>%1：已取消</translation>
    </message>
    <message>
        <source>%1: done</source>
        <translation>%1：完成</translation>
    </message>
    <message>
        <source>Vostel Viewer</source>
        <translation>Vostel 图像查看器</translation>
    </message>
    <message>
        <source>Ke&amp;ys for all objects</source>
        <translation>作用于所有对象的按键(&amp;Y)</translation>
    </message>
    <message>
        <source>Take the keys C, I and T, which delete or overwrite objects of the whole canvas.</source>
        <translation>启用 C、I、T 键；它们会删除或改写整个画布上的对象。</translation>
    </message>
    <message>
        <source>Control + Delete	delete all objects</source>
        <translation>Ctrl + Delete	删除全部对象</translation>
    </message>
    <message>
        <source>E	turn all rectangles into ellipses, and back</source>
        <translation>E	将所有矩形变为椭圆，再按恢复</translation>
    </message>
    <message>
        <source>X	bring the contrast slider back into sight</source>
        <translation>X	将对比度滑块移回可见位置</translation>
    </message>
    <message>
        <source>After Draw, Keys for all objects</source>
        <translation>选择“绘制”&gt;“作用于所有对象的按键”之后</translation>
    </message>
    <message>
        <source>C	delete all objects</source>
        <translation>C	删除全部对象</translation>
    </message>
    <message>
        <source>I	move all texts, profiles and rectangles by numbers to one place</source>
        <translation>I	将所有文字、剖面图和按数值绘制的矩形移到同一位置</translation>
    </message>
    <message>
        <source>T	like I, and give all texts the same words</source>
        <translation>T	同 I，并将所有文字替换为相同内容</translation>
    </message>
</context>
<context>
    <name>Main</name>
    <message>
        <source>Shows pictures and raw data on up to five canvases.</source>
        <translation>在最多五个画布上显示图片和原始数据。</translation>
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
        <source>Files to open, one on each canvas.</source>
        <translation>要打开的文件，每个画布一个。</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::CanvasTile</name>
    <message>
        <source>result</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>Drop a picture or a raw file here, or choose File, Open.</source>
        <translation>将图片或原始数据文件拖到此处，或选择“文件”&gt;“打开”。</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::GesturePage</name>
    <message>
        <source>Gestures and keys</source>
        <translation>手势与按键</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::MainWindow</name>
    <message>
        <source>File, view and process</source>
        <translation>文件、视图与处理</translation>
    </message>
    <message>
        <source>Draw and measure</source>
        <translation>绘制与测量</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Text lines</source>
        <translation>多行文字</translation>
    </message>
    <message>
        <source>Lines of the box:</source>
        <translation>文字框的内容：</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>&lt;h3&gt;Vostel Viewer %1&lt;/h3&gt;&lt;p&gt;Shows pictures and raw data on five canvases, with regions, measures and image routines.&lt;/p&gt;&lt;p&gt;Qt %2&lt;/p&gt;</source>
        <translation>&lt;h3&gt;Vostel 图像查看器 %1&lt;/h3&gt;&lt;p&gt;在五个画布上显示图片和原始数据，支持区域、测量和图像处理。&lt;/p&gt;&lt;p&gt;Qt %2&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::RecentFilesMenu</name>
    <message>
        <source>&amp;Clear the list</source>
        <translation>清空列表(&amp;C)</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::RoutineDialog</name>
    <message>
        <source>Second image:</source>
        <translation>第二幅图像：</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>运行(&amp;R)</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1：</translation>
    </message>
</context>
<context>
    <name>vostel::viewer::StatusLine</name>
    <message>
        <source>value %1</source>
        <translation>值 %1</translation>
    </message>
    <message>
        <source>no image</source>
        <translation>无图像</translation>
    </message>
</context>
<context>
    <name>vostel::widget::RawLayoutDialog</name>
    <message>
        <source>%1, header %2</source>
        <translation>%1，文件头 %2</translation>
    </message>
    <message>
        <source>Layout of the raw file</source>
        <translation>原始数据文件格式</translation>
    </message>
    <message>
        <source>File:</source>
        <translation>文件：</translation>
    </message>
    <message>
        <source>%1, %2 bytes</source>
        <translation>%1，%2 字节</translation>
    </message>
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
        <source>&amp;Type:</source>
        <translation>类型(&amp;T)：</translation>
    </message>
    <message>
        <source>&amp;Sizes that fit:</source>
        <translation>符合的尺寸(&amp;S)：</translation>
    </message>
    <message>
        <source>&amp;Width (px):</source>
        <translation>宽度（像素）(&amp;W)：</translation>
    </message>
    <message>
        <source>&amp;Height (px):</source>
        <translation>高度（像素）(&amp;H)：</translation>
    </message>
    <message>
        <source>Header (&amp;bytes):</source>
        <translation>文件头（字节）(&amp;B)：</translation>
    </message>
    <message>
        <source>&amp;Map to 8-bit gray</source>
        <translation>映射到 8 位灰度(&amp;M)</translation>
    </message>
    <message>
        <source>Samples from</source>
        <translation>数据从</translation>
    </message>
    <message>
        <source>to</source>
        <translation>到</translation>
    </message>
    <message>
        <source>Gray from</source>
        <translation>灰度从</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>This is too large to be shown.</source>
        <translation>尺寸过大，无法显示。</translation>
    </message>
    <message>
        <source>The length of the file is not known.</source>
        <translation>文件长度未知。</translation>
    </message>
    <message>
        <source>Fits the file exactly.</source>
        <translation>与文件长度完全一致。</translation>
    </message>
    <message>
        <source>The file is %1 bytes short: what is missing becomes 0.</source>
        <translation>文件短少 %1 字节：缺少的部分为 0。</translation>
    </message>
    <message>
        <source>The file has %1 bytes more, which are not read.</source>
        <translation>文件多出 %1 字节，不会读取。</translation>
    </message>
</context>
<context>
    <name>vostel::widget::RegionDialog</name>
    <message>
        <source>Rectangle in image pixels</source>
        <translation>矩形（图像像素）</translation>
    </message>
    <message>
        <source>&amp;Left:</source>
        <translation>左(&amp;L)：</translation>
    </message>
    <message>
        <source>&amp;Right:</source>
        <translation>右(&amp;R)：</translation>
    </message>
    <message>
        <source>&amp;Top:</source>
        <translation>上(&amp;T)：</translation>
    </message>
    <message>
        <source>&amp;Bottom:</source>
        <translation>下(&amp;B)：</translation>
    </message>
    <message>
        <source>The image has %1 × %2 pixels.</source>
        <translation>图像大小为 %1 × %2 像素。</translation>
    </message>
    <message>
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 像素</translation>
    </message>
    <message>
        <source>Right must be beyond left, and bottom below top.</source>
        <translation>右须大于左，下须大于上。</translation>
    </message>
</context>
<context>
    <name>vostel::widget::ValueDialog</name>
    <message>
        <source>&amp;Text:</source>
        <translation>文字(&amp;T)：</translation>
    </message>
    <message>
        <source>&amp;Length of one image pixel, in the unit that lengths are to have:</source>
        <translation>每个图像像素的长度，以所需长度单位计(&amp;L)：</translation>
    </message>
    <message>
        <source>Text on the image</source>
        <translation>图像上的文字</translation>
    </message>
    <message>
        <source>Scale of the measures</source>
        <translation>测量比例尺</translation>
    </message>
</context>
</TS>
