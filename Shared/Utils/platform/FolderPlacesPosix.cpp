#include "Shared/Utils/platform/FileServices.h"

#include "Shared/Utils/platform/PosixFile.h"

#include <array>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <type_traits>
#include <vector>

#include <fcntl.h>
#include <locale.h>
#include <pwd.h>

namespace Nvr::Platform {

namespace {

constexpr const char* kUsualTemporaryFolder = "/tmp";
constexpr const char* kSharedDataFolder = "/var/lib";

// The absolute path in an environment variable; empty when there is none.
std::string PathFromEnvironment(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr && value[0] == '/' ? value : "";
}

bool TakesNewFiles(const std::string& folder) {
    return ExamineFile(folder).Kind == FileKind::Folder &&
           faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

std::string HomeFolder() {
    std::string home = PathFromEnvironment("HOME");
    if (!home.empty())
        return home;
    constexpr std::size_t kLargestEntry = 16384;
    std::vector<char> text(kLargestEntry);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, text.data(), text.size(), &found) != 0 || found == nullptr)
        return {};
    return found->pw_dir != nullptr && found->pw_dir[0] == '/' ? found->pw_dir : "";
}

// The folder that the user has chosen for a purpose, or the usual one in the home folder.
std::string FolderOfUser(const char* variable, const char* usual) {
    std::string chosen = PathFromEnvironment(variable);
    if (!chosen.empty())
        return chosen;
    const std::string home = HomeFolder();
    return home.empty() ? home : PathInFolder(home, usual);
}

} // namespace

std::string TemporaryFolder() {
    const std::string chosen = PathFromEnvironment("TMPDIR");
    return TakesNewFiles(chosen) ? chosen : kUsualTemporaryFolder;
}

std::string UserConfigFolderPath() {
    return FolderOfUser("XDG_CONFIG_HOME", ".config");
}

std::string UserDataFolderPath() {
    return FolderOfUser("XDG_DATA_HOME", ".local/share");
}

std::string CommonDataFolderPath() {
    return kSharedDataFolder;
}

std::string LongDateAndTime(std::int64_t time) {
    const auto moment = static_cast<std::time_t>(time);
    std::tm parts{};
    if (moment != time || localtime_r(&moment, &parts) == nullptr)
        return {};
    // The host may have left the process in the "C" locale; the user's own is in the environment.
    const auto freeLocale = [](locale_t locale) { freelocale(locale); };
    const std::unique_ptr<std::remove_pointer_t<locale_t>, decltype(freeLocale)> user(
        newlocale(LC_TIME_MASK, "", nullptr), freeLocale);
    const auto written = [&](const char* format) {
        std::array<char, 256> text{};
        const std::size_t length = user != nullptr
                                       ? strftime_l(text.data(), text.size(), format, &parts, user.get())
                                       : std::strftime(text.data(), text.size(), format, &parts);
        return std::string(text.data(), length);
    };
    // The format's own day of the month is padded.
    return written("%A, ") + std::to_string(parts.tm_mday) + written(" %B %Y %X");
}

} // namespace Nvr::Platform
