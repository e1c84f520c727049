#include "fuzz/FuzzSupport.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace FuzzSupport {

void Require(bool holds, const char* property) {
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
}

std::string FreshPath(const char* name) {
    const char* place = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
    return std::string(place) + "/fretline-fuzz-" + std::to_string(getpid()) + "-" + name;
}

InputFile::InputFile(const std::uint8_t* data, std::size_t size) : m_Path(FreshPath("input")) {
    if (std::FILE* file = std::fopen(m_Path.c_str(), "wb")) {
        std::fwrite(data, 1, size, file);
        std::fclose(file);
    }
}

InputFile::~InputFile() {
    std::remove(m_Path.c_str());
}

} // namespace FuzzSupport
