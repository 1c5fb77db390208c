using System;
using System.Collections.Concurrent;

namespace Vostel
{
    /// <summary>
    /// A canvas with an image, a view and objects drawn over it: made with an area of its own, which needs no window,
    /// and gone when it is disposed of, or borrowed by its number. Calls on it from several threads wait for each
    /// other. What an instance does after <see cref="Dispose"/> throws <see cref="ObjectDisposedException"/>.
    /// </summary>
    public sealed unsafe partial class Canvas : IDisposable
    {
        internal readonly CanvasHandle Handle;
        internal readonly ConcurrentDictionary<int, Subscription> Subscriptions =
            new ConcurrentDictionary<int, Subscription>();

        internal delegate Status ListCall(int canvas, IntPtr list, UIntPtr capacity, out UIntPtr count);
        internal delegate Status TextCall(int canvas, byte* buffer, UIntPtr capacity, out UIntPtr length);

        /// <summary>Of so many client px.</summary>
        public Canvas(int width, int height)
        {
            CanvasHandle.DestroyLate();
            VostelException.Check(Native.vostel_canvas_create(width, height, out int number));
            Handle = new CanvasHandle(number, true);
        }

        private Canvas(int number)
        {
            Handle = new CanvasHandle(number, false);
        }

        /// <summary>One that exists: 0 to 4 always do. Disposing of it does not end the canvas.</summary>
        public static Canvas FromNumber(int number)
        {
            if (number < 0)
                throw new ArgumentOutOfRangeException(nameof(number));
            return new Canvas(number);
        }

        /// <summary>What the calls of C take; never used twice.</summary>
        public int Number => Handle.Number;

        /// <summary>Ends a canvas that was made, with everything on it; twice does nothing.</summary>
        public void Dispose() => Handle.End();

        /// <summary>Gives the area another size; scale and the image point in the middle stay.</summary>
        public void Resize(int width, int height)
            => Call(canvas => Native.vostel_canvas_resize(canvas, width, height));

        /// <summary>Device px per unit of the host's layout, 0.25 to 16; pens and fonts grow with it.</summary>
        public void SetPixelRatio(double ratio)
            => Call(canvas => Native.vostel_canvas_set_pixel_ratio(canvas, ratio));

        /// <summary>Language of captions and read-outs: "zh", as at first, or "en".</summary>
        public void SetLanguage(string language)
        {
            byte[] text = Utf8.Encoded(language, nameof(language));
            Call(canvas => Native.vostel_canvas_set_language(canvas, text));
        }

        /// <summary>Language of captions and read-outs.</summary>
        public string Language => TextOf(Native.vostel_canvas_language);

        /// <summary>Size of the area, smoothing, pixel ratio.</summary>
        public CanvasInfo Info
        {
            get
            {
                CanvasInfo info = new CanvasInfo { Size = Sizes<CanvasInfo>.Bytes };
                Call(canvas => Native.vostel_canvas_get(canvas, ref info));
                return info;
            }
        }

        /// <summary>Such as "canvas 5".</summary>
        public override string ToString() => "canvas " + Number;

        internal void Call(Func<int, Status> call)
        {
            using (CanvasUse use = Handle.Use())
                VostelException.Check(call(use.Number));
        }

        internal bool Found(Func<int, Status> call)
        {
            using (CanvasUse use = Handle.Use())
                return VostelException.Found(call(use.Number));
        }

        internal T[] ListOf<T>(ListCall call) where T : struct
        {
            using (CanvasUse use = Handle.Use())
            {
                int number = use.Number;
                return Utf8.ListOf<T>((IntPtr list, UIntPtr capacity, out UIntPtr count) =>
                    call(number, list, capacity, out count));
            }
        }

        internal string TextOf(TextCall call)
        {
            using (CanvasUse use = Handle.Use())
            {
                int number = use.Number;
                return Utf8.TextOf((byte* buffer, UIntPtr capacity, out UIntPtr length) =>
                    call(number, buffer, capacity, out length));
            }
        }

        // With a canvas in use, so that its image stays meanwhile.
        private static Plane<T> WholeImage<T>(int canvas) where T : struct
        {
            ImageInfo info = new ImageInfo { Size = Sizes<ImageInfo>.Bytes };
            VostelException.Check(Native.vostel_image_info(canvas, ref info));
            return new Plane<T>(info.Width, info.Height);
        }

        private static byte[] Path(string path) => Utf8.Encoded(path, nameof(path));
    }
}
