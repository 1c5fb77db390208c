using System;
using System.IO;
using Vostel;

internal static class ObjectCases
{
    private static readonly Point[] Triangle = { new Point(1, 1), new Point(7, 1), new Point(1, 5) };

    public static void RegionsMeasureAndMask()
    {
        using (Canvas canvas = CanvasCases.OfRamp())
        {
            VostelObject region = canvas.AddRectangle(2, 1, 5, 3);
            Measures measures = region.Measure();
            Check.Equal(measures.Pixels, 6L);
            Check.Equal(measures.Area, 6.0);
            Check.Equal(measures.Perimeter, 10.0);
            Check.Equal(measures.Mean, 18.0);
            Check.Equal(measures.Median, 18.0);
            Check.Equal(new Point(measures.CentroidX, measures.CentroidY), new Point(3.5, 2));
            Check.Equal(measures.Valid,
                MeasureFlags.HasPixels | MeasureFlags.HasArea | MeasureFlags.HasValues | MeasureFlags.HasShape);
            Plane<byte> mask = region.Mask();
            Check.Equal(string.Join(" ", mask.Row(1).ToArray()), "0 0 255 255 255 0 0 0");
            Check.Equal(mask[2, 0], (byte)0);
            canvas.SetScale(0.5, "mm");
            Check.Equal(region.Measure().Area, 1.5);
            VostelObject ellipse = canvas.AddEllipse(0, 0, 8, 6);
            Check.Close(ellipse.Measure().Area, Math.PI * 12 * 0.25, 1e-12);
            Check.Equal(ellipse.Flags, ObjectFlags.Ellipse);
            region.Label = 7;
            Plane<int> labels = canvas.Labels();
            Check.Equal(labels[0, 0], 0);
            Check.Equal(labels[3, 2], ellipse.Label);
            ellipse.Flags |= ObjectFlags.NoLabel;
            Check.Equal(canvas.Labels()[3, 2], 7);
        }
    }

    public static void EveryKindCanBeAdded()
    {
        using (Canvas canvas = CanvasCases.OfRamp())
        {
            Point a = new Point(1, 1), b = new Point(5, 4), c = new Point(7, 1), d = new Point(2, 5);
            VostelObject[] added =
            {
                canvas.AddRectangle(1, 1, 2, 2), canvas.AddEllipse(1, 1, 4, 4), canvas.AddPolygon(Triangle),
                canvas.AddSpline(a, b, c), canvas.AddFreeRegion(a, b, c), canvas.AddText(a, "héllo 文字"),
                canvas.AddFreeStrokes(a, b), canvas.AddLength(a, b), canvas.AddAngle(a, b, c),
                canvas.AddAngleLines(a, b, c, d), canvas.AddPanel(a), canvas.AddNeighbours(a),
                canvas.AddProfile(a, b), canvas.AddPoints(a, b, c), canvas.AddPolyline(a, b, c), canvas.AddArrow(a, b)
            };
            Check.Equal(string.Join(" ", Array.ConvertAll(added, each => each.Kind)),
                "Rectangle Rectangle Polygon Spline FreeRegion Text FreeStrokes Length Angle AngleLines Panel " +
                "Neighbours Profile Points Polyline Arrow");
            Check.Equal(string.Join(", ", (object[])canvas.Objects), string.Join(", ", (object[])added));
            Check.Equal(added[5].Text, "héllo 文字");
            Check.Equal(added[7].Measure().Length, 5.0);
            Check.Equal(added[13].Measure().Pixels, 3L);
            Check.Fails(Status.InvalidArgument, () => canvas.AddPolygon(a, b));
            Check.Fails(Status.InvalidArgument, () => canvas.AddLength(a, new Point(double.NaN, 0)));
            Check.Fails(Status.InvalidArgument, () => canvas.ObjectAdd((ObjectKind)99, Triangle));
            Check.Equal(canvas.Objects.Length, added.Length);
        }
    }

    public static void ObjectsHaveNamesStylesAndPlaces()
    {
        using (Canvas canvas = CanvasCases.OfRamp())
        {
            VostelObject region = canvas.AddPolygon(Triangle), top = canvas.AddRectangle(0, 0, 4, 4);
            region.Name = "bore 孔";
            Check.Equal(region.Name, "bore 孔");
            region.Name = new string('x', 3000);
            Check.Equal(region.Name.Length, 3000);
            Style style = region.Style;
            style.LineColor = 0x123456;
            style.LineWidth = 2.5;
            region.Style = style;
            Check.Equal(region.Style.LineColor, 0x123456u);
            Check.Equal(region.Style.LineWidth, 2.5);
            Check.Equal(region.Points, Triangle);
            Point[] moved = Array.ConvertAll(Triangle, point => new Point(point.X + 0.5, point.Y));
            region.Points = moved;
            Check.Equal(region.Points, moved);
            Check.Equal(region.Outline, moved);
            Check.Equal(region.Index, 0);
            region.Index = 1;
            Check.Equal(canvas.Objects[0], top);
            Check.Throws<ArgumentOutOfRangeException>(() => region.Index = -1);
            canvas.Select(region, top);
            Check.Equal(canvas.Selection.Length, 2);
            canvas.Select();
            Check.True(!region.Selected && canvas.Selection.Length == 0);
            region.Flags = ObjectFlags.Locked;
            Check.True(canvas.ObjectAt(canvas.ViewToClient(new Point(2, 2))) == top, "not on top");
            region.Remove();
            Check.Fails(Status.NotFound, () => region.Measure());
            Check.Throws<ArgumentNullException>(() => canvas.Mask(null));
        }
    }

    public static void ObjectsAreEqualByCanvasAndNumber()
    {
        using (Canvas canvas = CanvasCases.OfRamp(), other = CanvasCases.OfRamp())
        {
            VostelObject region = canvas.AddPolygon(Triangle);
            Check.True(canvas.Objects[0] == region && canvas.Objects[0].GetHashCode() == region.GetHashCode());
            Check.True(region != null && region != canvas.AddPolygon(Triangle));
            Check.True(Canvas.FromNumber(canvas.Number).ObjectOf(region.Id).Equals(region));
            Check.Throws<ArgumentException>(() => other.Mask(region));
            Check.Throws<ArgumentException>(() => other.Select(region));
        }
    }

    public static void ProfilesAndTables()
    {
        using (Canvas canvas = CanvasCases.OfRamp())
        {
            VostelObject line = canvas.AddProfile(new Point(0.5, 2.5), new Point(5.5, 2.5));
            Profile profile = line.Profile();
            Check.Equal(profile.Values, 20.0, 21.0, 22.0, 23.0, 24.0, 25.0);
            Check.Equal(profile.Length, 5.0);
            Check.Equal(profile.Mean, 22.5);
            Check.Equal(line.Profile(3.0).Values[0], 20.0);
            for (int i = 0; i < 40; ++i)
                canvas.AddRectangle(i % 7, 1, i % 7 + 1, 3).Name = "r" + i;
            string[] rows = canvas.Table().Split(new[] { "\r\n" }, StringSplitOptions.RemoveEmptyEntries);
            Check.Equal(rows.Length, 42);
            Check.True(rows[0].StartsWith("object,name,kind,label,unit"), rows[0]);
            Check.True(canvas.Table("json").Contains("\"r39\""));
            Check.Fails(Status.NotSupported, () => canvas.Table("xls"));
        }
    }

    public static void StepsAreTakenBackAndBroughtAgain()
    {
        using (Canvas canvas = CanvasCases.OfRamp())
        {
            Check.True(!canvas.Undo() && !canvas.Redo() && canvas.HistoryName(-1) == null);
            VostelObject region;
            using (canvas.Step("drawn at once"))
            {
                region = canvas.AddPolygon(Triangle);
                region.Name = "named";
            }
            Check.Equal(canvas.HistoryName(-1), "drawn at once");
            Check.Equal(canvas.HistoryInfo.UndoCount, 1u);
            Check.True(canvas.Undo());
            Check.Equal(canvas.Objects.Length, 0);
            Check.True(canvas.Redo());
            Check.Equal(canvas.Objects[0], region);
            Check.Equal(region.Name, "named");
            canvas.HistoryLimit(0);
            Check.Equal(canvas.HistoryInfo.Limit, 0UL);
            Check.Fails(Status.NotFound, canvas.HistoryEnd);
            HistoryStep step = canvas.Step("left open");
            canvas.Dispose();
            step.Dispose();
        }
    }

    public static void SessionsAndRegionsComeBack()
    {
        using (Canvas canvas = new Canvas(320, 240), other = new Canvas(320, 240))
        {
            canvas.ImageOpen(Path.Combine(Program.Samples, "coins.png"));
            canvas.AddPolygon(new Point(10, 10), new Point(90, 12), new Point(50, 80)).Name = "孔";
            canvas.AddLength(new Point(0, 0), new Point(30, 40));
            canvas.SessionSave("part.vostel.json");
            other.SessionOpen("part.vostel.json");
            Check.Equal(other.Table(), canvas.Table().Replace("\r\n" + canvas.Objects[0].Id + ",",
                "\r\n" + other.Objects[0].Id + ",").Replace("\r\n" + canvas.Objects[1].Id + ",",
                "\r\n" + other.Objects[1].Id + ","));
            canvas.RegionsExport("part.json");
            Check.Equal(other.RegionsImport("part.json"), 2);
            Check.Equal(other.Objects.Length, 4);
            canvas.RegionsExport("regions", "geojson");
            Check.Equal(other.RegionsImport("regions", "geojson"), 2);
            Check.Fails(Status.NotSupported, () => canvas.RegionsExport("part.xyz"));
            other.ImageShow(CanvasCases.Ramp());
            other.SessionOpen("part.vostel.json", SessionFlags.SessionOnImage);
            Check.Equal(other.ImageInfo.Value.Width, 8);
            Check.Equal(other.Objects[0].Name, "孔");
            File.WriteAllText("bad.vostel.json", "{");
            Check.Fails(Status.BadFormat, () => other.SessionOpen("bad.vostel.json"));
            Check.Equal(other.Objects.Length, 2);
        }
    }

    public static void GesturesDrawAndMove()
    {
        using (Canvas canvas = CanvasCases.OfRamp())
        {
            canvas.View = new View(10.0, 20.0, 10.0);
            VostelObject drawn = canvas.DrawNext(ObjectKind.Length);
            canvas.EventPress(new Point(30, 20), InputFlags.Shift);
            canvas.EventMove(new Point(60, 60), InputFlags.Shift | InputFlags.LeftButton);
            canvas.EventRelease(new Point(60, 60), InputFlags.Shift);
            canvas.EventPress(new Point(60, 60), InputFlags.Shift);
            canvas.EventRelease(new Point(60, 60), InputFlags.Shift);
            Check.Equal(drawn.Points, new Point(1, 1), new Point(4, 5));
            Check.Equal(drawn.Measure().Length, 5.0);
            double scale = canvas.View.Scale;
            canvas.EventWheel(new Point(60, 60), 1, InputFlags.Control);
            Check.True(canvas.View.Scale > scale, "not zoomed");
            canvas.EventKeys("R");
            canvas.Select(drawn);
            canvas.EventKey('R');
            Check.Equal(canvas.Objects.Length, 0);
        }
    }

    public static void RoutinesWorkOnPlanes()
    {
        Plane<float> image = CanvasCases.Ramp(), same = new Plane<float>(8, 6), doubled = new Plane<float>(16, 12);
        Plane<float> one = new Plane<float>(new float[,] { { 0, 0, 0 }, { 0, 1, 0 }, { 0, 0, 0 } });
        Routines.Correlate(image, one, same);
        Check.Equal(same.Samples, image.Samples);
        Routines.Gaussian(image, 3, 1.0, same);
        Check.Close(same[3, 3], 33, 1e-4);
        Routines.Resize(image, doubled);
        Check.Equal(doubled[0, 0], 0f);
        Plane<byte> black = new Plane<byte>(8, 6);
        Routines.AdaptiveThreshold(image, 3, 1.0, black);
        Check.True(Array.TrueForAll(black.Samples, value => value == 0 || value == 255));
        Plane<float> joined = new Plane<float>(14, 6);
        Routines.Stitch(image, image, 2, joined);
        Check.Equal(joined[1, 2], 21f);
        Routines.RampFilter(image, 15, 1.0, same);
        Check.Fails(Status.InvalidArgument, () => Routines.Resize(image, new Plane<float>(0, 0)));
        Check.Fails(Status.InvalidArgument, () => Routines.Correlate(image, one, doubled));
        Check.Throws<ArgumentNullException>(() => Routines.Resize<float, float>(image, null));
        System.IO.File.WriteAllBytes("words.raw", new byte[] { 9, 1, 0, 2, 0 });
        RawLayout layout = new RawLayout { Type = PixelType.U16, Width = 2, Height = 1, Offset = 1 };
        Plane<float> kept = new Plane<float>(2, 1);
        Routines.ReadRaw("words.raw", layout, kept);
        Check.Equal(kept.Samples, 1f, 2f);
        Check.Fails(Status.InvalidArgument, () => Routines.ReadRaw("words.raw", layout, same));
        double[] real = { 1, 0, 0, 0 }, imaginary = new double[4];
        Routines.Fft(real, imaginary);
        Check.Equal(real, 1.0, 1.0, 1.0, 1.0);
        Routines.Fft(real, imaginary, true);
        Check.Equal(real, 1.0, 0.0, 0.0, 0.0);
        Check.Throws<ArgumentException>(() => Routines.Fft(real, new double[2]));
    }
}
