using System;

namespace Vostel
{
    /// <summary>Outcomes of calls.</summary>
    public enum Status
    {
        /// <summary>Done.</summary>
        Ok = 0,
        /// <summary>An argument cannot be what was meant.</summary>
        InvalidArgument = -1,
        /// <summary>No such canvas, object, step, name or pixel.</summary>
        NotFound = -2,
        /// <summary>The canvas shows no image.</summary>
        NoImage = -3,
        /// <summary>Not enough memory.</summary>
        OutOfMemory = -4,
        /// <summary>A file is missing or cannot be read.</summary>
        NotRead = -5,
        /// <summary>A file cannot be written.</summary>
        NotWritten = -6,
        /// <summary>The content is not what it claims to be.</summary>
        BadFormat = -7,
        /// <summary>Beyond the limits.</summary>
        TooLarge = -8,
        /// <summary>Known, but not done.</summary>
        NotSupported = -9,
        /// <summary>The buffer holds a part only.</summary>
        BufferTooSmall = -10,
        /// <summary>A fault of the library.</summary>
        Internal = -11
    }

    /// <summary>Types of samples; the colors are interleaved, in the order of their names.</summary>
    public enum PixelType
    {
        /// <summary>Gray, 8 bits.</summary>
        U8 = 1,
        /// <summary>Gray, 16 bits.</summary>
        U16 = 2,
        /// <summary>Gray, 16 bits, signed.</summary>
        I16 = 3,
        /// <summary>Gray, float.</summary>
        F32 = 4,
        /// <summary>Red, green, blue, 8 bits each.</summary>
        Rgb8 = 5,
        /// <summary>Blue, green, red.</summary>
        Bgr8 = 6,
        /// <summary>Blue, green, red and a byte that is not shown.</summary>
        Bgra8 = 7
    }

    /// <summary>Kinds of objects, and the points that they take.</summary>
    public enum ObjectKind
    {
        /// <summary>Region; 2 opposite corners, of an ellipse with <see cref="ObjectFlags.Ellipse"/>.</summary>
        Rectangle = 0,
        /// <summary>Region; 2 corners; told of custom rectangles of the classic calls.</summary>
        CustomRectangle = 1,
        /// <summary>Region; 3 corners or more.</summary>
        Polygon = 3,
        /// <summary>Region; 3 to 198 nodes of a closed curve.</summary>
        Spline = 4,
        /// <summary>Region; 3 points or more.</summary>
        FreeRegion = 5,
        /// <summary>1 point: its upper left corner.</summary>
        Text = 6,
        /// <summary>2 points or more: one stroke.</summary>
        FreeStrokes = 7,
        /// <summary>2 ends.</summary>
        Length = 8,
        /// <summary>3 points: end, vertex, end.</summary>
        Angle = 9,
        /// <summary>4 points: two lines, from first to second point.</summary>
        AngleLines = 10,
        /// <summary>1 client point: the upper left corner.</summary>
        Panel = 14,
        /// <summary>1 client point: the upper left corner.</summary>
        Neighbours = 15,
        /// <summary>2 ends.</summary>
        Profile = 16,
        /// <summary>1 point or more: counted marks.</summary>
        Points = 20,
        /// <summary>2 points or more.</summary>
        Polyline = 21,
        /// <summary>2 points: tail, head.</summary>
        Arrow = 22
    }

    /// <summary>Flags of objects.</summary>
    [Flags]
    public enum ObjectFlags : uint
    {
        /// <summary>Shown, free to be changed, with a label.</summary>
        None = 0,
        /// <summary>Not drawn, not hit, not in <see cref="Canvas.Labels"/>; still measured and masked.</summary>
        Hidden = 1,
        /// <summary>Not hit by gestures and not changed by keys; calls change it.</summary>
        Locked = 2,
        /// <summary>Of rectangles.</summary>
        Ellipse = 4,
        /// <summary>Of regions: not in <see cref="Canvas.Labels"/>.</summary>
        NoLabel = 8
    }

    /// <summary>What stays when another image is shown.</summary>
    [Flags]
    public enum ShowFlags : uint
    {
        /// <summary>The objects go and the history is empty.</summary>
        None = 0,
        /// <summary>The objects stay.</summary>
        KeepObjects = 1,
        /// <summary>The view stays, if the size is the same.</summary>
        KeepView = 2,
        /// <summary>Window, gamma, map and marks stay.</summary>
        KeepContrast = 4
    }

    /// <summary>What a saved picture shows beside the image.</summary>
    [Flags]
    public enum PictureFlags : uint
    {
        /// <summary>Nothing.</summary>
        None = 0,
        /// <summary>Objects.</summary>
        WithObjects = 1,
        /// <summary>Captions of measures.</summary>
        WithCaptions = 2,
        /// <summary>Handles of nodes.</summary>
        WithHandles = 4
    }

    /// <summary>How a session is opened.</summary>
    [Flags]
    public enum SessionFlags : uint
    {
        /// <summary>With its own image.</summary>
        None = 0,
        /// <summary>The shown image stays.</summary>
        SessionOnImage = 1
    }

    /// <summary>What is held down during an event of a window system.</summary>
    [Flags]
    public enum InputFlags : uint
    {
        /// <summary>Nothing.</summary>
        None = 0,
        /// <summary>The left button is down.</summary>
        LeftButton = 1,
        /// <summary>Shift is held.</summary>
        Shift = 4,
        /// <summary>Control is held.</summary>
        Control = 8
    }

    /// <summary>What listeners can hear of.</summary>
    [Flags]
    public enum EventTypes : uint
    {
        /// <summary>Nothing.</summary>
        None = 0,
        /// <summary>An object came.</summary>
        ObjectAdded = 1,
        /// <summary>A gesture goes on changing an object; at most once a call.</summary>
        ObjectChanging = 2,
        /// <summary>An object has another state: points, name, label, order, style.</summary>
        ObjectChanged = 4,
        /// <summary>An object went.</summary>
        ObjectRemoved = 8,
        /// <summary>Other objects are selected.</summary>
        SelectionChanged = 16,
        /// <summary>Scale or place of the image.</summary>
        ViewChanged = 32,
        /// <summary>Another image is shown.</summary>
        ImageChanged = 64,
        /// <summary>Window, gamma, map, marks or the window of a region.</summary>
        ContrastChanged = 128,
        /// <summary>Steps came or went.</summary>
        HistoryChanged = 256,
        /// <summary>The picture is not what it was; at most once a call.</summary>
        FrameStale = 512,
        /// <summary>The canvas is gone.</summary>
        CanvasDestroyed = 1024,
        /// <summary>Every one of them.</summary>
        All = 2047
    }

    /// <summary>Which measures have a meaning for the kind of an object.</summary>
    [Flags]
    public enum MeasureFlags : uint
    {
        /// <summary>None.</summary>
        None = 0,
        /// <summary>Pixels, not finite ones.</summary>
        HasPixels = 1,
        /// <summary>Area, perimeter, circularity.</summary>
        HasArea = 2,
        /// <summary>Length.</summary>
        HasLength = 4,
        /// <summary>Angle.</summary>
        HasAngle = 8,
        /// <summary>Mean, standard deviation, lowest and highest value, sum, median.</summary>
        HasValues = 16,
        /// <summary>Centroid, bounds, calipers.</summary>
        HasShape = 32
    }
}
