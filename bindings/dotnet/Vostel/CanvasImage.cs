using System;
using System.Runtime.InteropServices;

namespace Vostel
{
    public sealed unsafe partial class Canvas
    {
        /// <summary>Size, type and range of the image; null without one.</summary>
        public ImageInfo? ImageInfo
        {
            get
            {
                ImageInfo info = new ImageInfo { Size = Sizes<ImageInfo>.Bytes };
                using (CanvasUse use = Handle.Use())
                    return VostelException.Found(Native.vostel_image_info(use.Number, ref info), Status.NoImage)
                        ? info : (ImageInfo?)null;
            }
        }

        /// <summary>Shows gray samples, which are copied.</summary>
        public void ImageShow<T>(Plane<T> plane, ShowFlags flags = ShowFlags.None) where T : struct
        {
            if (plane == null)
                throw new ArgumentNullException(nameof(plane));
            ImageShow(PixelTypes.Of<T>(), plane.Bytes, plane.Width, plane.Height, 0, flags);
        }

        /// <summary>Shows samples of any type, which are copied.</summary>
        /// <param name="type">of the samples</param>
        /// <param name="data">from the top row</param>
        /// <param name="width">px</param>
        /// <param name="height">rows</param>
        /// <param name="rowBytes">from a row to the one below; 0: tightly packed</param>
        /// <param name="flags">what stays</param>
        public void ImageShow(PixelType type, ReadOnlySpan<byte> data, int width, int height, int rowBytes = 0,
            ShowFlags flags = ShowFlags.None)
        {
            PixelTypes.CheckRoom(data.Length, type, width, height, rowBytes);
            fixed (byte* samples = &MemoryMarshal.GetReference(data))
                ImageShow(type, (IntPtr)samples, width, height, rowBytes, flags);
        }

        /// <summary>
        /// Shows samples at an address, such as that of a locked bitmap, which are copied. Nothing checks the memory;
        /// the distance of rows may be negative.
        /// </summary>
        public void ImageShow(PixelType type, IntPtr data, int width, int height, long rowBytes,
            ShowFlags flags = ShowFlags.None)
        {
            Call(canvas => Native.vostel_image_show(canvas, type, data, width, height, new IntPtr(rowBytes),
                (uint)flags));
        }

        /// <summary>Shows a picture file, told by its content.</summary>
        public void ImageOpen(string path, ShowFlags flags = ShowFlags.None)
        {
            byte[] name = Path(path);
            Call(canvas => Native.vostel_image_open(canvas, name, (uint)flags));
        }

        /// <summary>Shows one page or frame, from 0.</summary>
        public void ImageOpenPage(string path, int page, ShowFlags flags = ShowFlags.None)
        {
            byte[] name = Path(path);
            Call(canvas => Native.vostel_image_open_page(canvas, name, page, (uint)flags));
        }

        /// <summary>Shows samples of a file without a header.</summary>
        public void ImageOpenRaw(string path, RawLayout layout, ShowFlags flags = ShowFlags.None)
        {
            byte[] name = Path(path);
            layout.Size = Sizes<RawLayout>.Bytes;
            Call(canvas => Native.vostel_image_open_raw(canvas, name, ref layout, (uint)flags));
        }

        /// <summary>Of the pixel that covers the point; null outside the image.</summary>
        /// <param name="x">image px</param>
        /// <param name="y">image px</param>
        /// <param name="channel">0 the value or the luma; 1, 2, 3 red, green, blue</param>
        public double? ImageValue(double x, double y, int channel = 0)
        {
            double value = 0.0;
            return Found(canvas => Native.vostel_image_value(canvas, channel, x, y, out value))
                ? value : (double?)null;
        }

        /// <summary>A copy of the values, of <see cref="float"/> or <see cref="byte"/>.</summary>
        public Plane<T> ImageCopy<T>() where T : struct
        {
            using (CanvasUse use = Handle.Use())
            {
                Plane<T> copy = WholeImage<T>(use.Number);
                fixed (byte* samples = &MemoryMarshal.GetReference(copy.Bytes))
                    VostelException.Check(
                        Native.vostel_image_copy(use.Number, PixelTypes.Of<T>(), (IntPtr)samples, IntPtr.Zero));
                return copy;
            }
        }

        /// <summary>
        /// Has the samples read as they came, without a copy. The reader cannot call the canvas: that throws
        /// <see cref="InvalidOperationException"/>.
        /// </summary>
        public void ImagePlane(Action<LentPlane> reader)
        {
            if (reader == null)
                throw new ArgumentNullException(nameof(reader));
            NativePlane plane = new NativePlane { Size = Sizes<NativePlane>.Bytes };
            using (CanvasUse use = Handle.Use())
            {
                VostelException.Check(Native.vostel_image_plane(use.Number, ref plane));
                Handle.Lend(new LentPlane(plane), reader);
            }
        }
    }
}
