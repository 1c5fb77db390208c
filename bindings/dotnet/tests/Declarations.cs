using System;
using System.Collections.Generic;
using System.Reflection;
using System.Runtime.InteropServices;

// Prints what the assembly declares of the C interface, and what it takes from the class library, for
// declarations_test.py.
internal static class Declarations
{
    private const BindingFlags Every = BindingFlags.Public | BindingFlags.NonPublic | BindingFlags.Static |
        BindingFlags.Instance | BindingFlags.DeclaredOnly;

    internal static void Print()
    {
        Assembly assembly = typeof(Vostel.Canvas).Assembly;
        foreach (Type type in assembly.GetTypes())
        {
            foreach (MethodInfo method in type.GetMethods(Every))
                PrintImport(method);
            if (type.IsEnum)
                foreach (string name in Enum.GetNames(type))
                    Console.WriteLine("constant {0} {1} {2}", type.Name, name,
                        Convert.ToInt64(Enum.Parse(type, name)));
            if (type.IsValueType && type.IsLayoutSequential && type.GetField("Size", Every) != null ||
                type == typeof(Vostel.Point))
                PrintRecord(type);
            if (type.Name == "NativeListener")
                Console.WriteLine("listener " + Parameters(type.GetMethod("Invoke")));
        }
        PrintReferences(assembly.ManifestModule);
    }

    private static void PrintImport(MethodInfo method)
    {
        DllImportAttribute import = method.GetCustomAttribute<DllImportAttribute>();
        if (import != null)
            Console.WriteLine("function {0} {1} {2} {3} {4}", import.EntryPoint, import.Value,
                import.CallingConvention, Name(method.ReturnType), Parameters(method));
    }

    private static string Parameters(MethodInfo method)
        => string.Join(" ", Array.ConvertAll(method.GetParameters(), parameter => Name(parameter.ParameterType)));

    // Enumerations are told by what they are in memory.
    private static string Name(Type type)
    {
        if (type.IsByRef || type.IsPointer)
            return Name(type.GetElementType()) + "*";
        return type.IsEnum ? type.Name + ":" + Enum.GetUnderlyingType(type).Name : type.Name;
    }

    private static void PrintRecord(Type type)
    {
        Console.WriteLine("record {0} {1}", type.Name, Marshal.SizeOf(type));
        foreach (FieldInfo field in type.GetFields(Every))
            Console.WriteLine("field {0} {1} {2} {3}", type.Name, field.Name, Marshal.OffsetOf(type, field.Name),
                Name(field.FieldType));
    }

    // The tables of a module begin at these numbers; what is past their end throws.
    private static void PrintReferences(Module module)
    {
        SortedSet<string> members = new SortedSet<string>(StringComparer.Ordinal);
        for (int token = 0x01000001; Resolved(() => module.ResolveType(token), out MemberInfo type); ++token)
            members.Add(type.ToString());
        for (int token = 0x0A000001; Resolved(() => module.ResolveMember(token), out MemberInfo member); ++token)
            if (member.DeclaringType.Assembly != module.Assembly)
                members.Add(Root(member.DeclaringType) + ": " + Definition(member));
        foreach (string member in members)
            Console.WriteLine("uses " + member);
    }

    private static Type Root(Type type) => type.IsGenericType ? type.GetGenericTypeDefinition() : type;

    // As it is declared, whatever it is called with.
    private static MemberInfo Definition(MemberInfo member)
        => Array.Find(Root(member.DeclaringType).GetMembers(Every),
            declared => declared.MetadataToken == member.MetadataToken) ?? member;

    private static bool Resolved(Func<MemberInfo> resolve, out MemberInfo found)
    {
        try
        {
            found = resolve();
            return true;
        }
        catch (ArgumentException)
        {
            found = null;
            return false;
        }
    }
}
