#include "Projects/Formats/platform/Engraver.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace Formats {

namespace fs = std::filesystem;

namespace {

constexpr auto kLongestRun = std::chrono::minutes(2);
constexpr auto kLookEvery = std::chrono::milliseconds(10);
constexpr std::size_t kMostSaid = 300;
// What a shell gives for a program that is not there; posix_spawnp may only say it this way.
constexpr int kNotFound = 127;

// A folder that goes with the object.
class Folder {
public:
    Folder() {
        std::error_code failure;
        const std::string pattern = (fs::temp_directory_path(failure) / "fretline-engrave-XXXXXX").string();
        std::vector<char> name(pattern.begin(), pattern.end());
        name.push_back('\0');
        if (!failure && mkdtemp(name.data()) != nullptr)
            m_Path = name.data();
    }
    ~Folder() {
        std::error_code failure;
        if (!m_Path.empty())
            fs::remove_all(m_Path, failure);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    const fs::path& Path() const { return m_Path; }

private:
    fs::path m_Path;
};

std::string ReadAll(const fs::path& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

// The exit code, or -1 when the program could not be waited for in time.
int WaitFor(pid_t process) {
    const auto end = std::chrono::steady_clock::now() + kLongestRun;
    int status = 0;
    while (waitpid(process, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > end) {
            kill(process, SIGKILL);
            waitpid(process, &status, 0);
            return -1;
        }
        std::this_thread::sleep_for(kLookEvery);
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int RunLilyPond(const fs::path& folder, const std::string& kind) {
    const std::string input = (folder / "score.ly").string();
    const std::string output = (folder / "score").string();
    const std::string said = (folder / "said").string();
    std::vector<std::string> words{"lilypond",
                                   "--loglevel=WARNING",
                                   "-dno-point-and-click",
                                   "-dresolution=150",
                                   "--" + kind,
                                   "-o",
                                   output,
                                   input};
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, said.c_str(), O_WRONLY | O_CREAT | O_APPEND,
                                     S_IRUSR | S_IWUSR);
    posix_spawn_file_actions_adddup2(&files, STDOUT_FILENO, STDERR_FILENO);
    pid_t process = -1;
    const int failure = posix_spawnp(&process, arguments.front(), &files, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&files);
    return failure == ENOENT ? kNotFound : failure != 0 ? -1 : WaitFor(process);
}

} // namespace

std::string Engrave(const std::string& lilyPond, const std::string& kind, std::string& why) {
    const Folder folder;
    if (folder.Path().empty() || !(std::ofstream(folder.Path() / "score.ly", std::ios::binary) << lilyPond)) {
        why = "no room for temporary files";
        return {};
    }
    const int exitCode = RunLilyPond(folder.Path(), kind);
    std::string bytes = ReadAll(folder.Path() / ("score." + kind));
    if (exitCode == 0 && !bytes.empty())
        return bytes;
    if (exitCode == kNotFound)
        why = "the program lilypond is missing (on Debian: apt install lilypond)";
    else
        why = "lilypond failed: " + ReadAll(folder.Path() / "said").substr(0, kMostSaid);
    return {};
}

} // namespace Formats
