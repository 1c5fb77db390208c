using System;

namespace Vostel
{
    /// <summary>What a call of the library failed with. A call that fails has changed nothing.</summary>
    public class VostelException : Exception
    {
        /// <summary>Of a status and what was wrong.</summary>
        public VostelException(Status status, string message) : base(message)
        {
            Status = status;
        }

        /// <summary><see cref="Vostel.Status.NotFound"/> or another of the negative ones.</summary>
        public Status Status { get; }

        internal static void Check(Status status)
        {
            if (status != Status.Ok)
                throw new VostelException(status, Utf8.Decoded(Native.vostel_last_message()));
        }

        // False where the status stands for nothing there.
        internal static bool Found(Status status, Status nothing = Status.NotFound)
        {
            if (status == nothing)
                return false;
            Check(status);
            return true;
        }
    }
}
