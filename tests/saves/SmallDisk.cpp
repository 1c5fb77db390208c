#include "saves/SmallDisk.h"

#include "support/TempFolder.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

namespace {

bool Mount(const std::string& folder)
{
    const uid_t user = geteuid();
    const gid_t group = getegid();
    if (unshare(CLONE_NEWNS) != 0) {
        if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return false;
        std::ofstream("/proc/self/setgroups") << "deny";
        std::ofstream("/proc/self/uid_map") << user << ' ' << user << " 1";
        std::ofstream("/proc/self/gid_map") << group << ' ' << group << " 1";
    }
    return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("none", folder.c_str(), "tmpfs", 0, "size=1m") == 0;
}

}

std::string FaultOnSmallDisk(const std::function<std::string(const std::string& disk)>& work)
{
    const TempFolder folder;
    const TempFolder results;
    const pid_t      child = fork();
    if (child == 0) {
        std::ofstream result(results.Path("result"));
        result << (Mount(folder.Path()) ? work(folder.Path()) : CannotMount);
        result.close();
        _exit(0);
    }
    int status = 0;
    if (waitpid(child, &status, 0) != child || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return "the process has ended with status " + std::to_string(status);
    std::ifstream result(results.Path("result"));
    return std::string(std::istreambuf_iterator<char>(result), std::istreambuf_iterator<char>());
}

void FillDisk(const std::string& path)
{
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    char      block[512] = {};
    for (std::size_t size = sizeof block; size > 0;) {
        const ssize_t written = write(descriptor, block, size);
        if (written <= 0)
            size = size > 1 ? 1 : 0;
    }
    close(descriptor);
}
