// What image routines do when memory runs out: each allocation of a call fails once, first the first, then
// the second, until the call comes through without. The allocator is this program's own, so that it counts
// what the library asks for.

#include "foundation/RowThreads.h"
#include "imaging/RandomPlanes.h"
#include "support/FailingAllocator.h"
#include "support/ResizeOwned.h"
#include "support/TempFolder.h"

#include <VostelObj.h>

#include <doctest/doctest.h>

#include <new>

using namespace vostel;

namespace {

using WordPlane = ClassData2DIO<unsigned short>;

// Whatever a routine takes and changes.
struct Planes {
    FloatPlane A, B;
    WordPlane  Words;
    BytePlane  Bytes;
};

template <typename T>
bool SameContents(const ClassData2DIO<T>& a, const ClassData2DIO<T>& b)
{
    return a.Width == b.Width && a.Height == b.Height && (!a.Ptr1D) == (!b.Ptr1D) &&
           (!a.Ptr1D || SamePlane(a, b));
}

bool SameContents(const Planes& a, const Planes& b)
{
    return SameContents(a.A, b.A) && SameContents(a.B, b.B) && SameContents(a.Words, b.Words) &&
           SameContents(a.Bytes, b.Bytes);
}

Planes SomePlanes(unsigned seed)
{
    std::mt19937 random(seed);
    Planes       planes;
    planes.A = RandomFloats(23, 17, random);
    planes.B = RandomFloats(5, 5, random);
    planes.Words.Allocate(9, 8);
    std::generate_n(planes.Words.Ptr1D, 9 * 8, [&] { return static_cast<unsigned short>(random()); });
    planes.Bytes.Allocate(21, 13);
    std::generate_n(planes.Bytes.Ptr1D, 21 * 13, [&] { return static_cast<unsigned char>(random()); });
    return planes;
}

struct Losses {
    int  Thrown = 0;             // calls that ended by the allocator's exception
    int  Survived = 0;           // calls in which an allocation failed and which came through nevertheless
    bool Leaked = false;         // blocks are left over when all arguments are gone
    bool Spoiled = false;        // a call threw and changed its arguments
    bool WrongResult = false;    // a call came through with another result than without failures
    bool Ended = false;          // the last call had no allocation left to fail
};

// call(argument) for copies made by fresh(); same(a, b) compares them.
template <typename Fresh, typename Call, typename Same>
Losses FailEach(Fresh fresh, Call call, Same same)
{
    Losses     losses;
    const auto before = fresh();
    auto       expected = fresh();
    call(expected);
    for (long n = 1; n < 1000 && !losses.Ended; ++n) {
        const long live = LiveBlockCount();
        {
            auto arguments = fresh();
            bool thrown = false;
            FailAt(n);
            try {
                call(arguments);
            } catch (const std::bad_alloc&) {
                thrown = true;
            }
            const bool failed = HasAllocationFailed();
            FailAt(0);
            losses.Ended = !failed;
            losses.Thrown += thrown;
            losses.Survived += failed && !thrown;
            if (!same(arguments, thrown ? before : expected))
                (thrown ? losses.Spoiled : losses.WrongResult) = true;
        }
        losses.Leaked = losses.Leaked || LiveBlockCount() != live;
    }
    return losses;
}

template <typename Call>
Losses FailEachOfPlanes(Call call)
{
    return FailEach([] { return SomePlanes(31); }, call,
                    [](const Planes& a, const Planes& b) { return SameContents(a, b); });
}

// The exception passes, nothing leaks, the arguments are as they were.
void CheckPasses(const Losses& losses)
{
    CHECK(losses.Ended);
    CHECK(losses.Thrown > 0);
    CHECK_FALSE(losses.Leaked);
    CHECK_FALSE(losses.Spoiled);
    CHECK_FALSE(losses.WrongResult);
}

// Several threads, whatever this machine has.
struct ThreeThreads {
    ThreeThreads() { ForceRowThreads(3); }
    ~ThreeThreads() { ForceRowThreads(0); }
};

}

TEST_CASE("this program's allocator fails on request and counts what is alive")
{
    const long live = LiveBlockCount();
    {
        std::vector<int> numbers(7);
        CHECK(LiveBlockCount() == live + 1);
        FailAt(2);
        bool thrown = false;
        try {
            std::vector<int> first(3);
            std::vector<int> second(3);
        } catch (const std::bad_alloc&) {
            thrown = true;
        }
        FailAt(0);
        CHECK(thrown);
        FloatPlane plane;
        plane.Allocate(3, 3);    // the library takes its memory here too
        CHECK(LiveBlockCount() == live + 3);
    }
    CHECK(LiveBlockCount() == live);
}

TEST_CASE("correlations that run out of memory pass the exception on and leave image and kernel")
{
    const ThreeThreads threads;
    InEveryVariant([](const char* variant) {
        CAPTURE(variant);
        CheckPasses(FailEachOfPlanes([](Planes& p) { ConFltMC(&p.A, &p.B); }));
        CheckPasses(FailEachOfPlanes([](Planes& p) { gConv2(&p.A, &p.B); }));
        CheckPasses(FailEachOfPlanes([](Planes& p) { gGauss(&p.A, 7, 1.5f, 0.2f); }));
        CheckPasses(FailEachOfPlanes([](Planes& p) { ConvFltVer0(&p.A, &p.B); }));
        CheckPasses(FailEachOfPlanes([](Planes& p) { ConvFltVer1(&p.A, &p.B); }));
        CheckPasses(FailEachOfPlanes([](Planes& p) { ConvFltVer2(&p.A, &p.B); }));
    });
}

TEST_CASE("scaling in place that runs out of memory leaves the image")
{
    const ThreeThreads threads;
    CheckPasses(FailEachOfPlanes([](Planes& p) { Resize(p.A, 40, 11); }));
    CheckPasses(FailEachOfPlanes([](Planes& p) { ResizeOwned(p.Words, 4, 19); }));
}

TEST_CASE("scaling a 16-bit image leaves its previous buffers to their owner and nothing else")
{
    ForceRowThreads(1);    // threads would have blocks of their own
    const long live = LiveBlockCount();
    {
        WordPlane words;
        words.Allocate(9, 8);
        unsigned short* const  pixels = words.Ptr1D;
        unsigned short** const rows = words.Ptr2D;
        std::fill_n(pixels, 9 * 8, static_cast<unsigned short>(7));
        Resize(words, 4, 19);
        CHECK(LiveBlockCount() == live + 4);
        CHECK(pixels[71] == 7);
        delete[] pixels;
        delete[] rows;
    }
    CHECK(LiveBlockCount() == live);
    ForceRowThreads(0);
}

TEST_CASE("scaling into a target that runs out of memory leaves the source and the target's size")
{
    const ThreeThreads threads;
    const auto         same = [](const Planes& a, const Planes& b) {
        return SameContents(a.A, b.A) && a.B.Width == b.B.Width && a.B.Height == b.B.Height && a.B.Ptr1D;
    };
    InEveryVariant([&](const char* variant) {
        CAPTURE(variant);
        for (const auto resize : {ResizeMC, ResizeSC}) {
            const Losses losses =
                FailEach([] { return SomePlanes(5); }, [&](Planes& p) { resize(&p.A, &p.B); }, same);
            CHECK(losses.Ended);
            CHECK_FALSE(losses.Leaked);
            CHECK_FALSE(losses.Spoiled);
            CHECK_FALSE(losses.WrongResult);
        }
    });
}

TEST_CASE("a threshold that runs out of memory leaves the image")
{
    InEveryVariant([](const char* variant) {
        CAPTURE(variant);
        CheckPasses(FailEachOfPlanes([](Planes& p) { LAT_Constant(p.Bytes, 7); }));
    });
}

TEST_CASE("a kernel that finds no memory ends without elements")
{
    // Before the call it is 5 columns wide.
    const auto same = [](const Planes& a, const Planes& b) {
        return b.B.Width == 5 ? !a.B.Ptr1D && !a.B.Ptr2D : SameContents(a, b);
    };
    CheckPasses(FailEach([] { return SomePlanes(2); },
                         [](Planes& p) { TwoDGaussian_LSE(&p.B, 9, 2, 7, 1, 0.3f); }, same));
}

TEST_CASE("a stitch that runs out of memory leaves both images")
{
    for (const int overlap : {0, 4})
        CheckPasses(FailEachOfPlanes([&](Planes& p) { gImaConcate(&p.A, &p.B, overlap, 1, true); }));
}

TEST_CASE("a row filter that runs out of memory leaves every pixel")
{
    InEveryVariant([](const char* variant) {
        CAPTURE(variant);
        CheckPasses(FailEachOfPlanes([](Planes& p) { ZEKFilter1DForRec(&p.A, 0.7f); }));
    });
}

TEST_CASE("a transform whose Init finds no memory is empty and can be initialised again")
{
    const long live = LiveBlockCount();
    int        thrown = 0;
    bool       empty = true, again = true, ended = false;
    for (long n = 1; n < 100 && !ended; ++n) {
        ZEKPP1DFFT fft;
        fft.Init(64, true);
        FailAt(n);
        try {
            fft.Init(128, false);
        } catch (const std::bad_alloc&) {
            ++thrown;
            empty = empty && !fft.Re && !fft.SinInverse && +fft.Length == 0;
            fft.RunFFT();
        }
        ended = !HasAllocationFailed();
        FailAt(0);
        fft.Init(32, true);
        fft.Re[0] = 1.0f;
        fft.RunFFT();
        again = again && fft.Re[31] == 1.0f;
    }
    CHECK(ended);
    CHECK(thrown == 8);
    CHECK(empty);
    CHECK(again);
    CHECK(LiveBlockCount() == live);
}

TEST_CASE("a kernel's spectrum that finds no memory leaves the transform whole or empty")
{
    const long live = LiveBlockCount();
    int        untouched = 0, emptied = 0;
    bool       ended = false;
    for (long n = 1; n < 100 && !ended; ++n) {
        ZEKPP1DFFT fft;
        fft.Init(16, true);
        fft.Re[3] = 5.0f;
        FailAt(n);
        try {
            GetKernerlFFT(fft, 64, 21, 0.5f);
        } catch (const std::bad_alloc&) {
            untouched += fft.Re && +fft.Length == 16 && fft.Re[3] == 5.0f;
            emptied += !fft.Re && +fft.Length == 0;
        }
        ended = !HasAllocationFailed();
        FailAt(0);
    }
    CHECK(ended);
    CHECK(untouched == 2);
    CHECK(emptied == 8);
    CHECK(LiveBlockCount() == live);
}

TEST_CASE("raw files that find no memory on their way leave the image")
{
    const TempFolder folder;
    std::string      path = folder.Path("samples.raw");
    REQUIRE(WriteBytes(path, std::vector<unsigned char>(9 * 8 * 4, 65)));
    CheckPasses(FailEachOfPlanes([&](Planes& p) { ReadUsDataShort(p.Words, path.data()); }));
    CheckPasses(FailEachOfPlanes([&](Planes& p) { ReadUsDataChar(p.Words, path.data()); }));
    CheckPasses(FailEachOfPlanes([&](Planes& p) { ReadUsDataFloat(p.Words, path.data(), 0.0f, 50.0f); }));
}

TEST_CASE("a picture that finds no memory is written whole or not at all, and its image stays")
{
    const TempFolder folder;
    const Planes     planes = SomePlanes(8);
    for (const char* const name : {"picture.bmp", "picture.png"}) {
        CAPTURE(name);
        const std::string path = folder.Path(name);
        CString           wide = folder.WidePath(name);
        Planes            arguments = planes;
        gSaveUcData(&arguments.Bytes, wide);
        const std::vector<unsigned char> whole = ReadBytes(path);
        CHECK_FALSE(whole.empty());
        int  missing = 0;
        bool good = true, ended = false, leaked = false;
        for (long n = 1; n < 1000 && !ended; ++n) {
            std::filesystem::remove(path);
            const long live = LiveBlockCount();
            FailAt(n);
            try {
                gSaveUcData(&arguments.Bytes, wide);
            } catch (const std::bad_alloc&) {
            }
            ended = !HasAllocationFailed();
            FailAt(0);
            leaked = leaked || LiveBlockCount() != live;
            const std::vector<unsigned char> bytes = ReadBytes(path);
            missing += bytes.empty();
            good = good && (bytes.empty() || bytes == whole) && SameContents(arguments, planes);
        }
        CHECK(ended);
        CHECK(missing > 0);
        CHECK(good);
        CHECK_FALSE(leaked);
    }
}
