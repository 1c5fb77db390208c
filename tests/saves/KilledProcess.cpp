#include "saves/KilledProcess.h"

#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <iterator>

namespace {

constexpr int CannotBeWatched = 77;

bool ChangesFiles(const __ptrace_syscall_info& info)
{
    constexpr unsigned long long Changing[] = {
        SYS_write,     SYS_writev,    SYS_pwrite64, SYS_ftruncate, SYS_fsync,
        SYS_fdatasync, SYS_fchmod,    SYS_fchown,   SYS_sendfile,  SYS_copy_file_range,
        SYS_renameat,  SYS_renameat2, SYS_unlinkat, SYS_mkdirat,
#ifdef SYS_rename
        SYS_rename,    SYS_unlink,    SYS_mkdir,
#endif
    };
    if (info.entry.nr == SYS_openat)
        return (info.entry.args[2] & (O_WRONLY | O_RDWR | O_CREAT)) != 0;
    return std::find(std::begin(Changing), std::end(Changing), info.entry.nr) != std::end(Changing);
}

ProcessEnd EndOf(int status)
{
    if (WIFEXITED(status) && WEXITSTATUS(status) == CannotBeWatched)
        return ProcessEnd::Unknown;
    return WIFEXITED(status) ? ProcessEnd::Done : ProcessEnd::Killed;
}

}

ProcessEnd RunAndKillAt(int n, const std::function<void()>& work)
{
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            _exit(CannotBeWatched);
        raise(SIGSTOP);
        work();
        _exit(0);
    }
    int status = 0;
    int changes = 0;
    if (waitpid(child, &status, 0) != child || !WIFSTOPPED(status))
        return EndOf(status);
    ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    long signal = 0;
    while (ptrace(PTRACE_SYSCALL, child, nullptr, signal) == 0 && waitpid(child, &status, 0) == child &&
           WIFSTOPPED(status)) {
        signal = WSTOPSIG(status) == (SIGTRAP | 0x80) ? 0 : WSTOPSIG(status);
        __ptrace_syscall_info info = {};
        if (signal == 0 &&
            ptrace(PTRACE_GET_SYSCALL_INFO, child, reinterpret_cast<void*>(sizeof info), &info) > 0 &&
            info.op == PTRACE_SYSCALL_INFO_ENTRY && ChangesFiles(info) && ++changes == n)
            kill(child, SIGKILL);
    }
    return EndOf(status);
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
    return waitpid(child, &status, 0) == child ? EndOf(status) : ProcessEnd::Unknown;
}
