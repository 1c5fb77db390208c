using System;
using System.Runtime.InteropServices;

namespace Vostel
{
    /// <summary>
    /// Routines on planes of <see cref="byte"/>, <see cref="ushort"/> or <see cref="float"/>, from any thread. The
    /// result gives its own size and type; values are truncated and held within its range.
    /// </summary>
    public static unsafe class Routines
    {
        private delegate Status Filter(ref NativePlane image, ref NativePlane result);

        /// <summary>Correlates an image with a kernel; the result has the size of the image.</summary>
        public static void Correlate<TImage, TKernel, TResult>(Plane<TImage> image, Plane<TKernel> kernel,
            Plane<TResult> result) where TImage : struct where TKernel : struct where TResult : struct
        {
            WithSecond(image, kernel, result, Native.vostel_correlate);
        }

        /// <summary>Smooths by a Gaussian kernel of size x size.</summary>
        public static void Gaussian<TImage, TResult>(Plane<TImage> image, int size, double sigma,
            Plane<TResult> result) where TImage : struct where TResult : struct
        {
            Run(image, result, (ref NativePlane from, ref NativePlane to) =>
                Native.vostel_gaussian(ref from, size, sigma, ref to));
        }

        /// <summary>Scales an image to the size of the result.</summary>
        public static void Resize<TImage, TResult>(Plane<TImage> image, Plane<TResult> result)
            where TImage : struct where TResult : struct
        {
            Run(image, result, Native.vostel_resize);
        }

        /// <summary>
        /// 255 where a pixel is brighter than the constant times the mean of the size x size around it, else 0. Works
        /// on bytes: other samples are truncated and held within 0 and 255.
        /// </summary>
        public static void AdaptiveThreshold<TImage, TResult>(Plane<TImage> image, int size, double constant,
            Plane<TResult> result) where TImage : struct where TResult : struct
        {
            Run(image, result, (ref NativePlane from, ref NativePlane to) =>
                Native.vostel_adaptive_threshold(ref from, size, constant, ref to));
        }

        /// <summary>Joins two images that overlap by so many columns, equalised there; 0, or 2 and more.</summary>
        public static void Stitch<TLeft, TRight, TResult>(Plane<TLeft> left, Plane<TRight> right, int overlap,
            Plane<TResult> result) where TLeft : struct where TRight : struct where TResult : struct
        {
            WithSecond(left, right, result, (ref NativePlane a, ref NativePlane b, ref NativePlane to) =>
                Native.vostel_stitch(ref a, ref b, overlap, ref to));
        }

        /// <summary>
        /// Filters each row by the ramp of a reconstruction, cut to so many taps; twice the width less 1 are all.
        /// </summary>
        public static void RampFilter<TRows, TResult>(Plane<TRows> rows, int kernelLength, double spacing,
            Plane<TResult> result) where TRows : struct where TResult : struct
        {
            Run(rows, result, (ref NativePlane from, ref NativePlane to) =>
                Native.vostel_ramp_filter(ref from, kernelLength, spacing, ref to));
        }

        /// <summary>
        /// Reads gray samples of a file without a header into the result, which has the size of the layout and may
        /// serve for the next file too.
        /// </summary>
        public static void ReadRaw<TResult>(string path, RawLayout layout, Plane<TResult> result)
            where TResult : struct
        {
            byte[] name = Utf8.Encoded(path, nameof(path));
            Given(result, nameof(result));
            layout.Size = Sizes<RawLayout>.Bytes;
            fixed (byte* results = &MemoryMarshal.GetReference(result.Bytes))
            {
                NativePlane to = result.Native((IntPtr)results);
                VostelException.Check(Native.vostel_read_raw(name, ref layout, ref to));
            }
        }

        /// <summary>Transforms in place; both have the same length, a power of two. The inverse is scaled.</summary>
        public static void Fft(Span<double> real, Span<double> imaginary, bool inverse = false)
        {
            if (real.Length != imaginary.Length)
                throw new ArgumentException("real and imaginary differ in length", nameof(imaginary));
            fixed (double* reals = &MemoryMarshal.GetReference(real))
            fixed (double* imaginaries = &MemoryMarshal.GetReference(imaginary))
                VostelException.Check(
                    Native.vostel_fft(reals, imaginaries, (UIntPtr)(uint)real.Length, inverse ? 1 : 0));
        }

        private delegate Status FilterWithSecond(ref NativePlane image, ref NativePlane second,
            ref NativePlane result);

        private static void Run<TImage, TResult>(Plane<TImage> image, Plane<TResult> result, Filter filter)
            where TImage : struct where TResult : struct
        {
            Given(image, nameof(image));
            Given(result, nameof(result));
            fixed (byte* samples = &MemoryMarshal.GetReference(image.Bytes))
            fixed (byte* results = &MemoryMarshal.GetReference(result.Bytes))
            {
                NativePlane from = image.Native((IntPtr)samples);
                NativePlane to = result.Native((IntPtr)results);
                VostelException.Check(filter(ref from, ref to));
            }
        }

        private static void WithSecond<TImage, TSecond, TResult>(Plane<TImage> image, Plane<TSecond> second,
            Plane<TResult> result, FilterWithSecond filter)
            where TImage : struct where TSecond : struct where TResult : struct
        {
            Given(second, nameof(second));
            fixed (byte* samples = &MemoryMarshal.GetReference(second.Bytes))
            {
                NativePlane other = second.Native((IntPtr)samples);
                Run(image, result, (ref NativePlane from, ref NativePlane to) => filter(ref from, ref other, ref to));
            }
        }

        private static void Given(object plane, string argument)
        {
            if (plane == null)
                throw new ArgumentNullException(argument);
        }
    }
}
