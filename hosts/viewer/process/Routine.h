#pragma once

#include <atomic>
#include <span>
#include <vector>

namespace vostel::viewer {

// An image that a routine works on, rows from the top without gaps.
struct Samples {
    std::vector<float> Values;
    int                Width = 0;
    int                Height = 0;

    Samples() = default;
    Samples(int width, int height)
        : Values(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)), Width(width),
          Height(height)
    {
    }
};

// Thrown by a routine that was asked to stop.
struct Stopped {};

// Shared between the thread that runs a routine and the one that watches it.
class RunState {
public:
    std::atomic<bool> StopWanted = false;
    std::atomic<int>  Permille = 0;    // of the work

    // What runs waits at the next place that it reaches.
    void Pause(bool wanted)
    {
        PauseWanted = wanted;
        PauseWanted.notify_all();
    }
    void Stop()    // also what is paused
    {
        StopWanted = true;
        Pause(false);
    }

    // Of what has been done; throws Stopped.
    void Reach(int done, int all)
    {
        PauseWanted.wait(true);
        if (StopWanted)
            throw Stopped();
        Permille = static_cast<int>(1000LL * done / all);
    }

private:
    std::atomic<bool> PauseWanted = false;
};

struct Parameter {
    const char*                  Id;      // kept in settings by it
    const char*                  Name;    // English, to be translated in the context "Routines"
    double                       First;
    double                       Low, High;    // inclusive
    int                          Decimals = 0;
    std::span<const char* const> Choices = {};    // English, to be translated; the value is an index
};

// What a person can have done to an image: a line of the table of all routines.
struct Routine {
    const char*                Id;       // "process.gaussian"; keys and values are kept by it
    const char*                Title;    // for a menu, English, to be translated in the context "Routines"
    const char*                Tip;
    std::span<const Parameter> Parameters;
    bool                       HasPreview;    // a part of the image shows what becomes of the whole
    bool                       IsMask;        // of bytes, 0 or 255
    bool                       KeepsRange;    // its values lie about where those of the image do
    // On any thread; throws Error, bad_alloc or Stopped. Values lie within the limits of their parameters.
    Samples (*Run)(const Samples& image, std::span<const double> values, RunState& state);
};

std::span<const Routine> AllRoutines();

}
