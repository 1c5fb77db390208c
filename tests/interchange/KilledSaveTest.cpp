// A process that ends in the middle of a save, as by a crash.

#include "support/OpenCanvas.h"
#include "support/OpenShapes.h"
#include "support/TempFolder.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <random>

namespace {

// Saves one of two canvases after the other until it is killed.
[[noreturn]] void SaveForever(int32_t first, int32_t second, const char* path)
{
    for (;;) {
        if (vostel_session_save(first, path, 0) != VOSTEL_OK ||
            vostel_session_save(second, path, 0) != VOSTEL_OK)
            _exit(1);
    }
}

}

TEST_CASE("a save that is killed at any moment leaves a whole session, of before or of now")
{
    const TempFolder  folder;
    const std::string path = folder.Path("s.vostel.json");
    const OpenCanvas  few;
    const OpenCanvas  many;
    Add(few.Number, VOSTEL_POLYGON, {{5, 5}, {25, 6}, {14.5, 22}});
    for (int i = 0; i < 300; ++i)
        Add(many.Number, VOSTEL_POLYGON, {{5.0 + i, 5}, {25, 6}, {14.5, 22}});
    REQUIRE(vostel_session_save(many.Number, path.c_str(), 0) == VOSTEL_OK);
    const std::vector<unsigned char> large = ReadBytes(path);
    REQUIRE(vostel_session_save(few.Number, path.c_str(), 0) == VOSTEL_OK);
    const std::vector<unsigned char> small = ReadBytes(path);
    REQUIRE(large.size() > 20 * small.size());
    std::mt19937 random(3);
    for (int round = 0; round < 40; ++round) {
        CAPTURE(round);
        const pid_t child = fork();
        if (child == 0)
            SaveForever(many.Number, few.Number, path.c_str());
        REQUIRE(child > 0);
        usleep(1000 + random() % 20000);
        REQUIRE(kill(child, SIGKILL) == 0);
        int status = 0;
        REQUIRE(waitpid(child, &status, 0) == child);
        CHECK(WIFSIGNALED(status));    // and has not ended by a save that failed
        const std::vector<unsigned char> bytes = ReadBytes(path);
        CHECK((bytes == large || bytes == small));
    }
    REQUIRE(vostel_session_open(few.Number, path.c_str(), 0) == VOSTEL_OK);
}
