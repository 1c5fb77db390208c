using System;
using System.Collections.Generic;
using System.IO;
using System.Reflection;
using System.Threading;

// Runs every case: a public static method without parameters of a class whose name ends in "Cases". With words, those
// whose names hold one of them. Each runs in a folder of its own and with collections of garbage going on beside it.
internal static class Program
{
    internal static string Samples { get; private set; }

    private static int Main(string[] arguments)
    {
        if (arguments.Length == 1 && arguments[0] == "--declarations")
        {
            Declarations.Print();
            return 0;
        }
        Samples = Environment.GetEnvironmentVariable("VOSTEL_SAMPLES");
        string before = Directory.GetCurrentDirectory();
        int passed = 0, failed = 0;
        using (new Timer(_ => GC.Collect(), null, 0, 20))
            foreach (MethodInfo test in Cases(arguments))
            {
                string folder = Path.Combine(Path.GetTempPath(), "vostel-" + Guid.NewGuid().ToString("N"));
                Directory.CreateDirectory(folder);
                Directory.SetCurrentDirectory(folder);
                try
                {
                    ((Action)Delegate.CreateDelegate(typeof(Action), test))();
                    ++passed;
                }
                catch (Exception exception)
                {
                    Console.WriteLine("FAILED " + test.DeclaringType.Name + "." + test.Name + "\n" + exception);
                    ++failed;
                }
                finally
                {
                    Directory.SetCurrentDirectory(before);
                    Directory.Delete(folder, true);
                }
            }
        Console.WriteLine("{0} passed, {1} failed", passed, failed);
        return failed == 0 && passed > 0 ? 0 : 1;
    }

    private static IEnumerable<MethodInfo> Cases(string[] words)
    {
        foreach (Type type in Assembly.GetExecutingAssembly().GetTypes())
            if (type.Name.EndsWith("Cases", StringComparison.Ordinal))
                foreach (MethodInfo method in type.GetMethods(BindingFlags.Public | BindingFlags.Static))
                    if (method.GetParameters().Length == 0 && method.ReturnType == typeof(void) &&
                        (words.Length == 0 || Array.Exists(words, word => method.Name.Contains(word))))
                        yield return method;
    }
}

internal sealed class CheckException : Exception
{
    internal CheckException(string message) : base(message)
    {
    }
}

internal static class Check
{
    internal static void True(bool condition, string otherwise = "is not so")
    {
        if (!condition)
            throw new CheckException(otherwise);
    }

    internal static void Equal<T>(T found, T expected)
    {
        if (!EqualityComparer<T>.Default.Equals(found, expected))
            throw new CheckException("found " + found + ", expected " + expected);
    }

    internal static void Close(double found, double expected, double within)
    {
        True(Math.Abs(found - expected) <= within, "found " + found + ", expected " + expected);
    }

    internal static void Equal<T>(T[] found, params T[] expected)
    {
        Equal(string.Join(" ", found), string.Join(" ", expected));
    }

    internal static T Throws<T>(Action action) where T : Exception
    {
        try
        {
            action();
        }
        catch (T exception)
        {
            Equal(exception.GetType(), typeof(T));
            return exception;
        }
        throw new CheckException("throws no " + typeof(T).Name);
    }

    internal static void Fails(Vostel.Status status, Action action)
    {
        Equal(Throws<Vostel.VostelException>(action).Status, status);
    }
}
