#pragma once

#include <string>
#include <utility>

#include <unistd.h>

/// Small change among the POSIX sources of this folder; nothing else includes it.
namespace Nvr::Platform {

/// An open file of the system; closes it. Negative is none.
class PosixFile {
public:
    explicit PosixFile(int descriptor) : m_Descriptor(descriptor) {}
    PosixFile(const PosixFile&) = delete;
    PosixFile& operator=(const PosixFile&) = delete;
    ~PosixFile() { Close(); }

    int Get() const { return m_Descriptor; }
    bool IsOpen() const { return m_Descriptor >= 0; }
    /// False when the system has kept a failed write for this moment.
    bool Close() {
        const int descriptor = std::exchange(m_Descriptor, -1);
        return descriptor < 0 || close(descriptor) == 0;
    }

private:
    int m_Descriptor;
};

/// The folder part of an absolute path, without the slash unless it is the root.
inline std::string FolderOfPath(const std::string& path) {
    const auto slash = path.rfind('/');
    if (slash == std::string::npos)
        return {};
    return slash == 0 ? "/" : path.substr(0, slash);
}

/// `name` in `folder`.
inline std::string PathInFolder(const std::string& folder, const std::string& name) {
    return folder.empty() || folder.back() == '/' ? folder + name : folder + "/" + name;
}

} // namespace Nvr::Platform
