#pragma once

// Times work of this library beside other libraries that do the same work. Ours in each processor variant and
// all peers run in turns, so that a busy machine hits everybody alike; what counts is the ratio of medians.
//
//     int main(int argc, char** argv)
//     {
//         bench::PeerBench peers(argc, argv);
//         bench::Contest   contest;
//         contest.Title = "fast stretch 0.28";
//         contest.Run = [&] { Stretch(target); };
//         contest.Check = [&] { return target == reference; };
//         contest.Peers.push_back({"opencv nearest", [&] { cv::resize(...); }});
//         contest.AtMost = 0.95;
//         peers.Compare(contest);
//         return peers.Finish();
//     }
//
// Flags: --only=TEXT (titles that contain it), --rounds=N (default 21), --markdown=FILE (appends the table),
// --growth=FILE (writes the curves for growth.gnuplot), --strict (a ratio over its bound counts as failure),
// and those of Google Benchmark, whose reporters list every sample set too (--benchmark_out=FILE
// --benchmark_out_format=json).

#include "base/CpuVariants.h"

#include <functional>
#include <string>
#include <vector>

namespace bench {

// Work of another library. Its result is its own business, Check only makes sure that it did the work.
struct Peer {
    std::string           Name;
    std::function<void()> Run;
    std::function<void()> Prepare;    // not timed; called before each run; may be empty
    std::function<bool()> Check;      // after a run; may be empty
};

struct Contest {
    std::string           Title;
    std::function<void()> Run;        // ours; the variant to use has been forced before
    std::function<void()> Prepare;    // not timed; called before each run; may be empty
    std::function<bool()> Check;      // after a run: the result equals the plain reference, byte for byte
    std::vector<Peer>     Peers;      // none: only times and the ratio to the plain variant are printed
    double                AtMost = 0.0;    // bound of the ratio to the best peer in the AVX2 variant; 0: none
    double                AtMostAvx512 = 0.0;     // the same for AVX-512; 0: as AtMost
    bool                  ColdCaches = false;     // before each run other memory sweeps the caches, untimed
    bool                  PlainIsSlow = false;    // the plain variant is checked but not timed
    int                   Rounds = 0;             // samples of each; 0: as the flag says
    std::string           Curve;                  // of which this is the point at Count; empty: of none
    int                   Count = 0;
};

class PeerBench {
public:
    PeerBench(int& argc, char** argv);

    // Checks, times and prints one line per variant. False when a check failed: then nothing is timed.
    bool Compare(const Contest& contest);

    // For results that are not a comparison of times, kept for the table.
    void Note(const std::string& line);

    // Prints the table with machine and date and returns the program's exit code.
    int Finish();

private:
    struct Row {
        std::string Title;
        std::string Variant;
        std::string Peer;            // the best one; empty without peers
        double      Ours = 0.0;      // ms
        double      Theirs = 0.0;    // ms
        double      Spread = 0.0;    // of ours: half the distance of the quartiles over the median
        double      AtMost = 0.0;
        double      Quietest = 0.0;    // ratio of the fastest samples; 0 without peers
    };
    // A point of a curve of growth.
    struct Point {
        std::string Curve;
        int         Count = 0;
        double      Ours = 0.0;      // ms, of the best variant of this processor
        double      Theirs = 0.0;    // ms
    };
    struct Samples {
        std::string         Name;
        std::vector<double> Seconds;
    };

    std::string Table() const;
    std::string GrowthTable() const;
    void        WriteGrowth() const;

    std::string              OnlyTitle;
    std::string              MarkdownFile;
    std::string              GrowthFile;
    std::string              Program;
    int                      Rounds = 21;
    bool                     Strict = false;
    bool                     Failed = false;
    std::vector<Row>         Rows;
    std::vector<Point>       Growth;        // a curve after the other, each by its counts
    std::vector<Samples>     AllSamples;    // replayed to Google Benchmark's reporters
    std::vector<std::string> Notes;
};

// "plain", "sse2", "avx2", "avx512".
const char* NameOf(vostel::CpuVariant variant);

}
