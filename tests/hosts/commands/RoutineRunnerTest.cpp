#include "commands/RoutineRunner.h"

#include "hosts/commands/TestViewer.h"

using namespace vostel::viewer;

namespace {

const Routine& Gauss()
{
    return *FindRoutine(Command::Gauss);
}

std::vector<ImagePointer> FlatImage(int side)
{
    auto image = std::make_shared<Image>();
    FillPlane(*image, side, side, [](int, int) { return 7; });
    return {image};
}

// A runner whose calls a test makes, and what came of them.
struct Runs {
    PostedCalls                      Posted;
    std::vector<std::pair<int, int>> Steps;
    std::vector<RoutineResult>       Results;
    RoutineRunner Runner{[this](std::function<void()> call) { Posted.Add(std::move(call)); }};

    bool Start(int side, std::vector<double> values)
    {
        return Runner.Start(
            Gauss(), FlatImage(side), std::move(values),
            [this](int done, int total) { Steps.emplace_back(done, total); },
            [this](const RoutineResult& result) { Results.push_back(result); });
    }
    bool Finish()
    {
        return Posted.RunUntil([this] { return !Results.empty(); });
    }
};

}

TEST_CASE("a routine's steps come in order and its result last, on the thread of the owner")
{
    Runs                  runs;
    const std::thread::id owner = std::this_thread::get_id();
    std::thread::id       finished;
    REQUIRE(runs.Runner.Start(
        Gauss(), FlatImage(8), {3, 1, 4},
        [&](int done, int total) {
            CHECK(runs.Results.empty());
            runs.Steps.emplace_back(done, total);
        },
        [&](const RoutineResult& result) {
            finished = std::this_thread::get_id();
            CHECK_FALSE(runs.Runner.IsRunning());
            runs.Results.push_back(result);
        }));
    CHECK(runs.Runner.IsRunning());
    REQUIRE(runs.Finish());
    CHECK(finished == owner);
    CHECK(runs.Steps == std::vector<std::pair<int, int>>{{0, 4}, {1, 4}, {2, 4}, {3, 4}, {4, 4}});
    REQUIRE(runs.Results[0].Result);
    CHECK(runs.Results[0].Result->Width == 8);
    CHECK_FALSE(runs.Results[0].Cancelled);
}

TEST_CASE("no second routine starts before the first has finished")
{
    Runs runs;
    REQUIRE(runs.Start(8, {3, 1, 1}));
    CHECK_FALSE(runs.Start(8, {3, 1, 1}));
    REQUIRE(runs.Finish());
    CHECK(runs.Results.size() == 1);
    runs.Results.clear();
    CHECK(runs.Start(8, {3, 1, 1}));
    CHECK(runs.Finish());
}

TEST_CASE("a cancelled routine ends at its next step without a result, and the next one runs")
{
    Runs runs;
    REQUIRE(runs.Start(1000, {63, 10, 50}));
    runs.Runner.Cancel();
    REQUIRE(runs.Finish());
    CHECK(runs.Results[0].Cancelled);
    CHECK_FALSE(runs.Results[0].Result);
    CHECK(runs.Steps.size() < 50);
    runs.Results.clear();
    REQUIRE(runs.Start(8, {3, 1, 1}));
    REQUIRE(runs.Finish());
    CHECK(runs.Results[0].Result);
}

TEST_CASE("a problem of the parameters is the result")
{
    Runs runs;
    REQUIRE(runs.Start(8, {4, 1, 1}));    // an even kernel
    REQUIRE(runs.Finish());
    CHECK(runs.Results[0].Problem != nullptr);
}
