#pragma once

#include <doctest/doctest.h>

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

// While it lives, modes of files count for this thread as for anyone, also where it is privileged.
class WithoutPrivileges {
public:
    WithoutPrivileges()
    {
        REQUIRE(syscall(SYS_capget, &Header, Before) == 0);
        __user_cap_data_struct without[2] = {Before[0], Before[1]};
        without[0].effective = without[1].effective = 0;
        REQUIRE(syscall(SYS_capset, &Header, without) == 0);
    }
    ~WithoutPrivileges() { syscall(SYS_capset, &Header, Before); }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

private:
    __user_cap_header_struct Header = {_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct   Before[2] = {};
};
