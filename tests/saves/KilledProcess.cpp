#include "saves/KilledProcess.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <iterator>

namespace {

bool ChangesFiles(const SystemCall& call)
{
    constexpr std::uint64_t Changing[] = {
        SYS_write,     SYS_writev,    SYS_pwrite64, SYS_ftruncate, SYS_fsync,
        SYS_fdatasync, SYS_fchmod,    SYS_fchown,   SYS_sendfile,  SYS_copy_file_range,
        SYS_renameat,  SYS_renameat2, SYS_unlinkat, SYS_mkdirat,
#ifdef SYS_rename
        SYS_rename,    SYS_unlink,    SYS_mkdir,
#endif
    };
    if (call.Number == SYS_openat)
        return (call.Arguments[2] & (O_WRONLY | O_RDWR | O_CREAT)) != 0;
    return std::find(std::begin(Changing), std::end(Changing), call.Number) != std::end(Changing);
}

}

ProcessEnd RunAndKillAt(int n, const std::function<void()>& work)
{
    int changes = 0;
    return RunWatched(work, [&](const SystemCall& call) { return !ChangesFiles(call) || ++changes != n; });
}

ProcessEnd RunAndKillBeyond(unsigned long bytes, const std::function<void()>& work)
{
    const pid_t child = fork();
    if (child == 0) {
        const rlimit noCore = {0, 0}, limit = {bytes, bytes};
        std::signal(SIGXFSZ, SIG_DFL);
        if (setrlimit(RLIMIT_CORE, &noCore) != 0 || setrlimit(RLIMIT_FSIZE, &limit) != 0)
            _exit(CannotBeWatched);
        work();
        _exit(0);
    }
    int status = 0;
    return waitpid(child, &status, 0) == child ? EndOfProcess(status) : ProcessEnd::Unknown;
}
