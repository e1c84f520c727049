#include "Shared/Utils/platform/MessageBox.h"

#include "Shared/Utils/platform/TextServices.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace Nvr::Platform {

namespace {

using CommandLine = std::vector<std::string>;

bool HasDesktop() {
    const auto isSet = [](const char* name) {
        const char* const value = std::getenv(name);
        return value != nullptr && *value != '\0';
    };
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY");
}

// The programs of the common desktops that show a box, best first.
std::vector<CommandLine> BoxPrograms(const std::string& title, const std::string& text) {
    return {
        {"zenity", "--info", "--no-markup", "--title=" + title, "--text=" + text},
        {"kdialog", "--title", title, "--msgbox", text},
        {"xmessage", "-center", "-title", title, text},
    };
}

// What waitpid gives when the program ended by itself; a negative number when that cannot be learnt.
int WaitFor(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0) {
        // A host that does not want to hear of its children leaves no status to be read.
        if (errno != EINTR)
            return errno == ECHILD ? 0 : -1;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// True when the program was there and showed the box, whichever way the user closed it.
bool RunBoxProgram(const CommandLine& command) {
    // What a shell or a spawn reports for a program that is not there, or cannot run.
    constexpr int kFirstExitCodeOfAbsence = 126;
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    pid_t process = 0;
    if (posix_spawnp(&process, arguments[0], nullptr, nullptr, arguments.data(), environ) != 0)
        return false;
    const int exitCode = WaitFor(process);
    return exitCode >= 0 && exitCode < kFirstExitCodeOfAbsence;
}

} // namespace

bool ShowInformationBox(const std::string& systemTitle, const std::string& systemText) {
    const std::string title = ToUtf8(systemTitle);
    const std::string text = ToUtf8(systemText);
    if (HasDesktop()) {
        for (const CommandLine& command : BoxPrograms(title, text)) {
            if (RunBoxProgram(command))
                return true;
        }
    }
    std::fprintf(stderr, "%s: %s\n", title.c_str(), text.c_str());
    return false;
}

} // namespace Nvr::Platform
