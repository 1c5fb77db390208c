// Every exported call of the classic interface unhindered, and with each of its allocations failing once, the
// first, then the second, until it comes through without; instrumented builds, which are slow, leave some
// out. What comes out is the allocator's exception or nothing, no memory is lost, and the canvas works on as
// ever. What each routine leaves in its arguments is tested beside it. Linux only: Tests.cmake says why.

#include "allocations/ClassicCalls.h"
#include "support/FailingAllocator.h"

#include <fstream>
#include <new>
#include <regex>

namespace {

// Exports that have no memory of their own to ask for: numbers, colors, rectangles and clocks, questions to
// what is there, tools of drawing that are changed in place, and what a compiler adds to classes.
const std::regex Plain(
    "typeinfo .*|vtable .*|vostel_.*"    // those of C have a test of their own
    "|operator.*|(StructVector[23]f|ClassRGB|ZEKRECT|ZEKSize|ZEKProgressMonitor|ZEKOSSystem)::.*|StructRGBA.*"
    "|PrecisionTime::(Start|End|GetSecond)\\(.*|ClassRGBArray::ZEKrandom_rgb\\(\\)"
    "|.*::(~.*|Release\\(\\)|GetRow\\(int\\)|MirrorValue\\(.*|NormalizeSum\\(\\)|GetMinMax\\(.*)"
    "|ATL::CImage::(CImage|Destroy|ReleaseDC|IsNull|Get(BPP|Bits|Height|Pitch|Width))\\(.*"
    "|ZEKPP1DFFT::(ChangeDir|Clear|DownLoad.*|UpLoad.*|Multiply|Set.*)\\(.*|OSCString::GetChar\\(\\) const"
    "|ZEKIODisk::(Close.*|NextLine|Read(Int|Flt)|ZEKIODisk)\\(.*|[cm](File|Dir|InvSqrt|MapXY).*\\(.*"
    "|ZEKPP1DFFT::(CheckInputToFFT\\(int|Run\\(bool)\\)"    // no host can call these
    "|ColorToGrayPixel\\(.*|IsOdd\\(int\\)|KEY(DOWN|UP)\\(int\\)|OneDGaussian\\(.*|gDLLDelete\\(char\\*\\)"
    "|Release2DList\\(.*|Delete(DC|Object)|FillRect|GdiFlush|Get(CurrentObject|CurrentProcess|DIBits)"
    "|Get(GuiResources|ObjectW|Pixel|StockObject)|(Inflate|Offset|PtIn).*Rect|PtInRect|MoveToEx"
    "|SelectObject|Set(BkColor|BkMode|Pixel|StretchBltMode|TextColor|ViewportOrgEx)");

// A new image with an object, as the canvas shows it whatever was on it before.
Frame StandardFrame(HostCanvas& host)
{
    host.SetClient(64, 48);
    host.Reset();
    host.ShowFloat(30, 20, [](int x, int y) { return x * y; });
    gCVSAddMRectangle(0);
    host.Drag(CPoint(22, 18), CPoint(40, 30), MK_LBUTTON | MK_SHIFT);
    return host.PaintAndCapture();
}

// What a call with failure number n comes to.
struct Outcome {
    bool  Failed = false;    // there was an allocation to fail
    bool  Thrown = false;
    Frame After;
};

Outcome CallWithFailure(ClassicCall call, long n)
{
    Outcome      outcome;
    ClassicWorld world;
    FailAt(n);
    try {
        call(world);
    } catch (const std::bad_alloc&) {
        outcome.Thrown = true;
    }
    outcome.Failed = HasAllocationFailed();
    FailAt(0);
    outcome.After = StandardFrame(world.Host);
    return outcome;
}

// The frame after a call that does nothing, which is the same for all.
Frame FrameOfNoCall()
{
    CallWithFailure([](ClassicWorld&) {}, 0);    // fills what the library keeps from call to call
    return CallWithFailure([](ClassicWorld&) {}, 0).After;
}

void FailEachAllocation(const std::map<std::string, ClassicCall>& calls, int& failures, int& thrown)
{
    const Frame standard = FrameOfNoCall();
    for (const auto& call : calls) {
        CAPTURE(call.first);
        const Outcome unhindered = CallWithFailure(call.second, 0);
        CHECK(!unhindered.Thrown);
        CHECK(FrameDifference(unhindered.After, standard) == "");
        long most = LiveBlockCount();
        bool failed = true;
        for (long n = 1; failed; n += VOSTEL_ALLOCATION_STEP) {
            CAPTURE(n);
            REQUIRE(n < 5000);
            const Outcome outcome = CallWithFailure(call.second, n);
            failed = outcome.Failed;
            failures += failed;
            thrown += outcome.Thrown;
            CHECK(FrameDifference(outcome.After, standard) == "");
            if (LiveBlockCount() <= most)
                continue;
            // The library may keep more from call to call, as text that was not drawn before; what is lost
            // is lost each time.
            most = LiveBlockCount();
            CallWithFailure(call.second, n);
            CHECK(LiveBlockCount() <= most);
        }
    }
}

}

TEST_CASE("each export has a row in one of the tables or asks for no memory")
{
    std::ifstream list(VOSTEL_EXPORTED_NAMES);
    std::size_t   rows = 0;
    std::string   name;
    while (std::getline(list, name)) {
        CAPTURE(name);
        const std::size_t found =
            CanvasCalls().count(name) + ClassCalls().count(name) + RoutineCalls().count(name);
        CHECK(found + std::regex_match(name, Plain) == 1);
        rows += found;
    }
    CHECK(rows == CanvasCalls().size() + ClassCalls().size() + RoutineCalls().size());
}

TEST_CASE("each allocation of the calls of canvases fails in turn")
{
    int failures = 0, thrown = 0;
    FailEachAllocation(CanvasCalls(), failures, thrown);
    CHECK(failures * VOSTEL_ALLOCATION_STEP > 300);
    CHECK(thrown * VOSTEL_ALLOCATION_STEP > 100);
}

TEST_CASE("each allocation of members of classes fails in turn")
{
    int failures = 0, thrown = 0;
    FailEachAllocation(ClassCalls(), failures, thrown);
    CHECK(failures * VOSTEL_ALLOCATION_STEP > 200);
    CHECK(thrown * VOSTEL_ALLOCATION_STEP > 100);
}

TEST_CASE("each allocation of routines fails in turn")
{
    int failures = 0, thrown = 0;
    FailEachAllocation(RoutineCalls(), failures, thrown);
    CHECK(failures * VOSTEL_ALLOCATION_STEP > 200);
    CHECK(thrown * VOSTEL_ALLOCATION_STEP > 100);
}
