using System;
using System.Collections.Generic;
using System.Runtime.InteropServices;

namespace Vostel
{
    public sealed unsafe partial class Canvas
    {
        /// <summary>In drawing order: the last lies on top. A copy.</summary>
        public VostelObject[] Objects =>
            ObjectsOf((int canvas, IntPtr list, UIntPtr capacity, out UIntPtr count) =>
                Native.vostel_object_list(canvas, (ulong*)list, capacity, out count));

        /// <summary>The selected ones, in drawing order. A copy.</summary>
        public VostelObject[] Selection =>
            ObjectsOf((int canvas, IntPtr list, UIntPtr capacity, out UIntPtr count) =>
                Native.vostel_selection(canvas, (ulong*)list, capacity, out count));

        /// <summary>Makes an object on top of all others; points outside the image are taken as they are.</summary>
        public VostelObject ObjectAdd(ObjectKind kind, ReadOnlySpan<Point> points)
        {
            using (CanvasUse use = Handle.Use())
                fixed (Point* first = &MemoryMarshal.GetReference(points))
                {
                    VostelException.Check(Native.vostel_object_add(use.Number, kind, first,
                        (UIntPtr)(uint)points.Length, out ulong id));
                    return new VostelObject(this, id);
                }
        }

        /// <summary>By its edges.</summary>
        public VostelObject AddRectangle(double left, double top, double right, double bottom)
            => ObjectAdd(ObjectKind.Rectangle, new[] { new Point(left, top), new Point(right, bottom) });

        /// <summary>By the edges of its box.</summary>
        public VostelObject AddEllipse(double left, double top, double right, double bottom)
        {
            using (Step("Add ellipse"))
            {
                VostelObject ellipse = AddRectangle(left, top, right, bottom);
                ellipse.Flags = ObjectFlags.Ellipse;
                return ellipse;
            }
        }

        /// <summary>3 corners or more.</summary>
        public VostelObject AddPolygon(params Point[] points) => ObjectAdd(ObjectKind.Polygon, points);

        /// <summary>3 to 198 nodes of a closed curve.</summary>
        public VostelObject AddSpline(params Point[] points) => ObjectAdd(ObjectKind.Spline, points);

        /// <summary>3 points or more.</summary>
        public VostelObject AddFreeRegion(params Point[] points) => ObjectAdd(ObjectKind.FreeRegion, points);

        /// <summary>One stroke.</summary>
        public VostelObject AddFreeStrokes(params Point[] points) => ObjectAdd(ObjectKind.FreeStrokes, points);

        /// <summary>2 points or more.</summary>
        public VostelObject AddPolyline(params Point[] points) => ObjectAdd(ObjectKind.Polyline, points);

        /// <summary>Counted marks.</summary>
        public VostelObject AddPoints(params Point[] points) => ObjectAdd(ObjectKind.Points, points);

        /// <summary>Between two ends.</summary>
        public VostelObject AddLength(Point a, Point b) => ObjectAdd(ObjectKind.Length, new[] { a, b });

        /// <summary>At the vertex.</summary>
        public VostelObject AddAngle(Point a, Point vertex, Point b)
            => ObjectAdd(ObjectKind.Angle, new[] { a, vertex, b });

        /// <summary>Between the directions a to b and c to d.</summary>
        public VostelObject AddAngleLines(Point a, Point b, Point c, Point d)
            => ObjectAdd(ObjectKind.AngleLines, new[] { a, b, c, d });

        /// <summary>Between two ends.</summary>
        public VostelObject AddProfile(Point a, Point b) => ObjectAdd(ObjectKind.Profile, new[] { a, b });

        /// <summary>The head lies at its second point.</summary>
        public VostelObject AddArrow(Point tail, Point head) => ObjectAdd(ObjectKind.Arrow, new[] { tail, head });

        /// <summary>By its upper left corner.</summary>
        public VostelObject AddText(Point corner, string text)
        {
            using (Step("Add text"))
            {
                VostelObject added = ObjectAdd(ObjectKind.Text, new[] { corner });
                added.Text = text;
                return added;
            }
        }

        /// <summary>At client px: a read-out of what lies under the pointer.</summary>
        public VostelObject AddPanel(Point client) => ObjectAdd(ObjectKind.Panel, new[] { client });

        /// <summary>At client px: the values around the pointer.</summary>
        public VostelObject AddNeighbours(Point client) => ObjectAdd(ObjectKind.Neighbours, new[] { client });

        /// <summary>The object by a number of this canvas; whether it exists shows in use.</summary>
        public VostelObject ObjectOf(ulong id) => new VostelObject(this, id);

        /// <summary>The object that a press at a client point would find; null for none.</summary>
        public VostelObject ObjectAt(Point client)
        {
            ulong id = 0;
            Call(canvas => Native.vostel_object_at(canvas, client.X, client.Y, out id));
            return id == 0 ? null : new VostelObject(this, id);
        }

        /// <summary>Replaces the selection.</summary>
        public void Select(params VostelObject[] objects)
        {
            if (objects == null)
                throw new ArgumentNullException(nameof(objects));
            ulong[] ids = Array.ConvertAll(objects, chosen => IdOf(chosen, nameof(objects)));
            using (CanvasUse use = Handle.Use())
                fixed (ulong* first = ids)
                    VostelException.Check(Native.vostel_select(use.Number, first, (UIntPtr)(uint)ids.Length));
        }

        /// <summary>Makes an empty, selected object that the next presses with Shift draw.</summary>
        public VostelObject DrawNext(ObjectKind kind)
        {
            ulong id = 0;
            Call(canvas => Native.vostel_draw_next(canvas, kind, out id));
            return new VostelObject(this, id);
        }

        /// <summary>The scale of all measures, also of those that stand; 1 and "px" at first.</summary>
        public void SetScale(double unitsPerPixel, string unit)
        {
            byte[] text = Utf8.Encoded(unit, nameof(unit));
            Call(canvas => Native.vostel_set_scale(canvas, unitsPerPixel, text));
        }

        /// <summary>Units per px of all measures, and their name.</summary>
        public string GetScale(out double unitsPerPixel)
        {
            double units = 1.0;
            string unit = TextOf((int canvas, byte* buffer, UIntPtr capacity, out UIntPtr length) =>
                Native.vostel_get_scale(canvas, out units, buffer, capacity, out length));
            unitsPerPixel = units;
            return unit;
        }

        /// <summary>255 inside a region and 0 outside, for the whole image.</summary>
        public Plane<byte> Mask(VostelObject region)
        {
            ulong id = IdOf(region, nameof(region));
            using (CanvasUse use = Handle.Use())
            {
                Plane<byte> mask = WholeImage<byte>(use.Number);
                fixed (byte* samples = mask.Samples)
                    VostelException.Check(Native.vostel_mask(use.Number, id, samples, IntPtr.Zero));
                return mask;
            }
        }

        /// <summary>The labels of all regions; 0 is background, and later objects lie over earlier ones.</summary>
        public Plane<int> Labels()
        {
            using (CanvasUse use = Handle.Use())
            {
                Plane<int> labels = WholeImage<int>(use.Number);
                fixed (int* samples = labels.Samples)
                    VostelException.Check(Native.vostel_labels(use.Number, samples, IntPtr.Zero));
                return labels;
            }
        }

        /// <summary>Every object with every measure, of channel 0.</summary>
        /// <param name="format">"csv", "tsv" or "json"</param>
        public string Table(string format = "csv")
        {
            byte[] name = Utf8.Encoded(format, nameof(format));
            return TextOf((int canvas, byte* buffer, UIntPtr capacity, out UIntPtr length) =>
                Native.vostel_table(canvas, name, buffer, capacity, out length));
        }

        private VostelObject[] ObjectsOf(ListCall call)
            => Array.ConvertAll(ListOf<ulong>(call), id => new VostelObject(this, id));

        // Of an object that is given to this canvas.
        private ulong IdOf(VostelObject given, string argument)
        {
            if (given == null)
                throw new ArgumentNullException(argument);
            if (given.Canvas.Number != Number)
                throw new ArgumentException(given + " lies on another canvas than " + Number, argument);
            return given.Id;
        }
    }
}
