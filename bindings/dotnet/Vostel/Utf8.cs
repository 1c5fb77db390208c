using System;
using System.Runtime.InteropServices;
using System.Text;

namespace Vostel
{
    // Text and lists as they come out of the library and go into it.
    internal static unsafe class Utf8
    {
        private static readonly UTF8Encoding Encoding = new UTF8Encoding(false, true);

        internal delegate Status TextCall(byte* buffer, UIntPtr capacity, out UIntPtr length);
        internal delegate Status ListCall(IntPtr list, UIntPtr capacity, out UIntPtr count);

        // With a terminator; the library reads up to the first one.
        internal static byte[] Encoded(string text, string argument)
        {
            if (text == null)
                throw new ArgumentNullException(argument);
            if (text.IndexOf('\0') >= 0)
                throw new ArgumentException("the text has a zero in it", argument);
            byte[] bytes = new byte[Encoding.GetByteCount(text) + 1];
            Encoding.GetBytes(text, 0, text.Length, bytes, 0);
            return bytes;
        }

        internal static string Decoded(IntPtr text)
        {
            int length = 0;
            while (Marshal.ReadByte(text, length) != 0)
                ++length;
            return Encoding.GetString((byte*)text, length);
        }

        internal static string TextOf(TextCall call)
        {
            for (byte[] room = new byte[256];;)
            {
                UIntPtr length;
                Status status;
                fixed (byte* buffer = room)
                    status = call(buffer, (UIntPtr)(uint)room.Length, out length);
                if (status != Status.BufferTooSmall)
                {
                    VostelException.Check(status);
                    return Encoding.GetString(room, 0, checked((int)(ulong)length));
                }
                room = new byte[checked((int)(ulong)length + 1)];
            }
        }

        internal static T[] ListOf<T>(ListCall call) where T : struct
        {
            for (T[] room = new T[64];;)
            {
                UIntPtr count;
                Status status;
                fixed (byte* list = &MemoryMarshal.GetReference(MemoryMarshal.AsBytes(new Span<T>(room))))
                    status = call((IntPtr)list, (UIntPtr)(uint)room.Length, out count);
                if (status != Status.BufferTooSmall)
                {
                    VostelException.Check(status);
                    Array.Resize(ref room, checked((int)(ulong)count));
                    return room;
                }
                room = new T[checked((int)(ulong)count)];
            }
        }
    }
}
