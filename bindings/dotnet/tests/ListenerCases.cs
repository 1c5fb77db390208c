using System;
using System.Collections.Generic;
using System.Runtime.CompilerServices;
using System.Threading;
using Vostel;

internal static class ListenerCases
{
    private static void CollectAll()
    {
        for (int i = 0; i < 3; ++i)
        {
            GC.Collect();
            GC.WaitForPendingFinalizers();
        }
    }

    // On a thread of its own, whose stack goes with it: the collector looks for references on stacks conservatively.
    private static void Apart(Action action)
    {
        Exception failure = null;
        Thread thread = new Thread(() =>
        {
            try
            {
                action();
            }
            catch (Exception exception)
            {
                failure = exception;
            }
        });
        thread.Start();
        thread.Join();
        if (failure != null)
            throw new CheckException(failure.ToString());
    }

    private static bool Exists(int canvas)
    {
        try
        {
            return Canvas.FromNumber(canvas).HistoryInfo.Limit > 0;
        }
        catch (VostelException)
        {
            return false;
        }
    }

    public static void ListenersHearInOrder()
    {
        using (Canvas canvas = CanvasCases.OfRamp())
        {
            List<string> heard = new List<string>();
            EventTypes objects = EventTypes.ObjectAdded | EventTypes.ObjectChanged | EventTypes.ObjectRemoved;
            using (canvas.Listen(objects, happened => heard.Add(happened.Type + " " + happened.Object.Id)))
            {
                VostelObject region = canvas.AddRectangle(1, 1, 3, 3);
                region.Name = "x";
                region.Remove();
                Check.Equal(string.Join(", ", heard),
                    string.Format("ObjectAdded {0}, ObjectChanged {0}, ObjectRemoved {0}", region.Id));
            }
            canvas.AddRectangle(1, 1, 3, 3);
            Check.Equal(heard.Count, 3);
            Check.Throws<ArgumentNullException>(() => canvas.Listen(objects, null));
        }
    }

    public static void DelegatesLiveAsLongAsTheyListen()
    {
        using (Canvas canvas = CanvasCases.OfRamp())
        {
            int heard = 0;
            Apart(() =>
            {
                for (int i = 0; i < 50; ++i)
                {
                    byte[] kept = new byte[1000 + i];
                    canvas.Listen(EventTypes.ViewChanged, happened => heard += kept.Length > 0 ? 1 : 0);
                }
            });
            for (int i = 0; i < 20; ++i)
            {
                CollectAll();
                canvas.ViewZoom(1.5, new Point(80, 60));
                canvas.ViewActual();
            }
            Check.Equal(heard, 50 * 40);
        }
    }

    public static void ExceptionsOfListenersAreReported()
    {
        List<string> failures = new List<string>();
        Action<Exception> report = exception => failures.Add(exception.Message);
        Library.ListenerFailed += report;
        try
        {
            using (Canvas canvas = CanvasCases.OfRamp())
            {
                int after = 0;
                canvas.Listen(EventTypes.ObjectAdded, happened => { throw new CheckException("of a listener"); });
                canvas.Listen(EventTypes.ObjectAdded, happened => ++after);
                VostelObject region = canvas.AddRectangle(1, 1, 3, 3);
                Check.Equal(canvas.Objects[0], region);
                Check.Equal(after, 1);
                Check.Equal(string.Join(" ", failures), "of a listener");
                Action<Exception> worse = exception => { throw new CheckException("of who hears of it"); };
                Library.ListenerFailed += worse;
                canvas.AddRectangle(1, 1, 3, 3);
                Library.ListenerFailed -= worse;
                Check.Equal(canvas.Objects.Length, 2);
            }
        }
        finally
        {
            Library.ListenerFailed -= report;
        }
    }

    public static void ListenersMayCallEndThemselvesAndTheCanvas()
    {
        Canvas canvas = CanvasCases.OfRamp();
        int heard = 0, named = 0, gone = 0;
        Subscription once = null;
        once = canvas.Listen(EventTypes.ObjectAdded, happened =>
        {
            ++heard;
            once.Dispose();
            once.Dispose();
            happened.Object.Name = "by the listener";
        });
        canvas.Listen(EventTypes.ObjectChanged, happened => named += happened.Object.Name == "by the listener" ? 1 : 0);
        canvas.AddRectangle(1, 1, 3, 3);
        canvas.AddRectangle(1, 1, 3, 3);
        Check.Equal(heard + " " + named, "1 1");
        canvas.Listen(EventTypes.CanvasDestroyed, happened => ++gone);
        canvas.Listen(EventTypes.ViewChanged, happened =>
        {
            happened.Canvas.Dispose();
            Check.Throws<ObjectDisposedException>(happened.Canvas.ViewFit);
        });
        canvas.ViewZoom(2.0, new Point(10, 10));
        Check.Equal(gone, 1);
        Check.True(!Exists(canvas.Number), "still there");
        once.Dispose();
    }

    public static void CanvasesGoWithTheLastReference()
    {
        // What is left of an address on some stack may hold one or another.
        int[] dropped = new int[8], listening = new int[8];
        int kept = 0;
        VostelObject region = null;
        Apart(() =>
        {
            for (int i = 0; i < 8; ++i)
            {
                dropped[i] = CanvasCases.OfRamp().Number;
                Canvas known = CanvasCases.OfRamp();    // by its own listener alone
                listening[i] = known.Number;
                known.Listen(EventTypes.All, happened => known.ViewFit());
            }
            region = CanvasCases.OfRamp().AddRectangle(1, 1, 3, 3);
            kept = region.Canvas.Number;
        });
        for (int i = 0; i < 20 && Array.Exists(dropped, Exists) | Array.Exists(listening, Exists); ++i)
            CollectAll();
        Check.True(Array.FindAll(dropped, Exists).Length < 4, "dropped, and still there");
        Check.True(Array.FindAll(listening, Exists).Length < 4, "known by listeners alone, and still there");
        Check.True(Exists(kept), "gone, although an object keeps it");
        Check.Equal(region.Measure().Area, 4.0);
        region.Canvas.Dispose();
    }

    public static void BorrowedCanvasesGoOnListening()
    {
        using (Canvas canvas = CanvasCases.OfRamp())
        {
            int heard = 0;
            Apart(() => Canvas.FromNumber(canvas.Number).Listen(EventTypes.ObjectAdded, happened => ++heard));
            CollectAll();
            canvas.AddRectangle(1, 1, 3, 3);
            Check.Equal(heard, 1);
            Subscription until = Canvas.FromNumber(canvas.Number).Listen(EventTypes.ObjectAdded, happened => ++heard);
            canvas.AddRectangle(1, 1, 3, 3);
            Check.Equal(heard, 3);
            until.Dispose();
            canvas.AddRectangle(1, 1, 3, 3);
            Check.Equal(heard, 4);
        }
    }

    public static void ThreadsWaitForEachOther()
    {
        using (Canvas shared = CanvasCases.OfRamp())
        {
            Exception failure = null;
            Thread[] threads = new Thread[6];
            for (int i = 0; i < threads.Length; ++i)
            {
                int number = i;
                threads[i] = new Thread(() =>
                {
                    try
                    {
                        for (int turn = 0; turn < 40; ++turn)
                            Work(shared, number);
                    }
                    catch (Exception exception)
                    {
                        failure = exception;
                    }
                });
            }
            foreach (Thread thread in threads)
                thread.Start();
            foreach (Thread thread in threads)
                thread.Join();
            Check.True(failure == null, Convert.ToString(failure));
            Check.Equal(shared.Objects.Length, 6 * 40);
        }
    }

    [MethodImpl(MethodImplOptions.NoInlining)]
    private static void Work(Canvas shared, int number)
    {
        VostelObject region = shared.AddRectangle(1, 1, 3 + number, 3);
        Check.Equal(region.Measure().Area, 4.0 + 2 * number);
        try
        {
            shared.ImageOpen("none " + number);
        }
        catch (VostelException exception)
        {
            Check.True(exception.Message.Contains("none " + number), exception.Message);    // of its own thread
        }
        Canvas own = CanvasCases.OfRamp();    // left to the collector, some of them linked with others in use
        CanvasCases.OfRamp().ViewLink(own);
        if (number % 2 == 0)
            own.ViewLink(shared);
        Check.Equal(own.FrameRender().Width, 160);
    }
}
