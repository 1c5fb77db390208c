using System;
using System.Runtime.InteropServices;

namespace Vostel
{
    /// <summary>
    /// Memory of a canvas, which is lent for the length of a call and read without a copy. Afterwards it throws
    /// <see cref="ObjectDisposedException"/>; spans of its rows are not to be kept.
    /// </summary>
    public sealed unsafe class LentPlane
    {
        private readonly IntPtr rowBytes;
        private IntPtr data;

        internal LentPlane(NativePlane plane)
        {
            Type = plane.Type;
            Width = plane.Width;
            Height = plane.Height;
            rowBytes = plane.RowBytes;
            data = plane.Data;
        }

        /// <summary>Of the samples.</summary>
        public PixelType Type { get; }
        /// <summary>Px.</summary>
        public int Width { get; }
        /// <summary>Rows.</summary>
        public int Height { get; }

        /// <summary>One row as bytes; 0 is the top row.</summary>
        public ReadOnlySpan<byte> Row(int y)
        {
            if (data == IntPtr.Zero)
                throw new ObjectDisposedException(nameof(LentPlane), "the memory was lent for the length of a call");
            if (y < 0 || y >= Height)
                throw new ArgumentOutOfRangeException(nameof(y));
            return new ReadOnlySpan<byte>((byte*)data + (long)rowBytes * y, checked(Width * PixelTypes.Bytes(Type)));
        }

        /// <summary>One row as samples, such as <see cref="float"/> of <see cref="PixelType.F32"/>.</summary>
        public ReadOnlySpan<T> Row<T>(int y) where T : struct => MemoryMarshal.Cast<byte, T>(Row(y));

        internal void End() => data = IntPtr.Zero;
    }
}
