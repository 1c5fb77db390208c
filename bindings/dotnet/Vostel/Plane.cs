using System;
using System.Runtime.InteropServices;

namespace Vostel
{
    /// <summary>
    /// Samples of one channel, row after row from the top: <see cref="byte"/>, <see cref="ushort"/>,
    /// <see cref="short"/> or <see cref="float"/> of images, <see cref="int"/> of labels and <see cref="uint"/> of
    /// frames.
    /// </summary>
    public sealed class Plane<T> where T : struct
    {
        /// <summary>Of zeros.</summary>
        public Plane(int width, int height) : this(new T[Count(width, height)], width, height)
        {
        }

        /// <summary>Of an array with width times height samples or more, which is not copied.</summary>
        public Plane(T[] samples, int width, int height)
        {
            if (samples == null)
                throw new ArgumentNullException(nameof(samples));
            if (samples.Length < Count(width, height))
                throw new ArgumentException("the array has fewer samples than the plane", nameof(samples));
            Samples = samples;
            Width = width;
            Height = height;
        }

        /// <summary>A copy of an array of rows.</summary>
        public Plane(T[,] rows)
        {
            if (rows == null)
                throw new ArgumentNullException(nameof(rows));
            Height = rows.GetLength(0);
            Width = rows.GetLength(1);
            Samples = new T[rows.Length];
            for (int y = 0; y < Height; ++y)
                for (int x = 0; x < Width; ++x)
                    Samples[y * Width + x] = rows[y, x];
        }

        /// <summary>Px.</summary>
        public int Width { get; }
        /// <summary>Rows.</summary>
        public int Height { get; }
        /// <summary>Row after row; that of a plane which was made of an array.</summary>
        public T[] Samples { get; }

        /// <summary>The sample of a pixel, checked.</summary>
        public T this[int x, int y]
        {
            get { return Samples[Place(x, y)]; }
            set { Samples[Place(x, y)] = value; }
        }

        /// <summary>The samples of one row.</summary>
        public Span<T> Row(int y) => new Span<T>(Samples, Place(0, y), Width);

        private int Place(int x, int y)
        {
            if (x < 0 || x >= Width)
                throw new ArgumentOutOfRangeException(nameof(x));
            if (y < 0 || y >= Height)
                throw new ArgumentOutOfRangeException(nameof(y));
            return y * Width + x;
        }

        internal Span<byte> Bytes => MemoryMarshal.AsBytes(new Span<T>(Samples));

        internal NativePlane Native(IntPtr data) => new NativePlane
        {
            Size = (uint)Marshal.SizeOf<NativePlane>(),
            Type = PixelTypes.Of<T>(),
            Width = Width,
            Height = Height,
            Data = data
        };

        private static int Count(int width, int height)
        {
            if (width < 0)
                throw new ArgumentOutOfRangeException(nameof(width));
            if (height < 0)
                throw new ArgumentOutOfRangeException(nameof(height));
            return checked(width * height);
        }
    }

    internal static class PixelTypes
    {
        internal static PixelType Of<T>()
        {
            if (typeof(T) == typeof(byte))
                return PixelType.U8;
            if (typeof(T) == typeof(ushort))
                return PixelType.U16;
            if (typeof(T) == typeof(short))
                return PixelType.I16;
            if (typeof(T) == typeof(float))
                return PixelType.F32;
            throw new NotSupportedException("images have samples of byte, ushort, short or float: " + typeof(T));
        }

        internal static int Bytes(PixelType type)
        {
            switch (type)
            {
                case PixelType.U8: return 1;
                case PixelType.U16: case PixelType.I16: return 2;
                case PixelType.Rgb8: case PixelType.Bgr8: return 3;
                case PixelType.F32: case PixelType.Bgra8: return 4;
                default: throw new ArgumentOutOfRangeException(nameof(type));
            }
        }

        // Throws where a caller's memory has fewer bytes than rows of this form take. 0 rowBytes: tightly packed.
        internal static void CheckRoom(int room, PixelType type, int width, int height, int rowBytes)
        {
            if (width <= 0 || height <= 0)
                return;    // refused by the library
            long row = (long)width * Bytes(type);
            if (rowBytes < 0)
                throw new ArgumentOutOfRangeException(nameof(rowBytes), "rows of a span lie from the top downwards");
            long distance = rowBytes == 0 ? row : rowBytes;
            if (distance < row)
                throw new ArgumentOutOfRangeException(nameof(rowBytes), "the rows overlap");
            if (room < distance * (height - 1) + row)
                throw new ArgumentException("the memory is smaller than the rows");
        }
    }
}
