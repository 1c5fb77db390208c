using System;

namespace Vostel
{
    /// <summary>
    /// An object on a canvas, by its number. It keeps the canvas, and has no effect on what it names: undo brings an
    /// object back under its own number. Calls on an object that is gone fail with
    /// <see cref="Status.NotFound"/>.
    /// </summary>
    public sealed unsafe class VostelObject : IEquatable<VostelObject>
    {
        internal VostelObject(Canvas canvas, ulong id)
        {
            Canvas = canvas;
            Id = id;
        }

        /// <summary>Where it lies.</summary>
        public Canvas Canvas { get; }
        /// <summary>Its number, never 0 and never used again.</summary>
        public ulong Id { get; }

        /// <summary>Kind, flags, label, selection, index, bounds.</summary>
        public ObjectInfo Info
        {
            get
            {
                ObjectInfo info = new ObjectInfo { Size = Sizes<ObjectInfo>.Bytes };
                using (CanvasUse use = Canvas.Handle.Use())
                    VostelException.Check(Native.vostel_object_get(use.Number, Id, ref info));
                return info;
            }
        }

        /// <summary>Rectangle or another kind.</summary>
        public ObjectKind Kind => Info.Kind;

        /// <summary>Whether it is.</summary>
        public bool Selected => Info.IsSelected;

        /// <summary>All of them; ellipse is for rectangles and no label for regions.</summary>
        public ObjectFlags Flags
        {
            get { return Info.Flags; }
            set { Canvas.Call(canvas => Native.vostel_object_set_flags(canvas, Id, (uint)value)); }
        }

        /// <summary>Of a region, from 1; else 0.</summary>
        public int Label
        {
            get { return Info.Label; }
            set { Canvas.Call(canvas => Native.vostel_object_set_label(canvas, Id, value)); }
        }

        /// <summary>Place in the drawing order, from 0; the last lies on top.</summary>
        public int Index
        {
            get { return checked((int)Info.Index); }
            set
            {
                if (value < 0)
                    throw new ArgumentOutOfRangeException(nameof(value));
                Canvas.Call(canvas => Native.vostel_object_move_to(canvas, Id, (UIntPtr)(uint)value));
            }
        }

        /// <summary>As <see cref="Canvas.ObjectAdd"/> takes them, a copy; set, as many as the kind takes.</summary>
        public Point[] Points
        {
            get
            {
                return Canvas.ListOf<Point>((int canvas, IntPtr list, UIntPtr capacity, out UIntPtr count) =>
                    Native.vostel_object_points(canvas, Id, (Point*)list, capacity, out count));
            }
            set
            {
                if (value == null)
                    throw new ArgumentNullException(nameof(value));
                using (CanvasUse use = Canvas.Handle.Use())
                    fixed (Point* points = value)
                        VostelException.Check(
                            Native.vostel_object_set_points(use.Number, Id, points, (UIntPtr)(uint)value.Length));
            }
        }

        /// <summary>Of a region, closed; curves are flattened to 0.01 px.</summary>
        public Point[] Outline =>
            Canvas.ListOf<Point>((int canvas, IntPtr list, UIntPtr capacity, out UIntPtr count) =>
                Native.vostel_object_outline(canvas, Id, (Point*)list, capacity, out count));

        /// <summary>Empty at first.</summary>
        public string Name
        {
            get
            {
                return Canvas.TextOf((int canvas, byte* buffer, UIntPtr capacity, out UIntPtr length) =>
                    Native.vostel_object_name(canvas, Id, buffer, capacity, out length));
            }
            set
            {
                byte[] name = Utf8.Encoded(value, nameof(value));
                Canvas.Call(canvas => Native.vostel_object_set_name(canvas, Id, name));
            }
        }

        /// <summary>Of a text object, or the caption of a measure, which cannot be set.</summary>
        public string Text
        {
            get
            {
                return Canvas.TextOf((int canvas, byte* buffer, UIntPtr capacity, out UIntPtr length) =>
                    Native.vostel_object_text(canvas, Id, buffer, capacity, out length));
            }
            set
            {
                byte[] text = Utf8.Encoded(value, nameof(value));
                Canvas.Call(canvas => Native.vostel_object_set_text(canvas, Id, text));
            }
        }

        /// <summary>Colors, widths, heights; a copy.</summary>
        public Style Style
        {
            get
            {
                Style style = new Style { Size = Sizes<Style>.Bytes };
                using (CanvasUse use = Canvas.Handle.Use())
                    VostelException.Check(Native.vostel_object_style(use.Number, Id, ref style));
                return style;
            }
            set
            {
                value.Size = Sizes<Style>.Bytes;
                using (CanvasUse use = Canvas.Handle.Use())
                    VostelException.Check(Native.vostel_object_set_style(use.Number, Id, ref value));
            }
        }

        /// <summary>Takes it away.</summary>
        public void Remove() => Canvas.Call(canvas => Native.vostel_object_remove(canvas, Id));

        /// <summary>Channel 0 is the value or the luma; 1, 2, 3 are red, green, blue.</summary>
        public Measures Measure(int channel = 0)
        {
            Measures measures = new Measures { Size = Sizes<Measures>.Bytes };
            using (CanvasUse use = Canvas.Handle.Use())
                VostelException.Check(Native.vostel_measure(use.Number, Id, channel, ref measures));
            return measures;
        }

        /// <summary>Samples along a line, the mean over so many lines one pixel apart.</summary>
        public Profile Profile(double width = 1.0, int channel = 0)
        {
            NativeProfile numbers = new NativeProfile { Size = Sizes<NativeProfile>.Bytes };
            double[] values =
                Canvas.ListOf<double>((int canvas, IntPtr list, UIntPtr capacity, out UIntPtr count) =>
                    Native.vostel_profile(canvas, Id, channel, width, ref numbers, (double*)list, capacity,
                        out count));
            return new Profile(numbers, values);
        }

        /// <summary>255 inside a region and 0 outside, for the whole image.</summary>
        public Plane<byte> Mask() => Canvas.Mask(this);

        /// <summary>The same number on the same canvas.</summary>
        public bool Equals(VostelObject other)
            => !ReferenceEquals(other, null) && Id == other.Id && Canvas.Number == other.Canvas.Number;
        /// <summary>The same number on the same canvas.</summary>
        public override bool Equals(object other) => Equals(other as VostelObject);
        /// <summary>Of the number.</summary>
        public override int GetHashCode() => Id.GetHashCode();
        /// <summary>Such as "object 7 of canvas 5".</summary>
        public override string ToString() => "object " + Id + " of canvas " + Canvas.Number;
        /// <summary>The same number on the same canvas.</summary>
        public static bool operator ==(VostelObject a, VostelObject b)
            => ReferenceEquals(a, null) ? ReferenceEquals(b, null) : a.Equals(b);
        /// <summary>Another one.</summary>
        public static bool operator !=(VostelObject a, VostelObject b) => !(a == b);
    }
}
