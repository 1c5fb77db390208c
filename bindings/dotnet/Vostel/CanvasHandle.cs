using System;
using System.Collections.Concurrent;
using System.Collections.Generic;
using System.Runtime.InteropServices;
using System.Threading;

namespace Vostel
{
    // Locked for the length of a call, since a canvas is used by one thread at a time. Linked canvases share one.
    // Those that wait for their end are known too: their canvases are still linked.
    internal sealed class CanvasGuard
    {
        internal readonly List<WeakReference<CanvasHandle>> Handles = new List<WeakReference<CanvasHandle>>();
    }

    // The number of a canvas. The canvas goes when nobody holds it any more and no call on it is under way.
    internal sealed class CanvasHandle : SafeHandle
    {
        // Those that were collected while a linked one was in use.
        private static readonly ConcurrentQueue<CanvasHandle> Late = new ConcurrentQueue<CanvasHandle>();

        // Of the subscriptions to the canvas.
        internal readonly ConcurrentDictionary<int, bool> ListenerKeys = new ConcurrentDictionary<int, bool>();
        internal readonly bool Owned;
        private volatile CanvasGuard guard;
        private bool lent;

        internal CanvasHandle(int number, bool owned) : base(new IntPtr(-1), owned)
        {
            Owned = owned;
            Join(new CanvasGuard());
            SetHandle(new IntPtr(number));
        }

        public override bool IsInvalid => handle == new IntPtr(-1);

        internal int Number => handle.ToInt32();

        internal CanvasUse Use()
        {
            CanvasGuard held = Enter();
            bool counted = false;
            try
            {
                if (IsClosed)
                    throw new ObjectDisposedException(nameof(Canvas), "canvas " + Number + " was disposed");
                if (lent)
                    throw new InvalidOperationException("canvas " + Number + " waits for what reads its memory");
                DangerousAddRef(ref counted);
                return new CanvasUse(this, held);
            }
            catch
            {
                Monitor.Exit(held);
                throw;
            }
        }

        internal void EndUse(CanvasGuard held)
        {
            try
            {
                DangerousRelease();
            }
            finally
            {
                Monitor.Exit(held);
            }
        }

        // While memory of the canvas is read, calls on it, which might change that memory, throw.
        internal void Lend(LentPlane plane, Action<LentPlane> reader)
        {
            lent = true;
            try
            {
                reader(plane);
            }
            finally
            {
                lent = false;
                plane.End();
            }
        }

        // Waits for calls of other threads; those of this one, of a listener, go on to their end.
        internal void End()
        {
            CanvasGuard held = Enter();
            try
            {
                Dispose();
            }
            finally
            {
                Monitor.Exit(held);
            }
            DestroyLate();
        }

        internal void Link(CanvasHandle other)
        {
            if (ReferenceEquals(this, other))
            {
                using (CanvasUse use = Use())
                {
                    VostelException.Check(Native.vostel_view_link(use.Number, use.Number));
                    Join(new CanvasGuard());
                }
                return;
            }
            bool inOrder = Number < other.Number;
            using (CanvasUse first = inOrder ? Use() : other.Use())
            using (CanvasUse second = inOrder ? other.Use() : Use())
            {
                VostelException.Check(Native.vostel_view_link(Number, other.Number));
                CanvasGuard mine = guard;
                if (mine == other.guard)
                    return;
                foreach (WeakReference<CanvasHandle> member in mine.Handles)
                    if (member.TryGetTarget(out CanvasHandle handle) && handle.guard == mine)
                        handle.Join(other.guard);
            }
        }

        internal static void DestroyLate()
        {
            while (Late.TryDequeue(out CanvasHandle late))
            {
                CanvasGuard held = late.Enter();
                Native.vostel_canvas_destroy(late.Number);
                Monitor.Exit(held);
            }
        }

        // Also on the thread of finalizers, which must not wait for a call.
        protected override bool ReleaseHandle()
        {
            CanvasGuard held = guard;
            if (Monitor.TryEnter(held))
            {
                if (held == guard)
                    Native.vostel_canvas_destroy(Number);    // a host may have done so
                else
                    Late.Enqueue(this);    // linked meanwhile
                Monitor.Exit(held);
            }
            else
            {
                Late.Enqueue(this);
            }
            foreach (int key in ListenerKeys.Keys)
                Subscription.Forget(key);
            return true;
        }

        private CanvasGuard Enter()
        {
            for (;;)
            {
                CanvasGuard held = guard;
                Monitor.Enter(held);
                if (held == guard)    // not linked meanwhile
                    return held;
                Monitor.Exit(held);
            }
        }

        private void Join(CanvasGuard joined)
        {
            joined.Handles.RemoveAll(member => !member.TryGetTarget(out CanvasHandle handle));
            joined.Handles.Add(new WeakReference<CanvasHandle>(this, true));
            guard = joined;
        }
    }

    // The length of a call.
    internal struct CanvasUse : IDisposable
    {
        private readonly CanvasHandle handle;
        private readonly CanvasGuard held;

        internal CanvasUse(CanvasHandle handle, CanvasGuard held)
        {
            this.handle = handle;
            this.held = held;
        }

        internal int Number => handle.Number;

        public void Dispose() => handle.EndUse(held);
    }
}
