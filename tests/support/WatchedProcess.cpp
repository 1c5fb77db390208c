#include "support/WatchedProcess.h"

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

ProcessEnd EndOfProcess(int status)
{
    if (WIFEXITED(status) && WEXITSTATUS(status) == CannotBeWatched)
        return ProcessEnd::Unknown;
    return WIFEXITED(status) ? ProcessEnd::Done : ProcessEnd::Killed;
}

ProcessEnd RunWatched(const std::function<void()>& work, const std::function<bool(const SystemCall&)>& look)
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
    if (waitpid(child, &status, 0) != child || !WIFSTOPPED(status))
        return EndOfProcess(status);
    ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    long signal = 0;
    while (ptrace(PTRACE_SYSCALL, child, nullptr, signal) == 0 && waitpid(child, &status, 0) == child &&
           WIFSTOPPED(status)) {
        signal = WSTOPSIG(status) == (SIGTRAP | 0x80) ? 0 : WSTOPSIG(status);
        __ptrace_syscall_info info = {};
        if (signal == 0 &&
            ptrace(PTRACE_GET_SYSCALL_INFO, child, reinterpret_cast<void*>(sizeof info), &info) > 0 &&
            info.op == PTRACE_SYSCALL_INFO_ENTRY && !look({info.entry.nr, info.entry.args}))
            kill(child, SIGKILL);
    }
    return EndOfProcess(status);
}
