#include "vostel.h"

#include "foundation/Limits.h"
#include "open/OpenCall.h"
#include "vostel/version.h"

using namespace vostel;
using namespace vostel::open;

const char* vostel_version(void)
{
    return VOSTEL_VERSION;
}

const char* vostel_status_name(VostelStatus status)
{
    static constexpr const char* Names[] = {"VOSTEL_OK",
                                            "VOSTEL_INVALID_ARGUMENT",
                                            "VOSTEL_NOT_FOUND",
                                            "VOSTEL_NO_IMAGE",
                                            "VOSTEL_OUT_OF_MEMORY",
                                            "VOSTEL_NOT_READ",
                                            "VOSTEL_NOT_WRITTEN",
                                            "VOSTEL_BAD_FORMAT",
                                            "VOSTEL_TOO_LARGE",
                                            "VOSTEL_NOT_SUPPORTED",
                                            "VOSTEL_BUFFER_TOO_SMALL",
                                            "VOSTEL_INTERNAL"};
    return status <= VOSTEL_OK && status >= VOSTEL_INTERNAL ? Names[-status] : "VOSTEL_UNKNOWN";
}

VostelStatus vostel_set_limits(const VostelLimits* limits)
{
    return Run([&] {
        const VostelLimits given = RecordFrom(limits, VostelLimits{}, "limits");
        NeedRange(given.max_side, 0, INT32_MAX, "max_side");
        NeedRange(given.max_pixels, 0, INT64_MAX, "max_pixels");
        NeedRange(given.max_file_bytes, 0, INT64_MAX, "max_file_bytes");
        NeedRange(given.max_threads, 0, INT32_MAX, "max_threads");
        NeedRange(given.max_memory, 0, INT64_MAX, "max_memory");
        Limits set;
        if (given.max_side > 0)
            set.MaxSide = given.max_side;
        if (given.max_pixels > 0)
            set.MaxPixels = given.max_pixels;
        if (given.max_file_bytes > 0)
            set.MaxFileBytes = given.max_file_bytes;
        set.MaxThreads = given.max_threads;
        set.MaxMemory = given.max_memory;
        SetLimits(set);
    });
}

VostelStatus vostel_get_limits(VostelLimits* limits)
{
    return Run([&] {
        const Limits now = LimitsInForce();
        GiveRecord(
            limits,
            VostelLimits{0, now.MaxSide, now.MaxPixels, now.MaxFileBytes, now.MaxThreads, now.MaxMemory},
            "limits");
    });
}
