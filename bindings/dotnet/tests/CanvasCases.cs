using System;
using System.IO;
using System.Runtime.InteropServices;
using Vostel;

internal static class CanvasCases
{
    // 8 wide, 6 high: value x + 10 y.
    internal static Plane<float> Ramp()
    {
        Plane<float> ramp = new Plane<float>(8, 6);
        for (int y = 0; y < 6; ++y)
            for (int x = 0; x < 8; ++x)
                ramp[x, y] = x + 10 * y;
        return ramp;
    }

    internal static Canvas OfRamp()
    {
        Canvas canvas = new Canvas(160, 120);
        canvas.ImageShow(Ramp());
        return canvas;
    }

    public static void TheLibraryHasAVersionAndNames()
    {
        Check.True(Library.Version.StartsWith("1."), Library.Version);
        Check.Equal(Library.StatusName(Status.NotFound), "VOSTEL_NOT_FOUND");
        Check.True(Array.IndexOf(Library.ContrastMapNames(), "viridis") >= 0);
    }

    public static void CanvasesCountUpAndEndOnce()
    {
        Canvas first = new Canvas(10, 10), second = new Canvas(10, 10);
        Check.True(first.Number >= 5 && second.Number > first.Number);
        Check.Equal(first.ToString(), "canvas " + first.Number);
        first.Dispose();
        first.Dispose();
        second.Dispose();
        Canvas borrowed = Canvas.FromNumber(second.Number);
        Check.Fails(Status.NotFound, borrowed.ViewFit);
        using (Canvas standing = Canvas.FromNumber(0))
            standing.Resize(64, 48);
        Canvas.FromNumber(0).Resize(64, 48);
        Check.Throws<ArgumentOutOfRangeException>(() => Canvas.FromNumber(-1));
    }

    public static void WhatWasSetIsReadBack()
    {
        using (Canvas canvas = OfRamp())
        {
            canvas.SetPixelRatio(1.25);
            canvas.SetLanguage("en");
            canvas.ViewSetSmooth(false);
            Check.True(canvas.Info.Width == 160 && canvas.Info.PixelRatio == 1.25 && !canvas.Info.IsSmooth);
            Check.Equal(canvas.Language, "en");
            canvas.ContrastMap("fire");
            canvas.ContrastMarks(1, 2, 3);
            Check.Equal(canvas.ContrastMapName, "fire");
            Check.True(canvas.ContrastInfo.NotFinite == 3 && canvas.ContrastInfo.Gamma == 1);
            VostelObject region = canvas.AddRectangle(1, 1, 3, 3);
            Check.True(canvas.ContrastWindowOfObject(region) == null);
            canvas.ContrastOfObject(region, 2, 5);
            Check.Equal(canvas.ContrastWindowOfObject(region).Value.High, 5.0);
            canvas.SetScale(0.5, "\u00b5m");
            Check.Equal(canvas.GetScale(out double units), "\u00b5m");
            Check.Equal(units, 0.5);
            Check.Equal(canvas.RegionsAddText(canvas.RegionsText(region)), 1);
            byte[] pixels = new byte[4 * 16 * 12];
            canvas.PictureRenderTo(pixels, 16, 12, 2);
            Check.Equal(pixels[3], (byte)255);
        }
    }

    public static void ADisposedCanvasThrows()
    {
        Canvas canvas = OfRamp();
        VostelObject region = canvas.AddRectangle(1, 1, 3, 3);
        canvas.Dispose();
        Check.Throws<ObjectDisposedException>(canvas.ViewFit);
        Check.Throws<ObjectDisposedException>(() => canvas.ImageShow(Ramp()));
        Check.Throws<ObjectDisposedException>(() => region.Measure());
        Check.Throws<ObjectDisposedException>(() => canvas.FrameRender());
        Check.Throws<ObjectDisposedException>(() => canvas.Listen(EventTypes.All, happened => { }));
        Check.Throws<ObjectDisposedException>(() => OfRamp().ViewLink(canvas));
        Check.Throws<ObjectDisposedException>(() => canvas.Undo());
    }

    public static void ImagesComeBackAsTheyWent()
    {
        using (Canvas canvas = new Canvas(100, 100))
        {
            Check.True(canvas.ImageInfo == null);
            Check.Fails(Status.NoImage, () => canvas.ImageCopy<float>());
            Plane<float> ramp = Ramp();
            ramp[2, 1] = float.NaN;
            canvas.ImageShow(ramp);
            ImageInfo info = canvas.ImageInfo.Value;
            Check.Equal(info.Type, PixelType.F32);
            Check.Equal(info.Width + " " + info.Height + " " + info.Min + " " + info.Max, "8 6 0 57");
            Check.Equal(info.NotFinite, 1L);
            Check.Equal(canvas.ImageCopy<float>().Samples, ramp.Samples);
            Check.Equal(canvas.ImageCopy<byte>()[7, 5], (byte)57);
            Check.Equal(canvas.ImageValue(3.5, 2.5), (double?)23.0);
            Check.True(canvas.ImageValue(8.5, 2.5) == null);

            canvas.ImageShow(new Plane<ushort>(new ushort[,] { { 1, 60000 }, { 3, 4 } }));
            Check.Equal(canvas.ImageInfo.Value.Max, 60000.0);
            canvas.ImageShow(new Plane<short>(new short[,] { { -5, 6 } }));
            Check.Equal(canvas.ImageInfo.Value.Min, -5.0);
            canvas.ImageShow(PixelType.Rgb8, new byte[] { 10, 20, 30, 0, 40, 50, 60, 0 }, 1, 2, 4);
            Check.Equal(canvas.ImageValue(0, 1, 2), (double?)50.0);
            Check.Throws<NotSupportedException>(() => canvas.ImageShow(new Plane<long>(2, 2)));
            Check.Throws<NotSupportedException>(() => canvas.ImageCopy<long>());
        }
    }

    public static void SamplesAtAnAddressMayLieUpsideDown()
    {
        using (Canvas canvas = new Canvas(100, 100))
        {
            byte[] rows = { 1, 2, 3, 4 };
            GCHandle pinned = GCHandle.Alloc(rows, GCHandleType.Pinned);
            canvas.ImageShow(PixelType.U8, pinned.AddrOfPinnedObject() + 2, 2, 2, -2);
            pinned.Free();
            Check.Equal(canvas.ImageCopy<byte>().Samples, (byte)3, (byte)4, (byte)1, (byte)2);
        }
    }

    public static void MemoryThatIsTooSmallIsRefused()
    {
        using (Canvas canvas = OfRamp())
        {
            Check.Throws<ArgumentException>(() => canvas.ImageShow(PixelType.U16, new byte[7], 2, 2));
            Check.Throws<ArgumentException>(() => canvas.ImageShow(PixelType.U8, new byte[7], 2, 2, 6));
            Check.Throws<ArgumentOutOfRangeException>(() => canvas.ImageShow(PixelType.U8, new byte[9], 4, 2, 3));
            Check.Throws<ArgumentOutOfRangeException>(() => canvas.ImageShow(PixelType.U8, new byte[9], 2, 2, -2));
            Check.Throws<ArgumentException>(() => canvas.FrameRenderTo(new byte[160 * 120 * 4 - 1], 160, 120));
            Check.Throws<ArgumentException>(() => new Plane<byte>(new byte[5], 2, 3));
            Check.Throws<ArgumentOutOfRangeException>(() => new Plane<byte>(-1, 3));
            Check.Throws<OverflowException>(() => new Plane<byte>(1 << 20, 1 << 20));
            Check.Throws<ArgumentOutOfRangeException>(() => Ramp()[8, 0].ToString());
            Check.Fails(Status.InvalidArgument, () => canvas.ImageShow(PixelType.U8, new byte[4], -2, 2));
            Check.Equal(canvas.ImageInfo.Value.Width, 8);
        }
    }

    public static void ThePlaneIsLentWithoutACopy()
    {
        using (Canvas canvas = OfRamp())
        {
            float sum = 0;
            LentPlane kept = null;
            canvas.ImagePlane(plane =>
            {
                kept = plane;
                Check.Equal(plane.Type + " " + plane.Width + " " + plane.Height, "F32 8 6");
                for (int y = 0; y < plane.Height; ++y)
                    foreach (float value in plane.Row<float>(y))
                        sum += value;
                Check.Throws<InvalidOperationException>(() => canvas.ImageShow(Ramp()));
                Check.Throws<ArgumentOutOfRangeException>(() => plane.Row(6));
                GC.Collect();
            });
            Check.Equal(sum, 48 * 28.5f);
            Check.Throws<ObjectDisposedException>(() => kept.Row(0));
            Check.Throws<CheckException>(() => canvas.ImagePlane(plane =>
            {
                throw new CheckException("of the reader");
            }));
            canvas.ImageShow(Ramp());    // is not lent any more
        }
    }

    public static void FilesOpenByContentAndSave()
    {
        string coins = Path.Combine(Program.Samples, "coins.png");
        using (Canvas canvas = new Canvas(320, 240))
        {
            canvas.ImageOpen(coins);
            Check.Equal(canvas.ImageInfo.Value.Width, 384);
            Check.Equal(Library.ImagePages(coins), 1);
            canvas.ImageOpenPage(coins, 0);
            Check.Fails(Status.NotFound, () => canvas.ImageOpenPage(coins, 1));
            Check.Fails(Status.NotRead, () => canvas.ImageOpen("图像 är inte där.png"));
            canvas.PictureSave("图像 één.png", 0.5);
            canvas.ImageOpen("图像 één.png");
            Check.Equal(canvas.ImageInfo.Value.Width, 192);
            File.WriteAllBytes("samples.raw", new byte[] { 9, 9, 1, 0, 2, 0 });
            canvas.ImageOpenRaw("samples.raw", new RawLayout
            {
                Type = PixelType.U16, Width = 2, Height = 1, Offset = 2, IsBigEndian = true
            });
            Check.Equal(canvas.ImageCopy<float>().Samples, 256f, 512f);
            Check.Fails(Status.BadFormat, () => canvas.ImageOpenRaw("samples.raw", new RawLayout
            {
                Type = PixelType.U16, Width = 20, Height = 1
            }));
        }
    }

    public static void ContrastChangesWhatIsShownAlone()
    {
        using (Canvas canvas = OfRamp())
        {
            Check.Equal(canvas.Contrast, new Contrast(0, 57));
            canvas.Contrast = new Contrast(10, 20);
            Check.Equal(canvas.Contrast.ToString(), "10 to 20");
            Check.Fails(Status.InvalidArgument, () => canvas.Contrast = new Contrast(20, 10));
            canvas.ContrastPercentiles(0, 100);
            Check.Equal(canvas.Contrast, new Contrast(0, 57));
            canvas.ContrastGamma(2.0);
            canvas.ContrastMap("viridis");
            canvas.ContrastMarks(0xFF0000FF, 0xFFFF0000, 0);
            Check.Fails(Status.NotFound, () => canvas.ContrastMap("no such map"));
            canvas.ContrastOfObject(canvas.AddRectangle(1, 1, 3, 3), 0, 10);
            Check.Equal(canvas.ImageCopy<float>().Samples, Ramp().Samples);
            ulong[] counts = canvas.Histogram(0, 60, 6);
            Check.Equal(counts, 8UL, 8UL, 8UL, 8UL, 8UL, 8UL);
            Check.Equal(canvas.Histogram(0, 60, 2, canvas.Objects[0]), 4UL, 0UL);
            Check.Throws<ArgumentOutOfRangeException>(() => canvas.Histogram(0, 60, 0));
        }
    }

    public static void TheViewPansZoomsAndLinks()
    {
        using (Canvas canvas = OfRamp())
        using (Canvas other = OfRamp())
        {
            canvas.View = new View(4.0, 16.0, 12.0);
            Check.Equal(canvas.View.Scale, 4.0);
            Check.Equal(canvas.ViewToClient(new Point(2, 3)), new Point(24, 24));
            Check.Equal(canvas.ViewToImage(new Point(24, 24)), new Point(2, 3));
            canvas.ViewZoom(2.0, new Point(24, 24));
            Check.Equal(canvas.ViewToImage(new Point(24, 24)), new Point(2, 3));
            other.ViewLink(canvas);
            Check.Equal(other.View.Scale, 8.0);
            canvas.ViewActual();
            Check.Equal(other.View.Scale, 1.0);
            other.ViewLink(other);
            canvas.ViewFit();
            Check.Equal(other.View.Scale, 1.0);
            canvas.ViewSetSmooth(true);
            canvas.SetPixelRatio(2.0);
            canvas.SetLanguage("en");
            Check.Fails(Status.NotFound, () => canvas.SetLanguage("xx"));
        }
    }

    public static void FramesAreTheSameByEachWay()
    {
        using (Canvas canvas = OfRamp())
        {
            canvas.AddRectangle(1, 1, 5, 4);
            canvas.ViewFit();
            Plane<uint> frame = canvas.FrameRender();
            Check.Equal(frame.Width + " " + frame.Height, "160 120");
            byte[] rendered = new byte[160 * 120 * 4];
            canvas.FrameRenderTo(rendered, 160, 120);
            uint[] colors = MemoryMarshal.Cast<byte, uint>(rendered).ToArray();
            Check.Equal(Array.ConvertAll(colors, color => color & 0xFFFFFF), frame.Samples);
            Check.True(Array.TrueForAll(colors, color => color >> 24 == 255));
            Check.True(Array.Exists(frame.Samples, color => color != frame.Samples[0]), "all of one color");
        }
    }

    public static void LimitsHoldForTheProcess()
    {
        Limits before = Library.Limits;
        try
        {
            Limits less = before;
            less.MaxSide = 5;
            Library.Limits = less;
            using (Canvas canvas = new Canvas(4, 4))
                Check.Fails(Status.TooLarge, () => canvas.ImageShow(Ramp()));
        }
        finally
        {
            Library.Limits = before;
        }
    }

    public static void WrongTextsAreRefused()
    {
        using (Canvas canvas = OfRamp())
        {
            Check.Throws<ArgumentNullException>(() => canvas.ImageOpen(null));
            Check.Throws<ArgumentException>(() => canvas.ImageOpen("a\0b"));
            Check.Throws<System.Text.EncoderFallbackException>(() => canvas.ImageOpen("half a pair: \ud83d"));
            VostelException failure = Check.Throws<VostelException>(() => canvas.ImageOpen("none.png"));
            Check.True(failure.Message.Contains("none.png"), failure.Message);
        }
    }
}
