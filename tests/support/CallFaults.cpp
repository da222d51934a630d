#include "support/CallFaults.h"

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>

namespace calls {

namespace {

struct {
    bool isArmed = false;
    Fault fault = Fault::Kill;
    int at = 0;
    std::atomic<int> count = 0;
} plan;

constexpr int reached = 100;
constexpr int failed = 101;

/// @return false when the call is to find no room
bool mayGoOn(bool needsRoom) {
    if (!plan.isArmed || ++plan.count < plan.at)
        return true;
    if (plan.fault == Fault::Kill)
        std::raise(SIGKILL);
    return !needsRoom;
}

template <class Result>
Result noRoom(Result result) {
    errno = ENOSPC;
    return result;
}

/// Runs the system's own function of that name.
template <class Function, class... Arguments>
auto next(const char* name, Arguments... arguments) {
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast)
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name))(arguments...);
}

/// What the test says, and what threads call to each other.
bool isNoFile(int descriptor) {
    struct stat status = {};
    return descriptor <= STDERR_FILENO ||
           (::fstat(descriptor, &status) == 0 && !S_ISREG(status.st_mode));
}

} // namespace

bool strike(Fault fault, int n, const std::function<void()>& action) {
    const bool failedBefore = testing::Test::HasFailure();
    const pid_t child = fork();
    if (child == 0) {
        plan.fault = fault;
        plan.at = n;
        plan.isArmed = true;
        action();
        plan.isArmed = false;
        const bool isWell = failedBefore || !testing::Test::HasFailure();
        _exit(!isWell ? failed : plan.count >= n ? reached : EXIT_SUCCESS);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
        return true;
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) != failed) << "at call " << n;
    return WIFEXITED(status) && WEXITSTATUS(status) == reached;
}

} // namespace calls

using calls::mayGoOn;
using calls::next;
using calls::noRoom;

extern "C" {

ssize_t write(int file, const void* bytes, size_t count) {
    if (!calls::isNoFile(file) && !mayGoOn(true))
        return noRoom(-1);
    return syscall(SYS_write, file, bytes, count);
}

ssize_t pwrite(int file, const void* bytes, size_t count, off_t offset) {
    return mayGoOn(true) ? syscall(SYS_pwrite64, file, bytes, count, offset) : noRoom(-1);
}

ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t offset) {
    return mayGoOn(true) ? syscall(SYS_pwrite64, file, bytes, count, offset) : noRoom(-1);
}

size_t fwrite(const void* bytes, size_t size, size_t count, FILE* file) {
    if (!calls::isNoFile(fileno(file)) && !mayGoOn(true))
        return noRoom(0);
    return next<decltype(fwrite)>("fwrite", bytes, size, count, file);
}

int fclose(FILE* file) {
    const bool hasRoom = mayGoOn(true);
    const int result = next<decltype(fclose)>("fclose", file);
    return hasRoom ? result : noRoom(EOF);
}

int fsync(int file) {
    return mayGoOn(true) ? static_cast<int>(syscall(SYS_fsync, file)) : noRoom(-1);
}

int fdatasync(int file) {
    return mayGoOn(true) ? static_cast<int>(syscall(SYS_fdatasync, file)) : noRoom(-1);
}

int ftruncate64(int file, off64_t size) noexcept {
    mayGoOn(false);
    return static_cast<int>(syscall(SYS_ftruncate, file, size));
}

int mkdir(const char* path, mode_t mode) noexcept {
    return mayGoOn(true) ? next<decltype(mkdir)>("mkdir", path, mode) : noRoom(-1);
}

int link(const char* from, const char* to) noexcept {
    return mayGoOn(true) ? next<decltype(link)>("link", from, to) : noRoom(-1);
}

int rename(const char* from, const char* to) noexcept {
    mayGoOn(false);
    return next<decltype(rename)>("rename", from, to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
              unsigned flags) noexcept {
    mayGoOn(false);
    return next<decltype(renameat2)>("renameat2", fromFolder, from, toFolder, to, flags);
}

int unlink(const char* path) noexcept {
    mayGoOn(false);
    return next<decltype(unlink)>("unlink", path);
}

int remove(const char* path) noexcept {
    mayGoOn(false);
    return next<decltype(remove)>("remove", path);
}
}
