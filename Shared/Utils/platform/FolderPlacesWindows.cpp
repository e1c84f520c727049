// The random numbers of the system's runtime are declared for those who ask.
#define _CRT_RAND_S

#include "Shared/Utils/platform/FileServices.h"

#include "Shared/Utils/platform/WindowsFile.h"

#include <array>
#include <limits>
#include <stdlib.h>

#include <shlobj.h>

namespace Nvr::Platform {

namespace {

constexpr std::size_t kLongestPath = 32767;

std::string WithoutLastSeparator(std::string path) {
    if (EndsWithSeparator(path) && !path.ends_with(":\\"))
        path.pop_back();
    return path;
}

bool TakesNewFiles(const std::string& folder) {
    return ExamineFile(folder).Kind == FileKind::Folder &&
           WindowsFile(WindowsFile::OpenExisting(folder, FILE_ADD_FILE)).IsOpen();
}

std::string SpecialFolder(int number) {
    std::array<char, MAX_PATH> path{};
    return SHGetSpecialFolderPathA(nullptr, path.data(), number, FALSE) != FALSE ? path.data() : "";
}

// What a service makes of a buffer and its length; it answers with the length of the text, or with the length
// that the buffer would need.
template <class Service>
std::string TextFrom(Service service) {
    std::array<char, MAX_PATH + 1> text{};
    const DWORD length = service(static_cast<DWORD>(text.size()), text.data());
    return length < text.size() ? std::string(text.data(), length) : std::string();
}

} // namespace

std::string TemporaryFolder() {
    std::string folder = WithoutLastSeparator(TextFrom(GetTempPathA));
    if (TakesNewFiles(folder))
        return folder;
    folder = PathInFolder(SpecialFolder(CSIDL_LOCAL_APPDATA), "Temp");
    if (TakesNewFiles(folder))
        return folder;
    return PathInFolder(
        TextFrom([](DWORD size, char* text) { return GetSystemWindowsDirectoryA(text, size); }), "Temp");
}

std::string ExecutableFolder() {
    std::string path(kLongestPath, '\0');
    const DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
    path.resize(length);
    return FolderOfPath(path);
}

std::string UserConfigFolderPath() {
    return SpecialFolder(CSIDL_APPDATA);
}

std::string UserDataFolderPath() {
    return SpecialFolder(CSIDL_APPDATA);
}

std::string CommonDataFolderPath() {
    return SpecialFolder(CSIDL_COMMON_APPDATA);
}

std::string LongDateAndTime(std::int64_t time) {
    constexpr std::int64_t kTicksPerSecond = 10'000'000;
    constexpr std::int64_t kSecondsFrom1601 = 11'644'473'600;
    if (time < -kSecondsFrom1601 ||
        time > std::numeric_limits<std::int64_t>::max() / kTicksPerSecond - kSecondsFrom1601)
        return {};
    const auto ticks = static_cast<std::uint64_t>((time + kSecondsFrom1601) * kTicksPerSecond);
    const FILETIME moment{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32U)};
    SYSTEMTIME universal{};
    SYSTEMTIME local{};
    if (FileTimeToSystemTime(&moment, &universal) == FALSE ||
        SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local) == FALSE)
        return {};
    std::array<char, 256> date{};
    std::array<char, 256> hour{};
    // In the system code page like all text, whichever belongs to the language of the settings.
    if (GetDateFormatA(LOCALE_USER_DEFAULT, DATE_LONGDATE | LOCALE_USE_CP_ACP, &local, nullptr, date.data(),
                       static_cast<int>(date.size())) == 0 ||
        GetTimeFormatA(LOCALE_USER_DEFAULT, LOCALE_USE_CP_ACP, &local, nullptr, hour.data(),
                       static_cast<int>(hour.size())) == 0)
        return {};
    return std::string(date.data()) + " " + hour.data();
}

std::uint64_t UnguessableNumber() {
    // Fails only where the system has no random numbers at all; the names made of it are then taken, not
    // predicted.
    unsigned high = 0;
    unsigned low = 0;
    if (rand_s(&high) != 0 || rand_s(&low) != 0)
        return 0;
    return (std::uint64_t{high} << 32U) | low;
}

} // namespace Nvr::Platform
