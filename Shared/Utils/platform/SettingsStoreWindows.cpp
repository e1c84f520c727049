#include "Shared/Utils/platform/SettingsStore.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <windows.h>

namespace Nvr::Platform {

namespace {

// Settings are a few keys; these bounds only keep a store gone wrong from doing harm.
constexpr std::size_t kMostBytes = std::size_t{1024} * 1024;
constexpr std::size_t kDeepestKey = 64;

constexpr char kSeparator = '\\';

// A key of the store while it is open.
class StoreKey {
public:
    StoreKey(HKEY above, const std::string& path) {
        if (RegOpenKeyExA(above, path.c_str(), 0, KEY_READ, &m_Key) != ERROR_SUCCESS)
            m_Key = nullptr;
    }
    ~StoreKey() {
        if (m_Key != nullptr)
            RegCloseKey(m_Key);
    }
    StoreKey(StoreKey&& other) noexcept : m_Key(std::exchange(other.m_Key, nullptr)) {}
    StoreKey& operator=(StoreKey&&) = delete;
    StoreKey(const StoreKey&) = delete;

    bool IsOpen() const { return m_Key != nullptr; }
    HKEY Get() const { return m_Key; }

    // Empty when it is missing, no text, or too long.
    std::string DefaultValue() const {
        DWORD type = REG_NONE;
        DWORD size = 0;
        if (RegQueryValueExA(m_Key, "", nullptr, &type, nullptr, &size) != ERROR_SUCCESS || type != REG_SZ ||
            size > kMostBytes)
            return {};
        std::string text(size, '\0');
        auto* const bytes = reinterpret_cast<BYTE*>(text.data());
        if (RegQueryValueExA(m_Key, "", nullptr, &type, bytes, &size) != ERROR_SUCCESS || type != REG_SZ)
            return {};
        // The zero that ends the text is stored with it, if whoever wrote it has thought of it.
        text.resize(size);
        text.resize(std::min(text.find('\0'), text.size()));
        return text;
    }

    // The name of the sub-key with that number; nothing when there are no more.
    std::optional<std::string> SubKeyName(DWORD number) const {
        // A name has 255 characters at most, each of one byte or two.
        constexpr DWORD kLongestName = 2 * 255 + 1;
        std::array<char, kLongestName> name;
        DWORD length = kLongestName;
        if (RegEnumKeyExA(m_Key, number, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
            return std::nullopt;
        return std::string(name.data(), length);
    }

private:
    HKEY m_Key = nullptr;
};

// Empty for a path that has a nameless key in it, or one whose name would be read as a path of its own.
std::optional<std::string> PathText(const std::vector<std::string>& path) {
    std::string text;
    for (const std::string& name : path) {
        if (name.empty() || name.find(kSeparator) != std::string::npos)
            return std::nullopt;
        if (!text.empty())
            text += kSeparator;
        text += name;
    }
    return text;
}

// Reads a key with all below it: the keys on the way down stay open, each with the number of its next child.
class SubtreeReader {
public:
    std::vector<SettingsKey> Read(StoreKey top, const std::string& name) {
        Enter(std::move(top), name);
        while (!m_Way.empty()) {
            const std::optional<std::string> child = m_Way.back().Key.SubKeyName(m_Way.back().NextChild);
            ++m_Way.back().NextChild;
            if (!child || m_BytesLeft == 0)
                m_Way.pop_back();
            else if (m_Way.size() <= kDeepestKey)
                Enter(StoreKey(m_Way.back().Key.Get(), *child), *child);
        }
        return std::move(m_List);
    }

private:
    struct Step {
        StoreKey Key;
        DWORD NextChild;
    };

    void Enter(StoreKey key, const std::string& name) {
        if (!key.IsOpen())
            return;
        std::string value = key.DefaultValue();
        const std::size_t bytes = name.size() + value.size() + 1;
        if (bytes > m_BytesLeft) {
            m_BytesLeft = 0;
            return;
        }
        m_BytesLeft -= bytes;
        m_List.push_back({m_Way.size(), name, std::move(value)});
        m_Way.push_back({std::move(key), 0});
    }

    std::vector<SettingsKey> m_List;
    std::vector<Step> m_Way;
    std::size_t m_BytesLeft = kMostBytes;
};

} // namespace

std::vector<SettingsKey> ReadSettingsKey(SettingsBranch branch, const std::vector<std::string>& path) {
    const std::optional<std::string> text = PathText(path);
    if (!text)
        return {};
    const HKEY root = branch == SettingsBranch::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    return SubtreeReader().Read(StoreKey(root, *text), path.empty() ? std::string() : path.back());
}

} // namespace Nvr::Platform
