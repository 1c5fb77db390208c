// Every function of the open interface with every argument in turn bad, and all others good. Whatever comes,
// the status says so, memory stays whole, and a call that fails changes nothing.

#include "open/OpenFunctions.h"
#include "support/OpenCanvas.h"

#include "vostel.h"

#include <doctest/doctest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <string>
#include <vector>

namespace {

// Functions that give text and take no pointer.
const std::vector<std::string> TextFunctions = {"vostel_version", "vostel_status_name",
                                                "vostel_last_message"};

// The names of the functions that the header declares, with the number of their parameters.
std::map<std::string, std::size_t> Declarations()
{
    std::ifstream     file(VOSTEL_HEADER);
    const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    const std::regex  declaration(R"(VOSTEL_CALL [\w *]*?(vostel_\w+)\(([^)]*)\);)");
    std::map<std::string, std::size_t> found;
    for (std::sregex_iterator at(text.begin(), text.end(), declaration), end; at != end; ++at) {
        const std::string parameters = (*at)[2];
        found[(*at)[1]] =
            parameters == "void"
                ? 0
                : static_cast<std::size_t>(std::count(parameters.begin(), parameters.end(), ',')) + 1;
    }
    return found;
}

}

TEST_CASE("the table has every function that the header declares, with all of its parameters")
{
    std::map<std::string, std::size_t> listed;
    for (const Function& function : AllFunctions())
        listed[function.Name] = function.Arguments.size();
    for (const std::string& name : TextFunctions)
        listed[name] = name == "vostel_status_name" ? 1 : 0;
    CHECK(listed.size() == AllFunctions().size() + TextFunctions.size());
    for (const auto& declared : Declarations()) {
        const std::string& name = declared.first;
        CAPTURE(name);
        CHECK(listed.count(name) == 1);
        CHECK(listed[name] == declared.second);
    }
    CHECK(listed.size() == Declarations().size());
}

TEST_CASE("with all arguments good every function succeeds, also where memory is not aligned")
{
    for (const bool aligned : {true, false}) {
        for (const Function& function : AllFunctions()) {
            BadInputWorld            world(aligned);
            const std::vector<Value> values = GoodValues(world, function);
            CAPTURE(function.Name);
            CAPTURE(aligned);
            const VostelStatus status = function.Call(values);
            CHECK_MESSAGE(status == VOSTEL_OK, vostel_last_message());
            CHECK(world.GuardsStand());
        }
    }
}

TEST_CASE("with each argument bad in turn no function harms anything, and what fails changes nothing")
{
    int calls = 0;
    int failures = 0;
    for (const Function& function : AllFunctions()) {
        for (std::size_t i = 0; i < function.Arguments.size(); ++i) {
            const std::size_t variants = BadInputWorld(true).Bad(function.Arguments[i], i).size();
            for (std::size_t variant = 0; variant < variants; ++variant) {
                BadInputWorld      world(true);
                std::vector<Value> values = GoodValues(world, function);
                const BadValue     bad = world.Bad(function.Arguments[i], i)[variant];
                values[i] = bad.Use();
                const std::string  before = world.Snapshot();
                const VostelStatus status = function.Call(values);
                CAPTURE(function.Name);
                CAPTURE(function.Arguments[i]);
                CAPTURE(bad.What);
                ++calls;
                failures += status != VOSTEL_OK;
                CHECK(status <= VOSTEL_OK);
                CHECK(status > VOSTEL_INTERNAL);
                CHECK(world.GuardsStand());
                if (bad.MustFail)
                    CHECK(status != VOSTEL_OK);
                if (status != VOSTEL_OK) {
                    CHECK(std::strlen(vostel_last_message()) > 0);
                    if (status != VOSTEL_BUFFER_TOO_SMALL)
                        CHECK(world.Snapshot() == before);
                }
            }
        }
    }
    CHECK(calls > 1000);
    CHECK(failures > calls / 2);
}

TEST_CASE("names of statuses are there for every number")
{
    CHECK(std::string(vostel_status_name(VOSTEL_NOT_FOUND)) == "VOSTEL_NOT_FOUND");
    for (const VostelStatus status : {1, -12, 2147483647, -2147483647 - 1})
        CHECK(std::string(vostel_status_name(status)) == "VOSTEL_UNKNOWN");
    CHECK(std::string(vostel_version()).find('.') != std::string::npos);
}
