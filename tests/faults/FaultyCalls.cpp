// The file calls of the program and of its libraries end up here, since the functions of a program
// come before those of the C library. That library's headers stay out: they declare the same names.

#include "faults/FaultyCalls.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <dlfcn.h>

namespace {

Fault fault{};
int calls = 0;

bool isDue(bool needsSpace) {
    ++calls;
    return fault.call > 0 &&
           (fault.lasts ? needsSpace && calls >= fault.call : calls == fault.call);
}

long fail() {
    if (fault.error == kDeath)
        std::raise(SIGKILL);
    errno = fault.error;
    return -1;
}

bool fails(bool needsSpace = false) {
    return isDue(needsSpace) && fault.error != kShortWrite && fail() == -1;
}

template <typename Function>
Function* real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

void armFault(const Fault& armed) {
    fault = armed;
    calls = 0;
}

bool faultOccurred() {
    return calls >= fault.call;
}

#define SKYVERT_FAULTY(result, name, parameters, arguments)                                        \
    extern "C" result name parameters {                                                            \
        return fails() ? -1 : real<result parameters>(#name) arguments;                            \
    }

SKYVERT_FAULTY(int, fstat, (int file, void* status), (file, status))
SKYVERT_FAULTY(int, lstat, (const char* path, void* status), (path, status))
SKYVERT_FAULTY(int, flock, (int file, int operation), (file, operation))
SKYVERT_FAULTY(int, fsync, (int file), (file))
SKYVERT_FAULTY(int, fchown, (int file, unsigned user, unsigned group), (file, user, group))
SKYVERT_FAULTY(int, fchmod, (int file, unsigned mode), (file, mode))
SKYVERT_FAULTY(int, mkdir, (const char* path, unsigned mode), (path, mode))
SKYVERT_FAULTY(int, rename, (const char* from, const char* to), (from, to))
SKYVERT_FAULTY(int, remove, (const char* path), (path))
SKYVERT_FAULTY(long, read, (int file, void* bytes, std::size_t size), (file, bytes, size))

extern "C" int open(const char* path, int flags, unsigned mode) {
    constexpr int kNewFile = 0200; // O_EXCL
    const bool failed = fails((flags & kNewFile) != 0);
    return failed ? -1 : real<int(const char*, int, unsigned)>("open")(path, flags, mode);
}

extern "C" long write(int file, const void* bytes, std::size_t size) {
    const bool due = isDue(true);
    // An interrupted write reports how much it wrote, or has written nothing.
    const std::size_t part = fault.error == EINTR ? 0 : (size + 1) / 2;
    auto* const writeBytes = real<long(int, const void*, std::size_t)>("write");
    const long written = writeBytes(file, bytes, due ? part : size);
    return due && fault.error != kShortWrite ? fail() : written;
}
