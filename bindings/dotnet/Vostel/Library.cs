using System;

namespace Vostel
{
    /// <summary>The library as a whole.</summary>
    public static unsafe class Library
    {
        /// <summary>
        /// An exception that a listener threw. The call that caused the event goes on, since exceptions cannot pass
        /// through the library.
        /// </summary>
        public static event Action<Exception> ListenerFailed;

        /// <summary>Such as "1.1.0".</summary>
        public static string Version => Utf8.Decoded(Native.vostel_version());

        /// <summary>
        /// What the last call of this thread had to say of a success, such as what a format could not hold; else
        /// empty.
        /// </summary>
        public static string LastMessage => Utf8.Decoded(Native.vostel_last_message());

        /// <summary>Those in force; set, fields of 0 get their default.</summary>
        public static Limits Limits
        {
            get
            {
                Limits limits = new Limits { Size = Sizes<Limits>.Bytes };
                VostelException.Check(Native.vostel_get_limits(ref limits));
                return limits;
            }
            set
            {
                value.Size = Sizes<Limits>.Bytes;
                VostelException.Check(Native.vostel_set_limits(ref value));
            }
        }

        /// <summary>The name of a status in C, such as "VOSTEL_NOT_FOUND".</summary>
        public static string StatusName(Status status) => Utf8.Decoded(Native.vostel_status_name(status));

        /// <summary>Number of pages of a TIFF or frames of a GIF; 1 of other pictures.</summary>
        public static int ImagePages(string path)
        {
            VostelException.Check(Native.vostel_image_pages(Utf8.Encoded(path, nameof(path)), out int pages));
            return pages;
        }

        /// <summary>What <see cref="Canvas.ContrastMap"/> takes.</summary>
        public static string[] ContrastMapNames()
        {
            return Utf8.TextOf(Native.vostel_contrast_map_names)
                .Split(new[] { '\n' }, StringSplitOptions.RemoveEmptyEntries);
        }

        internal static void ReportListenerFailure(Exception exception)
        {
            try
            {
                ListenerFailed?.Invoke(exception);
            }
            catch (Exception)
            {
                // Nobody is left to be told.
            }
        }
    }

    // What records begin with.
    internal static class Sizes<T> where T : struct
    {
        internal static readonly uint Bytes = (uint)System.Runtime.InteropServices.Marshal.SizeOf<T>();
    }
}
