// A host that loads the library, has rows divided among threads and unloads it, or exits.

#include <vostel.h>

#include <doctest/doctest.h>

#include <chrono>
#include <filesystem>
#include <iterator>
#include <thread>
#include <vector>

#if defined(_WIN32)
#    include <windows.h>
#else
#    include <dlfcn.h>
#endif

namespace {

class Library {
public:
    Library()
    {
#if defined(_WIN32)
        Module = LoadLibraryA(VOSTEL_LIBRARY);
#else
        Module = dlopen(VOSTEL_LIBRARY, RTLD_NOW | RTLD_LOCAL);
#endif
        REQUIRE(Module != nullptr);
    }

    template <typename Function>
    Function* Find(const char* name) const
    {
#if defined(_WIN32)
        return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(Module, name)));
#else
        return reinterpret_cast<Function*>(dlsym(Module, name));
#endif
    }

    bool Unload()
    {
#if defined(_WIN32)
        return FreeLibrary(Module) != 0;
#else
        return dlclose(Module) == 0;
#endif
    }

private:
#if defined(_WIN32)
    HMODULE Module = nullptr;
#else
    void* Module = nullptr;
#endif
};

#if !defined(_WIN32)
long ThreadsOfProcess()
{
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return std::distance(begin(tasks), end(tasks));
}
#endif

VostelPlane PlaneOf(std::vector<float>& samples, int side)
{
    VostelPlane plane = {};
    plane.size = sizeof plane;
    plane.type = VOSTEL_F32;
    plane.width = plane.height = side;
    plane.data = samples.data();
    return plane;
}

void ScaleRamp(const Library& library)
{
    const auto resize = library.Find<decltype(vostel_resize)>("vostel_resize");
    REQUIRE(static_cast<bool>(resize));
    std::vector<float> ramp(64 * 64), half(32 * 32);
    for (std::size_t i = 0; i < ramp.size(); ++i)
        ramp[i] = static_cast<float>(i % 64);
    const VostelPlane image = PlaneOf(ramp, 64);
    VostelPlane       result = PlaneOf(half, 32);
    REQUIRE(resize(&image, &result) == VOSTEL_OK);
    CHECK(half[5] == 10.0f);
}

}

TEST_CASE("the library can be unloaded after each routine")
{
    for (int i = 0; i < 30; ++i) {
        Library library;
        ScaleRamp(library);
        REQUIRE(library.Unload());
    }
}

#if !defined(_WIN32)
TEST_CASE("unloading ends the threads that routines have left")
{
    const auto use = [] {
        Library library;
        ScaleRamp(library);
        REQUIRE(library.Unload());
    };
    use();    // a sanitizer starts a thread of its own beside the first one
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    const long before = ThreadsOfProcess();
    for (int i = 0; i < 5; ++i)
        use();
    // The system may list a thread for a moment after its end.
    for (int wait = 0; wait < 100 && ThreadsOfProcess() != before; ++wait)
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    CHECK(ThreadsOfProcess() == before);
}
#endif

TEST_CASE("a process exits with the library loaded and its threads waiting")
{
    ScaleRamp(Library());
}
