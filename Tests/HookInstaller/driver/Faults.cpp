// Preloaded into hook_driver. Between beginFaults and endFaults it counts the calls into the C library that
// touch files, and does to one of them what the environment says:
//
//   FAULT_KILL=N            the process is killed before call N
//   FAULT_FAIL=N            call N fails ...
//   FAULT_ERRNO=NUMBER      ... with this error
//   FAULT_SHORT=N           call N, if it is a write, writes half
//   FAULT_FULL=BYTES        the disk takes this many bytes in all, then is full
//   FAULT_NO_FLAGS=1        renames with flags are unknown to the file system
//   FAULT_FOREIGN=N         before call N, and with FAULT_AGAIN=M before call M, somebody else renames
//                           FAULT_FIRST and then FAULT_SECOND to FAULT_TARGET
//
// Sleeping takes no time, and syncing neither: it is power cuts that need it, and nobody cuts the power here.

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include <linux/fs.h>

namespace {

bool counting = false;
int calls = 0;
int killAt = 0;
int failAt = 0;
int shortAt = 0;
int foreignAt = 0;
int againAt = 0;
int errorNumber = 0;
long bytesLeft = -1;
bool noFlags = false;

int number(const char* name, int missing) {
    const char* text = ::getenv(name);
    return text == nullptr ? missing : static_cast<int>(::strtol(text, nullptr, 10));
}

void renameForeign(const char* name) {
    const char* from = ::getenv(name);
    const char* to = ::getenv("FAULT_TARGET");
    if (from != nullptr && to != nullptr) {
        ::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0);
    }
}

/// Counts a call. True if it has to fail, with errno set.
bool fails() {
    if (!counting) {
        return false;
    }
    ++calls;
    if (calls == killAt) {
        ::syscall(SYS_kill, ::getpid(), SIGKILL);
    }
    if (calls == foreignAt) {
        renameForeign("FAULT_FIRST");
    }
    if (calls == againAt) {
        renameForeign("FAULT_SECOND");
    }
    if (calls == failAt) {
        errno = errorNumber;
        return true;
    }
    return false;
}

template <typename Function>
Function* real(Function* /*type*/, const char* name) {
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

#define REAL(name) real(&::name, #name)

extern "C" {

void beginFaults() {
    killAt = number("FAULT_KILL", 0);
    failAt = number("FAULT_FAIL", 0);
    shortAt = number("FAULT_SHORT", 0);
    foreignAt = number("FAULT_FOREIGN", 0);
    againAt = number("FAULT_AGAIN", 0);
    errorNumber = number("FAULT_ERRNO", EIO);
    bytesLeft = number("FAULT_FULL", -1);
    noFlags = number("FAULT_NO_FLAGS", 0) != 0;
    counting = true;
}

int endFaults() {
    counting = false;
    return calls;
}

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return fails() ? -1 : REAL(open)(path, flags, mode);
}

ssize_t read(int file, void* buffer, size_t size) {
    return fails() ? -1 : REAL(read)(file, buffer, size);
}

ssize_t write(int file, const void* buffer, size_t size) {
    if (fails()) {
        return -1;
    }
    if (counting && calls == shortAt) {
        size /= 2;
    }
    if (counting && bytesLeft >= 0) {
        if (bytesLeft == 0 && size > 0) {
            errno = ENOSPC;
            return -1;
        }
        size = size < static_cast<size_t>(bytesLeft) ? size : static_cast<size_t>(bytesLeft);
        bytesLeft -= static_cast<long>(size);
    }
    return REAL(write)(file, buffer, size);
}

/// The descriptor is gone even if the call fails.
int close(int file) {
    const bool failing = fails();
    const int saved = errno;
    const int result = REAL(close)(file);
    errno = failing ? saved : errno;
    return failing ? -1 : result;
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) {
    if (fails()) {
        return -1;
    }
    if (counting && noFlags && flags != 0) {
        errno = EINVAL;
        return -1;
    }
    return REAL(renameat2)(fromFolder, from, toFolder, to, flags);
}

DIR* opendir(const char* path) {
    return fails() ? nullptr : REAL(opendir)(path);
}

struct dirent* readdir(DIR* folder) {
    return fails() ? nullptr : REAL(readdir)(folder);
}

int fsync(int file) {
    return fails() ? -1 : counting ? 0 : REAL(fsync)(file);
}

int nanosleep(const timespec* time, timespec* left) {
    return counting ? 0 : REAL(nanosleep)(time, left);
}

int clock_nanosleep(clockid_t clock, int flags, const timespec* time, timespec* left) {
    return counting ? 0 : REAL(clock_nanosleep)(clock, flags, time, left);
}

#define FAILING(result, name, parameters, arguments)                                                         \
    result name parameters {                                                                                 \
        return fails() ? static_cast<result>(-1) : REAL(name) arguments;                                     \
    }

FAILING(int, fchmod, (int file, mode_t mode), (file, mode))
FAILING(int, chmod, (const char* path, mode_t mode), (path, mode))
FAILING(int, fchown, (int file, uid_t user, gid_t group), (file, user, group))
FAILING(int, rename, (const char* from, const char* to), (from, to))
FAILING(int, link, (const char* from, const char* to), (from, to))
FAILING(int, unlink, (const char* path), (path))
FAILING(int, mkdir, (const char* path, mode_t mode), (path, mode))
FAILING(int, stat, (const char* path, struct stat* facts), (path, facts))
FAILING(int, lstat, (const char* path, struct stat* facts), (path, facts))
FAILING(int, fstat, (int file, struct stat* facts), (file, facts))
FAILING(ssize_t, readlink, (const char* path, char* buffer, size_t size), (path, buffer, size))
FAILING(ssize_t, flistxattr, (int file, char* list, size_t size), (file, list, size))
FAILING(ssize_t, fgetxattr, (int file, const char* name, void* value, size_t size), (file, name, value, size))
FAILING(
    int, fsetxattr, (int file, const char* name, const void* value, size_t size, int flags),
    (file, name, value, size, flags)
)
FAILING(int, fremovexattr, (int file, const char* name), (file, name))

} // extern "C"
