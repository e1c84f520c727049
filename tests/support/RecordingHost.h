#pragma once

#include "Shared/Utils/Dynalink.h"
#include "tests/support/FakeHost.h"

#include <optional>
#include <string>
#include <vector>

namespace TestSupport {

/// The built library, loaded as any host would load it, and the host in the test program that it talks to.
/// One at a time; link `fake_host` too. Paths are in the system's own bytes.
class RecordingHost {
public:
    /// Loads `library` and initialises it; the options file lies in `configFolder`. `parentWindow` owns its
    /// dialog, and its resources are in `resources`, which is the library itself unless another is given.
    RecordingHost(const std::string& library, const std::string& configFolder, void* parentWindow = nullptr,
                  std::optional<Nvr::Platform::ModuleHandle> resources = std::nullopt);
    ~RecordingHost();
    RecordingHost(const RecordingHost&) = delete;
    RecordingHost& operator=(const RecordingHost&) = delete;

    /// What NVR_INIT gave; false also when the library could not be loaded.
    bool IsReady() const { return m_Ready; }

    /// Opens a file and gives what NVR_OPENFILE gave.
    int Open(const std::string& file);
    /// The calls of the last Open, one line each, in order.
    const std::vector<std::string>& GetCalls() const { return m_Host.Calls; }
    /// The bytes of the score that the host was told to load; empty when there was none.
    const std::string& GetScore() const { return m_Host.LoadedBytes; }
    FakeHost& GetHost() { return m_Host; }

private:
    FakeHost m_Host;
    Nvr::Dynalink m_Library;
    int (*m_OpenFile)(const char*) = nullptr;
    int (*m_Terminate)() = nullptr;
    bool m_Ready = false;
};

} // namespace TestSupport
