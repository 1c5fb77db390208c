using System;

namespace Vostel
{
    // Library.LastMessage says what there is to say of what succeeded.
    public sealed unsafe partial class Canvas
    {
        /// <summary>
        /// Saves objects, names, styles, labels, scale, view, contrast and the path of the image as a session, by
        /// convention "NAME.vostel.json".
        /// </summary>
        public void SessionSave(string path)
        {
            byte[] name = Path(path);
            Call(canvas => Native.vostel_session_save(canvas, name, 0));
        }

        /// <summary>Puts a session in the place of what the canvas shows, all of it or nothing.</summary>
        public void SessionOpen(string path, SessionFlags flags = SessionFlags.None)
        {
            byte[] name = Path(path);
            Call(canvas => Native.vostel_session_open(canvas, name, (uint)flags));
        }

        /// <summary>Writes the objects; what the format cannot hold is left out.</summary>
        /// <param name="path">of the file</param>
        /// <param name="format">"json" or another one; null: by the ending of the path</param>
        public void RegionsExport(string path, string format = null)
        {
            byte[] name = Path(path), form = format == null ? null : Utf8.Encoded(format, nameof(format));
            Call(canvas => Native.vostel_regions_export(canvas, name, form));
        }

        /// <summary>Adds the objects of a file on top of those that are there, as one step, all or none.</summary>
        /// <param name="path">of the file</param>
        /// <param name="format">"json" or another one; null: by the ending of the path</param>
        /// <returns>the number of objects that were added</returns>
        public int RegionsImport(string path, string format = null)
        {
            byte[] name = Path(path), form = format == null ? null : Utf8.Encoded(format, nameof(format));
            UIntPtr count = UIntPtr.Zero;
            Call(canvas => Native.vostel_regions_import(canvas, name, form, out count));
            return checked((int)(ulong)count);
        }

        /// <summary>Some objects as the text that an export as "json" writes: for a clipboard.</summary>
        public string RegionsText(params VostelObject[] objects)
        {
            if (objects == null)
                throw new ArgumentNullException(nameof(objects));
            ulong[] ids = Array.ConvertAll(objects, chosen => IdOf(chosen, nameof(objects)));
            return TextOf((int canvas, byte* buffer, UIntPtr capacity, out UIntPtr length) =>
            {
                fixed (ulong* first = ids)
                    return Native.vostel_regions_text(canvas, first, (UIntPtr)(uint)ids.Length, buffer, capacity,
                        out length);
            });
        }

        /// <summary>Adds the objects of such a text, or of a session's, on top, as one step.</summary>
        /// <returns>the number of objects that were added</returns>
        public int RegionsAddText(string text)
        {
            byte[] json = Utf8.Encoded(text, nameof(text));
            UIntPtr count = UIntPtr.Zero;
            Call(canvas => Native.vostel_regions_add_text(canvas, json, out count));
            return checked((int)(ulong)count);
        }

        /// <summary>Number of steps and what they hold.</summary>
        public HistoryInfo HistoryInfo
        {
            get
            {
                HistoryInfo info = new HistoryInfo { Size = Sizes<HistoryInfo>.Bytes };
                Call(canvas => Native.vostel_history_info(canvas, ref info));
                return info;
            }
        }

        /// <summary>What the steps may hold; 0: no history is kept. Created canvases start with 64 MiB.</summary>
        public void HistoryLimit(long bytes)
        {
            if (bytes < 0)
                throw new ArgumentOutOfRangeException(nameof(bytes));
            Call(canvas => Native.vostel_history_limit(canvas, (UIntPtr)(ulong)bytes));
        }

        /// <summary>Of what undo would take back for -1 and redo would bring for 1; null for no such step.</summary>
        public string HistoryName(int step)
        {
            try
            {
                return TextOf((int canvas, byte* buffer, UIntPtr capacity, out UIntPtr length) =>
                    Native.vostel_history_name(canvas, step, buffer, capacity, out length));
            }
            catch (VostelException exception) when (exception.Status == Status.NotFound)
            {
                return null;
            }
        }

        /// <summary>Takes the last step back; false if there is none.</summary>
        public bool Undo() => Found(Native.vostel_undo);

        /// <summary>Brings again what undo took back; false if there is nothing.</summary>
        public bool Redo() => Found(Native.vostel_redo);

        /// <summary>Begins a step; <see cref="Step"/> is safer.</summary>
        public void HistoryBegin(string name)
        {
            byte[] text = Utf8.Encoded(name, nameof(name));
            Call(canvas => Native.vostel_history_begin(canvas, text));
        }

        /// <summary>Ends the outermost step or an inner one.</summary>
        public void HistoryEnd() => Call(Native.vostel_history_end);

        /// <summary>Makes one step of history of all that happens until the result is disposed of. Nests.</summary>
        public HistoryStep Step(string name)
        {
            HistoryBegin(name);
            return new HistoryStep(this);
        }

        /// <summary>
        /// Has a function called for events, on the thread of the call that caused them and when that is about to
        /// return. It may call anything.
        /// </summary>
        /// <param name="events">of these types</param>
        /// <param name="listener">what it throws goes to <see cref="Library.ListenerFailed"/></param>
        public Subscription Listen(EventTypes events, Action<VostelEvent> listener)
        {
            if (listener == null)
                throw new ArgumentNullException(nameof(listener));
            return new Subscription(this, events, listener);
        }
    }
}
