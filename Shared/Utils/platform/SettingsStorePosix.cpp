#include "Shared/Utils/platform/SettingsStore.h"

#include "Shared/Utils/AsciiChars.h"
#include "Shared/Utils/platform/FileServices.h"
#include "Shared/Utils/platform/PosixFile.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

namespace Nvr::Platform {

namespace {

// Hand-written files are a few lines long; these bounds only keep a broken one from doing harm.
constexpr off_t kLargestFile = off_t{1024} * 1024;
constexpr std::size_t kDeepestKey = 64;

constexpr char kSeparator = '\\';

std::string PathOfBranch(SettingsBranch branch) {
    const bool isUser = branch == SettingsBranch::User;
    const char* const relocated = std::getenv("NOTAVERA_SETTINGS");
    if (relocated != nullptr && relocated[0] == '/')
        return PathInFolder(relocated, isUser ? "user.conf" : "machine.conf");
    if (!isUser)
        return "/etc/notavera/settings.conf";
    const std::string folder = UserConfigFolderPath();
    return folder.empty() ? folder : PathInFolder(folder, "notavera/settings.conf");
}

// Empty for a file that is missing, unreadable or too large, and for anything that is no file.
std::string ReadWhole(const std::string& path) {
    struct stat facts {};
    const PosixFile file(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.IsOpen() || fstat(file.Get(), &facts) != 0 || !S_ISREG(facts.st_mode) ||
        facts.st_size > kLargestFile)
        return {};
    std::string text(static_cast<std::size_t>(facts.st_size), '\0');
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t got = read(file.Get(), text.data() + done, text.size() - done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    text.resize(done);
    return text;
}

std::string_view Trim(std::string_view text) {
    while (!text.empty() && Ascii::IsSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && Ascii::IsSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

// Removes and returns the part before `mark`, or all when there is no mark.
std::string_view TakeUpTo(std::string_view& text, char mark) {
    const auto end = text.find(mark);
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return taken;
}

// All keys of a file, as a tree in which a key knows its first and last child and its next sibling by number.
class KeyTree {
public:
    explicit KeyTree(std::string_view text) {
        m_Keys.emplace_back();
        while (!text.empty())
            ReadLine(Trim(TakeUpTo(text, '\n')));
    }

    std::vector<SettingsKey> Below(const std::vector<std::string>& path) const {
        std::size_t key = kRoot;
        for (const std::string& name : path) {
            const auto found = m_Children.find({key, name});
            if (found == m_Children.end())
                return {};
            key = found->second;
        }
        return ListFrom(key);
    }

private:
    static constexpr std::size_t kRoot = 0;
    // The root is nobody's child.
    static constexpr std::size_t kNone = kRoot;

    struct Key {
        std::string_view Name;
        std::string_view Value;
        std::size_t Parent = kNone;
        std::size_t FirstChild = kNone;
        std::size_t LastChild = kNone;
        std::size_t NextSibling = kNone;
    };
    using Place = std::pair<std::size_t, std::string_view>;
    struct PlaceHash {
        std::size_t operator()(const Place& place) const {
            constexpr std::size_t kSpread = 0x9E3779B1;
            return std::hash<std::string_view>()(place.second) ^ (place.first * kSpread);
        }
    };

    void ReadLine(std::string_view line) {
        if (line.empty() || line.front() == '#')
            return;
        if (line.front() == '[') {
            const bool isClosed = line.back() == ']';
            m_Section = isClosed ? KeyAt(kRoot, line.substr(1, line.size() - 2)) : std::nullopt;
            return;
        }
        if (!m_Section)
            return;
        const bool hasValue = line.find('=') != std::string_view::npos;
        const std::string_view name = Trim(TakeUpTo(line, '='));
        const std::optional<std::size_t> key = name.empty() ? m_Section : KeyAt(*m_Section, name);
        if (key && hasValue)
            m_Keys[*key].Value = Trim(line);
    }

    // The key at a path below another, made as far as it is missing; nothing for a path with an empty name
    // in it or one that leads too deep.
    std::optional<std::size_t> KeyAt(std::size_t key, std::string_view path) {
        std::size_t depth = 0;
        for (std::size_t above = key; above != kRoot; above = m_Keys[above].Parent)
            ++depth;
        std::vector<std::string_view> names;
        do {
            names.push_back(Trim(TakeUpTo(path, kSeparator)));
            if (names.back().empty() || depth + names.size() > kDeepestKey)
                return std::nullopt;
        } while (!path.empty());
        for (const std::string_view name : names)
            key = ChildOf(key, name);
        return key;
    }

    std::size_t ChildOf(std::size_t parent, std::string_view name) {
        const auto [place, isNew] = m_Children.try_emplace({parent, name}, m_Keys.size());
        if (!isNew)
            return place->second;
        const std::size_t child = m_Keys.size();
        m_Keys.push_back({name, {}, parent, kNone, kNone, kNone});
        Key& above = m_Keys[parent];
        if (above.LastChild == kNone)
            above.FirstChild = child;
        else
            m_Keys[above.LastChild].NextSibling = child;
        above.LastChild = child;
        return child;
    }

    std::vector<SettingsKey> ListFrom(std::size_t top) const {
        std::vector<SettingsKey> list;
        std::vector<std::pair<std::size_t, std::size_t>> waiting{{top, 0}};
        while (!waiting.empty()) {
            const auto [number, depth] = waiting.back();
            waiting.pop_back();
            const Key& key = m_Keys[number];
            list.push_back({depth, std::string(key.Name), std::string(key.Value)});
            if (key.NextSibling != kNone && number != top)
                waiting.emplace_back(key.NextSibling, depth);
            if (key.FirstChild != kNone)
                waiting.emplace_back(key.FirstChild, depth + 1);
        }
        return list;
    }

    std::vector<Key> m_Keys;
    std::unordered_map<Place, std::size_t, PlaceHash> m_Children;
    // Lines before the first section, and those of one that cannot be, belong nowhere.
    std::optional<std::size_t> m_Section;
};

} // namespace

std::vector<SettingsKey> ReadSettingsKey(SettingsBranch branch, const std::vector<std::string>& path) {
    const std::string text = ReadWhole(PathOfBranch(branch));
    return KeyTree(text).Below(path);
}

} // namespace Nvr::Platform
