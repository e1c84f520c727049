#include "tests/faults/FileFaults.h"

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/uio.h>
#include <unistd.h>

FaultCountdown FileFaults;
std::function<void(const char* path)> BeforeNewFile;

namespace {

// The function of that name that this program stands in front of.
template <class Function>
Function* Real(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

bool IsFailureDue() {
    if (!FileFaults.IsDue())
        return false;
    errno = EIO;
    return true;
}

} // namespace

// The dynamic linker gives these to the standard library too.
extern "C" {

// The name under which files of any size are opened; the product asks for those.
[[gnu::visibility("default")]] int open64(const char* path, int flags, ...) {
    static auto* const real = Real<int(const char*, int, ...)>("open64");
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0) {
        std::va_list arguments;
        va_start(arguments, flags);
        mode = va_arg(arguments, mode_t);
        va_end(arguments);
    }
    if ((flags & O_EXCL) != 0 && BeforeNewFile)
        BeforeNewFile(path);
    return IsFailureDue() ? -1 : real(path, flags, mode);
}

[[gnu::visibility("default")]] std::FILE* fopen64(const char* path, const char* mode) {
    static auto* const real = Real<std::FILE*(const char*, const char*)>("fopen64");
    return IsFailureDue() ? nullptr : real(path, mode);
}

[[gnu::visibility("default")]] ssize_t read(int file, void* bytes, std::size_t count) {
    static auto* const real = Real<ssize_t(int, void*, std::size_t)>("read");
    return IsFailureDue() ? -1 : real(file, bytes, count);
}

[[gnu::visibility("default")]] ssize_t write(int file, const void* bytes, std::size_t count) {
    static auto* const real = Real<ssize_t(int, const void*, std::size_t)>("write");
    return IsFailureDue() ? -1 : real(file, bytes, count);
}

[[gnu::visibility("default")]] ssize_t writev(int file, const iovec* parts, int count) {
    static auto* const real = Real<ssize_t(int, const iovec*, int)>("writev");
    return IsFailureDue() ? -1 : real(file, parts, count);
}

[[gnu::visibility("default")]] int fsync(int file) {
    // Waiting for the disk shows nothing here, and there would be thousands of waits.
    static_cast<void>(file);
    return IsFailureDue() ? -1 : 0;
}

[[gnu::visibility("default")]] int close(int file) {
    static auto* const real = Real<int(int)>("close");
    const bool fails = IsFailureDue();
    const int result = real(file);
    return fails ? -1 : result;
}

[[gnu::visibility("default")]] int fclose(std::FILE* file) {
    static auto* const real = Real<int(std::FILE*)>("fclose");
    const bool fails = IsFailureDue();
    const int result = real(file);
    return fails ? EOF : result;
}

[[gnu::visibility("default")]] int rename(const char* from, const char* to) noexcept {
    static auto* const real = Real<int(const char*, const char*)>("rename");
    return IsFailureDue() ? -1 : real(from, to);
}
}
