using System;
using System.Collections.Concurrent;
using System.Runtime.InteropServices;
using System.Threading;

namespace Vostel
{
    /// <summary>What a listener hears.</summary>
    public struct VostelEvent
    {
        internal VostelEvent(EventTypes type, Canvas canvas, VostelObject changed)
        {
            Type = type;
            Canvas = canvas;
            Object = changed;
        }

        /// <summary>What happened: one of the types.</summary>
        public EventTypes Type { get; }
        /// <summary>Where it happened.</summary>
        public Canvas Canvas { get; }
        /// <summary>Of events of objects; else null.</summary>
        public VostelObject Object { get; }
    }

    /// <summary>
    /// Listening to a canvas, until it is disposed of or the canvas is. The canvas keeps it: one that is not kept
    /// elsewhere goes on.
    /// </summary>
    public sealed class Subscription : IDisposable
    {
        // One for all: the library never calls a delegate that was collected. It finds subscriptions by their keys,
        // and does not hold them, so that a canvas can be collected together with what listens to it.
        private static readonly NativeListener Listener = OnEvent;
        private static readonly ConcurrentDictionary<int, WeakReference<Subscription>> Known =
            new ConcurrentDictionary<int, WeakReference<Subscription>>();
        // Those to borrowed canvases, which go on without what borrows them.
        private static readonly ConcurrentDictionary<int, Subscription> Kept =
            new ConcurrentDictionary<int, Subscription>();
        private static int lastKey;

        private readonly Canvas canvas;
        private readonly Action<VostelEvent> callback;
        private readonly int key;
        private long token;

        internal Subscription(Canvas canvas, EventTypes events, Action<VostelEvent> callback)
        {
            this.canvas = canvas;
            this.callback = callback;
            key = Interlocked.Increment(ref lastKey);
            Known[key] = new WeakReference<Subscription>(this);
            canvas.Handle.ListenerKeys[key] = true;
            try
            {
                using (CanvasUse use = canvas.Handle.Use())
                    VostelException.Check(
                        Native.vostel_listen(use.Number, (uint)events, Listener, new IntPtr(key), out token));
            }
            catch
            {
                Forget();
                throw;
            }
            canvas.Subscriptions[key] = this;
            if (!canvas.Handle.Owned)
                Kept[key] = this;
        }

        /// <summary>The callback is not called again. Also by the callback itself; twice does nothing.</summary>
        public void Dispose()
        {
            if (!canvas.Subscriptions.TryRemove(key, out Subscription self))
                return;
            Forget();
            try
            {
                using (canvas.Handle.Use())
                    Native.vostel_unlisten(token);
            }
            catch (ObjectDisposedException)
            {
                // It ended with the canvas.
            }
        }

        internal static void Forget(int key) => Known.TryRemove(key, out WeakReference<Subscription> forgotten);

        private void Forget()
        {
            Forget(key);
            Kept.TryRemove(key, out Subscription kept);
            canvas.Handle.ListenerKeys.TryRemove(key, out bool known);
        }

        private static void OnEvent(IntPtr happened, IntPtr user)
        {
            try
            {
                if (!Known.TryGetValue(user.ToInt32(), out WeakReference<Subscription> known) ||
                    !known.TryGetTarget(out Subscription subscription))
                    return;
                NativeEvent told = Marshal.PtrToStructure<NativeEvent>(happened);
                Canvas canvas = subscription.canvas;
                subscription.callback(new VostelEvent((EventTypes)told.Type, canvas,
                    told.Object == 0 ? null : new VostelObject(canvas, told.Object)));
            }
            catch (Exception exception)
            {
                Library.ReportListenerFailure(exception);    // nothing may be thrown into the library
            }
        }
    }

    /// <summary>One step of history of what happens until it is disposed of.</summary>
    public sealed class HistoryStep : IDisposable
    {
        private Canvas canvas;

        internal HistoryStep(Canvas canvas)
        {
            this.canvas = canvas;
        }

        /// <summary>Ends the step; twice does nothing.</summary>
        public void Dispose()
        {
            Canvas ended = Interlocked.Exchange(ref canvas, null);
            if (ended == null)
                return;
            try
            {
                using (CanvasUse use = ended.Handle.Use())
                    Native.vostel_history_end(use.Number);
            }
            catch (ObjectDisposedException)
            {
                // It ended with the canvas.
            }
        }
    }
}
