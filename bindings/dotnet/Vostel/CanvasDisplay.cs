using System;
using System.Runtime.InteropServices;

namespace Vostel
{
    public sealed unsafe partial class Canvas
    {
        /// <summary>The window: low becomes the darkest and high the brightest shade. A display matter.</summary>
        public Contrast Contrast
        {
            get
            {
                Contrast window = new Contrast();
                Call(canvas => Native.vostel_contrast_get(canvas, out window.Low, out window.High));
                return window;
            }
            set { Call(canvas => Native.vostel_contrast_set(canvas, value.Low, value.High)); }
        }

        /// <summary>Sets the window to two percentiles of the finite values, 0 to 100.</summary>
        public void ContrastPercentiles(double lowPercent, double highPercent)
            => Call(canvas => Native.vostel_contrast_percentiles(canvas, lowPercent, highPercent));

        /// <summary>shown = ((v - low) / (high - low))^(1 / gamma); above 0.</summary>
        public void ContrastGamma(double gamma) => Call(canvas => Native.vostel_contrast_gamma(canvas, gamma));

        /// <summary>The color map, one of <see cref="Library.ContrastMapNames"/>.</summary>
        public void ContrastMap(string name)
        {
            byte[] map = Utf8.Encoded(name, nameof(name));
            Call(canvas => Native.vostel_contrast_map(canvas, map));
        }

        /// <summary>
        /// Colors of values below and above the window and of those that are not finite, 0xAARRGGBB; alpha 0: none.
        /// </summary>
        public void ContrastMarks(uint below, uint above, uint notFinite)
            => Call(canvas => Native.vostel_contrast_marks(canvas, below, above, notFinite));

        /// <summary>A window inside a region alone; low equal to high ends it.</summary>
        public void ContrastOfObject(VostelObject region, double low, double high)
        {
            ulong id = IdOf(region, nameof(region));
            Call(canvas => Native.vostel_contrast_of_object(canvas, id, low, high));
        }

        /// <summary>Window, gamma and marks.</summary>
        public ContrastInfo ContrastInfo
        {
            get
            {
                ContrastInfo info = new ContrastInfo { Size = Sizes<ContrastInfo>.Bytes };
                Call(canvas => Native.vostel_contrast_info(canvas, ref info));
                return info;
            }
        }

        /// <summary>The name of the color map.</summary>
        public string ContrastMapName => TextOf(Native.vostel_contrast_map_name);

        /// <summary>The window inside a region alone; null where there is none.</summary>
        public Contrast? ContrastWindowOfObject(VostelObject region)
        {
            ulong id = IdOf(region, nameof(region));
            Contrast window = new Contrast();
            Call(canvas => Native.vostel_contrast_window_of_object(canvas, id, out window.Low, out window.High));
            return window.Low < window.High ? window : (Contrast?)null;
        }

        /// <summary>
        /// Counts values of the image or of a region. With w = (high - low) / bins, bin k counts
        /// low + k w &lt;= v &lt; low + (k + 1) w, and v equal to high falls into the last.
        /// </summary>
        public ulong[] Histogram(double low, double high, int bins, VostelObject region = null, int channel = 0)
        {
            if (bins < 1 || bins > 1 << 24)
                throw new ArgumentOutOfRangeException(nameof(bins));
            ulong id = region == null ? 0 : IdOf(region, nameof(region));
            ulong[] counts = new ulong[bins];
            using (CanvasUse use = Handle.Use())
                fixed (ulong* first = counts)
                    VostelException.Check(
                        Native.vostel_histogram(use.Number, id, channel, low, high, bins, first));
            return counts;
        }

        /// <summary>Scale and place of the image in the area.</summary>
        public View View
        {
            get
            {
                View view = new View { Size = Sizes<View>.Bytes };
                Call(canvas => Native.vostel_view_get(canvas, ref view));
                return view;
            }
            set
            {
                View view = value;
                view.Size = Sizes<View>.Bytes;
                Call(canvas => Native.vostel_view_set(canvas, ref view));
            }
        }

        /// <summary>Shows the whole image, centred, as large as the area allows.</summary>
        public void ViewFit() => Call(Native.vostel_view_fit);

        /// <summary>Scale 1, centred.</summary>
        public void ViewActual() => Call(Native.vostel_view_actual);

        /// <summary>Multiplies the scale; the client point keeps its image point.</summary>
        public void ViewZoom(double factor, Point client)
            => Call(canvas => Native.vostel_view_zoom(canvas, factor, client.X, client.Y));

        /// <summary>The image point under a client point.</summary>
        public Point ViewToImage(Point client)
        {
            Point image = new Point();
            Call(canvas => Native.vostel_view_to_image(canvas, client.X, client.Y, out image.X, out image.Y));
            return image;
        }

        /// <summary>The client point of an image point.</summary>
        public Point ViewToClient(Point image)
        {
            Point client = new Point();
            Call(canvas => Native.vostel_view_to_client(canvas, image.X, image.Y, out client.X, out client.Y));
            return client;
        }

        /// <summary>Pixels are averaged and interpolated; else the nearest one shows.</summary>
        public void ViewSetSmooth(bool smooth)
            => Call(canvas => Native.vostel_view_set_smooth(canvas, smooth ? 1 : 0));

        /// <summary>
        /// Keeps the scale and the image point in the middle of two canvases and their groups the same, at first
        /// those of the other one. With itself a canvas leaves its group.
        /// </summary>
        public void ViewLink(Canvas with)
        {
            if (with == null)
                throw new ArgumentNullException(nameof(with));
            Handle.Link(with.Handle);
        }

        /// <summary>Draws what the area shows: a copy, 0x00RRGGBB each.</summary>
        public Plane<uint> FrameRender()
        {
            Plane<uint> copy = null;
            FrameRender(frame =>
            {
                copy = new Plane<uint>(frame.Width, frame.Height);
                for (int y = 0; y < frame.Height; ++y)
                    frame.Row<uint>(y).CopyTo(copy.Row(y));
            });
            return copy;
        }

        /// <summary>
        /// Draws what the area shows and has it read without a copy, as <see cref="ImagePlane"/> does.
        /// </summary>
        public void FrameRender(Action<LentPlane> reader)
        {
            if (reader == null)
                throw new ArgumentNullException(nameof(reader));
            NativeFrame frame = new NativeFrame { Size = Sizes<NativeFrame>.Bytes };
            using (CanvasUse use = Handle.Use())
            {
                VostelException.Check(Native.vostel_frame_render(use.Number, ref frame));
                Handle.Lend(new LentPlane(new NativePlane
                {
                    Type = PixelType.Bgra8,
                    Width = frame.Width,
                    Height = frame.Height,
                    RowBytes = frame.RowBytes,
                    Data = frame.Pixels
                }), reader);
            }
        }

        /// <summary>Draws into the caller's memory: BGRA of the size of the area, alpha 255.</summary>
        public void FrameRenderTo(Span<byte> bgra, int width, int height, int rowBytes = 0)
        {
            PixelTypes.CheckRoom(bgra.Length, PixelType.Bgra8, width, height, rowBytes);
            fixed (byte* pixels = &MemoryMarshal.GetReference(bgra))
                FrameRenderTo((IntPtr)pixels, width, height, rowBytes);
        }

        /// <summary>Draws at an address, such as that of a locked bitmap. Nothing checks the memory.</summary>
        public void FrameRenderTo(IntPtr bgra, int width, int height, long rowBytes)
        {
            NativePlane target = BgraPlane(bgra, width, height, rowBytes);
            Call(canvas => Native.vostel_frame_render_to(canvas, ref target));
        }

        private static NativePlane BgraPlane(IntPtr data, int width, int height, long rowBytes)
        {
            return new NativePlane
            {
                Size = Sizes<NativePlane>.Bytes,
                Type = PixelType.Bgra8,
                Width = width,
                Height = height,
                RowBytes = new IntPtr(rowBytes),
                Data = data
            };
        }

        /// <summary>Writes the whole image at a scale; the ending tells the format, such as png or pdf.</summary>
        public void PictureSave(string path, double scale = 1.0,
            PictureFlags flags = PictureFlags.WithObjects | PictureFlags.WithCaptions)
        {
            byte[] name = Path(path);
            Call(canvas => Native.vostel_picture_save(canvas, name, scale, (uint)flags));
        }

        /// <summary>
        /// Draws what <see cref="PictureSave"/> writes into the caller's memory: BGRA of the image's size times the
        /// scale, rounded, alpha 255.
        /// </summary>
        public void PictureRenderTo(Span<byte> bgra, int width, int height, double scale = 1.0,
            PictureFlags flags = PictureFlags.WithObjects | PictureFlags.WithCaptions, int rowBytes = 0)
        {
            PixelTypes.CheckRoom(bgra.Length, PixelType.Bgra8, width, height, rowBytes);
            using (CanvasUse use = Handle.Use())
                fixed (byte* pixels = &MemoryMarshal.GetReference(bgra))
                {
                    NativePlane target = BgraPlane((IntPtr)pixels, width, height, rowBytes);
                    VostelException.Check(
                        Native.vostel_picture_render_to(use.Number, scale, (uint)flags, ref target));
                }
        }

        /// <summary>The left button went down.</summary>
        public void EventPress(Point client, InputFlags flags = InputFlags.None)
            => Call(canvas => Native.vostel_event_press(canvas, client.X, client.Y, (uint)flags));

        /// <summary>The left button went up.</summary>
        public void EventRelease(Point client, InputFlags flags = InputFlags.None)
            => Call(canvas => Native.vostel_event_release(canvas, client.X, client.Y, (uint)flags));

        /// <summary>The pointer moved.</summary>
        public void EventMove(Point client, InputFlags flags = InputFlags.None)
            => Call(canvas => Native.vostel_event_move(canvas, client.X, client.Y, (uint)flags));

        /// <summary>The wheel turned, forwards for positive steps.</summary>
        public void EventWheel(Point client, double steps, InputFlags flags = InputFlags.None)
            => Call(canvas => Native.vostel_event_wheel(canvas, client.X, client.Y, steps, (uint)flags));

        /// <summary>A key went down; a letter's code is that of the capital, others are those of Windows.</summary>
        public void EventKey(uint key, InputFlags flags = InputFlags.None)
            => Call(canvas => Native.vostel_event_key(canvas, key, (uint)flags));

        /// <summary>Which letter keys act: "ACDERS" at first on created canvases.</summary>
        public void EventKeys(string letters)
        {
            byte[] text = Utf8.Encoded(letters, nameof(letters));
            Call(canvas => Native.vostel_event_keys(canvas, text));
        }
    }
}
