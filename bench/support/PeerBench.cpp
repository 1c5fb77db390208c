#include "support/PeerBench.h"

#include "support/Machine.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <numeric>
#include <random>
#include <sstream>

using namespace vostel;

namespace bench {
namespace {

// A sample is at least this long; shorter work is repeated inside it, unless it has to be prepared.
constexpr double SampleSeconds = 0.002;
constexpr double WarmSeconds = 0.05;

double SecondsOf(const std::function<void()>& prepare, const std::function<void()>& run, int repeats)
{
    if (prepare)
        prepare();
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < repeats; ++i)
        run();
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    return passed.count() / repeats;
}

// As much as the largest caches hold passes through them; only read, so that nobody has to write it back.
void SweepCaches()
{
    static const std::vector<unsigned char> memory(std::size_t{64} << 20, 1);
    unsigned                                sum = 0;
    for (std::size_t i = 0; i < memory.size(); i += 64)
        sum += memory[i];
    benchmark::DoNotOptimize(sum);
}

double Quantile(std::vector<double> values, double part)
{
    std::sort(values.begin(), values.end());
    const double      place = part * static_cast<double>(values.size() - 1);
    const std::size_t below = static_cast<std::size_t>(place);
    const std::size_t above = std::min(below + 1, values.size() - 1);
    return values[below] + (values[above] - values[below]) * (place - static_cast<double>(below));
}

std::string Formatted(const char* format, double value)
{
    char text[64];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

// One who takes part: ours in a variant, or a peer.
struct Runner {
    std::string                  Name;
    CpuVariant                   Variant = CpuVariant::Plain;
    bool                         Ours = false;
    const std::function<void()>* Prepare = nullptr;
    const std::function<void()>* Run = nullptr;
    double                       Once = 0.0;    // seconds of one run
    int                          Repeats = 1;
    std::vector<double>          Seconds;
};

}

const char* NameOf(CpuVariant variant)
{
    switch (variant) {
    case CpuVariant::Plain:
        return "plain";
    case CpuVariant::Baseline:
        return "sse2";
    case CpuVariant::Avx2:
        return "avx2";
    default:
        return "avx512";
    }
}

PeerBench::PeerBench(int& argc, char** argv) : Program(argv[0])
{
    Program = Program.substr(Program.find_last_of('/') + 1);
    benchmark::Initialize(&argc, argv);
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument.rfind("--only=", 0) == 0)
            OnlyTitle = argument.substr(7);
        else if (argument.rfind("--rounds=", 0) == 0)
            Rounds = std::max(1, std::atoi(argument.c_str() + 9));
        else if (argument.rfind("--markdown=", 0) == 0)
            MarkdownFile = argument.substr(11);
        else if (argument.rfind("--growth=", 0) == 0)
            GrowthFile = argument.substr(9);
        else if (argument == "--strict")
            Strict = true;
        else {
            std::fprintf(stderr, "%s: unknown flag %s\n", Program.c_str(), argument.c_str());
            std::exit(2);
        }
    }
}

bool PeerBench::Compare(const Contest& contest)
{
    if (contest.Title.find(OnlyTitle) == std::string::npos)
        return true;

    std::vector<Runner> runners;
    for (int number = 0; number <= static_cast<int>(BestCpuVariant()); ++number) {
        const CpuVariant variant = ForceCpuVariant(static_cast<CpuVariant>(number));
        SecondsOf(contest.Prepare, contest.Run, 1);
        if (contest.Check && !contest.Check()) {
            std::printf("%-28s %-7s WRONG RESULT, not timed\n", contest.Title.c_str(), NameOf(variant));
            Failed = true;
            ForceCpuVariant(BestCpuVariant());
            return false;
        }
        if (variant == CpuVariant::Plain && contest.PlainIsSlow)
            continue;
        Runner runner;
        runner.Name = NameOf(variant);
        runner.Variant = variant;
        runner.Ours = true;
        runner.Prepare = &contest.Prepare;
        runner.Run = &contest.Run;
        runners.push_back(runner);
    }
    for (const Peer& peer : contest.Peers) {
        SecondsOf(peer.Prepare, peer.Run, 1);
        if (peer.Check && !peer.Check()) {
            std::printf("%-28s peer %s did not do the work, not timed\n", contest.Title.c_str(),
                        peer.Name.c_str());
            Failed = true;
            ForceCpuVariant(BestCpuVariant());
            return false;
        }
        Runner runner;
        runner.Name = peer.Name;
        runner.Prepare = &peer.Prepare;
        runner.Run = &peer.Run;
        runners.push_back(runner);
    }

    for (Runner& runner : runners) {
        if (runner.Ours)
            ForceCpuVariant(runner.Variant);
        runner.Once = SecondsOf(*runner.Prepare, *runner.Run, 1);
        for (int again = 0; again < 3 && runner.Once < WarmSeconds; ++again)
            runner.Once = std::min(runner.Once, SecondsOf(*runner.Prepare, *runner.Run, 1));
        if (!*runner.Prepare && !contest.ColdCaches && runner.Once < SampleSeconds)
            runner.Repeats = static_cast<int>(std::min(SampleSeconds / std::max(runner.Once, 1e-8), 1e5)) + 1;
    }
    const int                rounds = contest.Rounds > 0 ? contest.Rounds : Rounds;
    std::mt19937             random(1);
    std::vector<std::size_t> turns(runners.size());
    std::iota(turns.begin(), turns.end(), std::size_t{0});
    for (int round = 0; round < rounds; ++round) {
        std::shuffle(turns.begin(), turns.end(), random);
        for (const std::size_t turn : turns) {
            Runner& runner = runners[turn];
            if (runner.Ours)
                ForceCpuVariant(runner.Variant);
            // Short work runs once unmeasured first: it shall find the caches as it leaves them itself, not
            // as its neighbour does.
            if (contest.ColdCaches)
                SweepCaches();
            else if (runner.Once < WarmSeconds)
                SecondsOf(*runner.Prepare, *runner.Run, runner.Repeats);
            runner.Seconds.push_back(SecondsOf(*runner.Prepare, *runner.Run, runner.Repeats));
        }
    }
    ForceCpuVariant(BestCpuVariant());

    const Runner* best = nullptr;
    double        bestTime = 0.0;
    double        quietestPeer = 0.0;
    for (const Runner& runner : runners) {
        AllSamples.push_back({contest.Title + "/" + runner.Name, runner.Seconds});
        if (runner.Ours)
            continue;
        const double time = Quantile(runner.Seconds, 0.5);
        const double quietest = Quantile(runner.Seconds, 0.0);
        quietestPeer = !best ? quietest : std::min(quietestPeer, quietest);
        if (!best || time < bestTime) {
            best = &runner;
            bestTime = time;
        }
    }
    for (const Runner& runner : runners) {
        if (!runner.Ours)
            continue;
        Row row;
        row.Title = contest.Title;
        row.Variant = runner.Name;
        const double median = Quantile(runner.Seconds, 0.5);
        row.Ours = median * 1e3;
        row.Spread = (Quantile(runner.Seconds, 0.75) - Quantile(runner.Seconds, 0.25)) * 0.5 / median;
        if (runner.Variant == CpuVariant::Avx2)
            row.AtMost = contest.AtMost;
        if (runner.Variant == CpuVariant::Avx512)
            row.AtMost = contest.AtMostAvx512 > 0.0 ? contest.AtMostAvx512 : contest.AtMost;
        std::string line = Formatted("%9.3f ms", row.Ours);
        if (best) {
            row.Peer = best->Name;
            row.Theirs = bestTime * 1e3;
            row.Quietest = Quantile(runner.Seconds, 0.0) / quietestPeer;
            line += Formatted("   best peer %9.3f ms", row.Theirs) + " (" + row.Peer + ")" +
                    Formatted("   ratio %.3f", row.Ours / row.Theirs);
            if (row.AtMost > 0.0)
                line += Formatted("   at most %.2f", row.AtMost) +
                        (row.Ours / row.Theirs > row.AtMost ? "   OVER" : "");
            line += Formatted("   of minima %.3f", row.Quietest);
        }
        std::printf("%-28s %-7s %s   spread %.0f %%\n", row.Title.c_str(), row.Variant.c_str(), line.c_str(),
                    row.Spread * 100.0);
        Rows.push_back(row);
    }
    if (!contest.Curve.empty())
        Growth.push_back({contest.Curve, contest.Count, Rows.back().Ours, Rows.back().Theirs});
    for (const Runner& runner : runners)
        if (!runner.Ours)
            std::printf("%-28s   peer  %9.3f ms   %s\n", "", Quantile(runner.Seconds, 0.5) * 1e3,
                        runner.Name.c_str());
    std::fflush(stdout);
    return true;
}

void PeerBench::Note(const std::string& line)
{
    std::printf("%s\n", line.c_str());
    Notes.push_back(line);
}

std::string PeerBench::Table() const
{
    std::ostringstream out;
    out << "\n### " << Program << ", " << MachineAndDate() << "\n\n"
        << "Medians of runs in turns, one machine, same run. Ratio: our time over the best peer's.\n\n"
        << "| Work | Variant | Ours | Best peer | Ratio | At most | Ratio of minima "
           "|\n|---|---|---|---|---|---|---|\n";
    for (const Row& row : Rows) {
        out << "| " << row.Title << " | " << row.Variant << " | " << Formatted("%.3f ms", row.Ours) << " | ";
        if (row.Peer.empty())
            out << "| | | |\n";
        else
            out << Formatted("%.3f ms", row.Theirs) << " " << row.Peer << " | "
                << Formatted("%.3f", row.Ours / row.Theirs) << " | "
                << (row.AtMost > 0.0 ? Formatted("%.2f", row.AtMost) : "") << " | "
                << Formatted("%.3f", row.Quietest) << " |\n";
    }
    if (!Notes.empty())
        out << "\n";
    for (const std::string& note : Notes)
        out << "- " << note << "\n";
    out << GrowthTable();
    return out.str();
}

std::string PeerBench::GrowthTable() const
{
    std::ostringstream out;
    for (std::size_t i = 0; i < Growth.size();) {
        std::size_t end = i;
        while (end < Growth.size() && Growth[end].Curve == Growth[i].Curve)
            ++end;
        std::string counts, line, ours, theirs;
        for (; i < end; ++i) {
            counts += " | " + std::to_string(Growth[i].Count);
            line += "|---";
            ours += " | " + Formatted("%.4g", Growth[i].Ours * 1e3);
            theirs += " | " + Formatted("%.4g", Growth[i].Theirs * 1e3);
        }
        out << "\n| " << Growth[end - 1].Curve << ", microseconds" << counts << " |\n|---" << line
            << "|\n| ours" << ours << " |\n| peer" << theirs << " |\n";
    }
    return out.str();
}

// A block a curve as gnuplot reads them: count, ours in microseconds, the best peer's.
void PeerBench::WriteGrowth() const
{
    std::ofstream file(GrowthFile);
    for (std::size_t i = 0; i < Growth.size(); ++i) {
        const Point& point = Growth[i];
        if (i == 0 || point.Curve != Growth[i - 1].Curve)
            file << (i == 0 ? "" : "\n\n") << "# " << point.Curve << '\n';
        file << point.Count << ' ' << point.Ours * 1e3 << ' ' << point.Theirs * 1e3 << '\n';
    }
}

int PeerBench::Finish()
{
    for (const Samples& samples : AllSamples) {
        const std::vector<double>& seconds = samples.Seconds;
        benchmark::RegisterBenchmark(samples.Name.c_str(),
                                     [&seconds](benchmark::State& state) {
                                         std::size_t sample = 0;
                                         for ([[maybe_unused]] auto turn : state)
                                             state.SetIterationTime(seconds[sample++ % seconds.size()]);
                                     })
            ->UseManualTime()
            ->Iterations(static_cast<benchmark::IterationCount>(seconds.size()))
            ->Unit(benchmark::kMillisecond);
    }
    if (!AllSamples.empty())
        benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();

    const std::string table = Table();
    std::fputs(table.c_str(), stdout);
    if (!MarkdownFile.empty())
        std::ofstream(MarkdownFile, std::ios::app) << table;
    if (!GrowthFile.empty() && !Growth.empty())
        WriteGrowth();
    bool over = false;
    for (const Row& row : Rows)
        over = over || (row.AtMost > 0.0 && row.Ours > row.AtMost * row.Theirs);
    return Failed || (Strict && over) ? 1 : 0;
}

}
