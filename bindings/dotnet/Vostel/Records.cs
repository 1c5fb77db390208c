using System;
using System.Runtime.InteropServices;

namespace Vostel
{
    /// <summary>A point in image or client px; x to the right, y downwards.</summary>
    [StructLayout(LayoutKind.Sequential)]
    public struct Point : IEquatable<Point>
    {
        /// <summary>To the right.</summary>
        public double X;
        /// <summary>Downwards.</summary>
        public double Y;

        /// <summary>At these coordinates.</summary>
        public Point(double x, double y)
        {
            X = x;
            Y = y;
        }

        /// <summary>The same coordinates.</summary>
        public bool Equals(Point other) => X.Equals(other.X) && Y.Equals(other.Y);
        /// <summary>The same coordinates.</summary>
        public override bool Equals(object other) => other is Point && Equals((Point)other);
        /// <summary>Of the coordinates.</summary>
        public override int GetHashCode() => X.GetHashCode() * 31 + Y.GetHashCode();
        /// <summary>Such as "(10, 20)", the same in every language.</summary>
        public override string ToString() => FormattableString.Invariant($"({X}, {Y})");
        /// <summary>The same coordinates.</summary>
        public static bool operator ==(Point a, Point b) => a.Equals(b);
        /// <summary>Other coordinates.</summary>
        public static bool operator !=(Point a, Point b) => !a.Equals(b);
    }

    /// <summary>Limits of what is taken from files and callers. 0 keeps the default.</summary>
    [StructLayout(LayoutKind.Sequential)]
    public struct Limits
    {
        internal uint Size;
        /// <summary>Px, width or height of an image.</summary>
        public int MaxSide;
        /// <summary>Of an image.</summary>
        public long MaxPixels;
        /// <summary>Of a file that is opened.</summary>
        public long MaxFileBytes;
        /// <summary>That a routine uses at once.</summary>
        public int MaxThreads;
        /// <summary>Bytes that reading a picture may take.</summary>
        public long MaxMemory;
    }

    /// <summary>How samples lie in a file without a header of its own.</summary>
    [StructLayout(LayoutKind.Sequential)]
    public struct RawLayout
    {
        internal uint Size;
        /// <summary>Of the samples.</summary>
        public PixelType Type;
        /// <summary>Px.</summary>
        public int Width;
        /// <summary>Rows.</summary>
        public int Height;
        /// <summary>Bytes before the first sample.</summary>
        public long Offset;
        internal int BigEndian;

        /// <summary>Whether the higher byte comes first.</summary>
        public bool IsBigEndian
        {
            get { return BigEndian != 0; }
            set { BigEndian = value ? 1 : 0; }
        }
    }

    /// <summary>What holds for all that a canvas draws.</summary>
    [StructLayout(LayoutKind.Sequential)]
    public struct CanvasInfo
    {
        internal uint Size;
        /// <summary>Device px of the area; 0 of one that has none yet.</summary>
        public int Width;
        /// <summary>Device px.</summary>
        public int Height;
        internal int Smooth;
        /// <summary>Device px per unit of the host's layout.</summary>
        public double PixelRatio;

        /// <summary>Whether pixels are averaged and interpolated.</summary>
        public bool IsSmooth => Smooth != 0;
    }

    /// <summary>How values become shades, beside the color map.</summary>
    [StructLayout(LayoutKind.Sequential)]
    public struct ContrastInfo
    {
        internal uint Size;
        /// <summary>0xAARRGGBB of values below the window; alpha 0: none.</summary>
        public uint Below;
        /// <summary>Of values above the window.</summary>
        public uint Above;
        /// <summary>Of values that are not finite.</summary>
        public uint NotFinite;
        /// <summary>Becomes the darkest shade.</summary>
        public double Low;
        /// <summary>Becomes the brightest shade.</summary>
        public double High;
        /// <summary>Above 0.</summary>
        public double Gamma;
    }

    /// <summary>What is shown.</summary>
    [StructLayout(LayoutKind.Sequential)]
    public struct ImageInfo
    {
        internal uint Size;
        /// <summary>Of the samples as they came.</summary>
        public PixelType Type;
        /// <summary>Px.</summary>
        public int Width;
        /// <summary>Px.</summary>
        public int Height;
        /// <summary>Lowest finite value, of channel 0; 0 where there is none.</summary>
        public double Min;
        /// <summary>Highest finite value.</summary>
        public double Max;
        /// <summary>Number of samples that are not finite.</summary>
        public long NotFinite;
    }

    /// <summary>Where the image lies in the canvas's area.</summary>
    [StructLayout(LayoutKind.Sequential)]
    public struct View
    {
        internal uint Size;
        /// <summary>Client px per image px, above 0.</summary>
        public double Scale;
        /// <summary>Client x of image point 0,0; whole. Setting comes within one of what was asked.</summary>
        public double Left;
        /// <summary>Client y of image point 0,0; whole.</summary>
        public double Top;

        /// <summary>Scale and place.</summary>
        public View(double scale, double left, double top)
        {
            Size = 0;
            Scale = scale;
            Left = left;
            Top = top;
        }
    }

    /// <summary>How an object is drawn.</summary>
    [StructLayout(LayoutKind.Sequential)]
    public struct Style
    {
        internal uint Size;
        /// <summary>0xRRGGBB.</summary>
        public uint LineColor;
        /// <summary>0xRRGGBB, of the lines while it is selected.</summary>
        public uint SelectedColor;
        /// <summary>0xRRGGBB.</summary>
        public uint HandleColor;
        /// <summary>0xAARRGGBB, of a region's inside; alpha 0: none.</summary>
        public uint FillColor;
        /// <summary>Px, above 0.</summary>
        public double LineWidth;
        /// <summary>Px, from 1, rounded to a whole one; of texts and captions.</summary>
        public double TextHeight;
    }

    /// <summary>What is to be said of an object in a few numbers.</summary>
    [StructLayout(LayoutKind.Sequential)]
    public struct ObjectInfo
    {
        internal uint Size;
        /// <summary>Of the object.</summary>
        public ObjectKind Kind;
        /// <summary>Hidden, locked and others.</summary>
        public ObjectFlags Flags;
        /// <summary>Number of a region in <see cref="Canvas.Labels"/>, from 1; 0 for other kinds.</summary>
        public int Label;
        internal int Selected;
        /// <summary>In drawing order; the last lies on top.</summary>
        public ulong Index;
        /// <summary>Number of points.</summary>
        public ulong PointCount;
        /// <summary>Bounds of the exact outline, image px.</summary>
        public double Left;
        /// <summary>Bounds.</summary>
        public double Top;
        /// <summary>Bounds.</summary>
        public double Right;
        /// <summary>Bounds.</summary>
        public double Bottom;

        /// <summary>Whether the object is selected.</summary>
        public bool IsSelected => Selected != 0;
    }

    /// <summary>
    /// What can be measured of an object. Lengths and areas are in units of the scale, places in image px; a field
    /// without a meaning for the kind, which <see cref="Valid"/> tells, is 0.
    /// </summary>
    [StructLayout(LayoutKind.Sequential)]
    public struct Measures
    {
        internal uint Size;
        /// <summary>The fields that have a meaning for the kind.</summary>
        public MeasureFlags Valid;
        /// <summary>Centres inside the region and the image; number of counted marks.</summary>
        public long Pixels;
        /// <summary>Values left out of the statistics.</summary>
        public long NotFinite;
        /// <summary>Of the even-odd interior of the exact outline.</summary>
        public double Area;
        /// <summary>Of the exact outline.</summary>
        public double Perimeter;
        /// <summary>Of lines.</summary>
        public double Length;
        /// <summary>Degrees, 0 to 180.</summary>
        public double Angle;
        /// <summary>Of the even-odd interior; of lines and marks, their mean place.</summary>
        public double CentroidX;
        /// <summary>Centroid.</summary>
        public double CentroidY;
        /// <summary>Bounds of the exact outline.</summary>
        public double Left;
        /// <summary>Bounds.</summary>
        public double Top;
        /// <summary>Bounds.</summary>
        public double Right;
        /// <summary>Bounds.</summary>
        public double Bottom;
        /// <summary>Of the finite values at the pixels inside.</summary>
        public double Mean;
        /// <summary>Standard deviation with n - 1 in the denominator; 0 for one value.</summary>
        public double Sd;
        /// <summary>Lowest value.</summary>
        public double Min;
        /// <summary>Highest value.</summary>
        public double Max;
        /// <summary>Of the values.</summary>
        public double Sum;
        /// <summary>The middle value, or the mean of the middle two.</summary>
        public double Median;
        /// <summary>Widest caliper.</summary>
        public double FeretMax;
        /// <summary>Narrowest caliper.</summary>
        public double FeretMin;
        /// <summary>4 pi area / perimeter^2; 0 without a perimeter.</summary>
        public double Circularity;
    }

    /// <summary>What the history holds.</summary>
    [StructLayout(LayoutKind.Sequential)]
    public struct HistoryInfo
    {
        internal uint Size;
        /// <summary>Steps that can be taken back.</summary>
        public uint UndoCount;
        /// <summary>Steps that can be brought again.</summary>
        public uint RedoCount;
        /// <summary>What the steps hold.</summary>
        public ulong Bytes;
        /// <summary>Bytes beyond which the oldest steps go; 0: no history is kept.</summary>
        public ulong Limit;
    }

    /// <summary>The samples of a line, with what is said of them.</summary>
    public sealed class Profile
    {
        internal Profile(NativeProfile numbers, double[] values)
        {
            Length = numbers.Length;
            Spacing = numbers.Spacing;
            Min = numbers.Min;
            Max = numbers.Max;
            Mean = numbers.Mean;
            Values = values;
        }

        /// <summary>Image px.</summary>
        public double Length { get; }
        /// <summary>Image px between samples; 0 for a single one.</summary>
        public double Spacing { get; }
        /// <summary>Of the finite samples; not a number where there is none.</summary>
        public double Min { get; }
        /// <summary>Of the finite samples.</summary>
        public double Max { get; }
        /// <summary>Of the finite samples.</summary>
        public double Mean { get; }
        /// <summary>One a pixel of the length, not a number outside the image.</summary>
        public double[] Values { get; }
    }

    /// <summary>Low and high values of a contrast window.</summary>
    public struct Contrast : IEquatable<Contrast>
    {
        /// <summary>What becomes the darkest shade.</summary>
        public double Low;
        /// <summary>What becomes the brightest shade.</summary>
        public double High;

        /// <summary>From low to high.</summary>
        public Contrast(double low, double high)
        {
            Low = low;
            High = high;
        }

        /// <summary>The same window.</summary>
        public bool Equals(Contrast other) => Low.Equals(other.Low) && High.Equals(other.High);
        /// <summary>The same window.</summary>
        public override bool Equals(object other) => other is Contrast && Equals((Contrast)other);
        /// <summary>Of both values.</summary>
        public override int GetHashCode() => Low.GetHashCode() * 31 + High.GetHashCode();
        /// <summary>Such as "0 to 255", the same in every language.</summary>
        public override string ToString() => FormattableString.Invariant($"{Low} to {High}");
    }
}
