#include "Projects/TabText/prepare/GluedStaves.h"

#include "Projects/Fretline/text/StaveDetection.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>
#include <string>

namespace TabText {

namespace {

using Fretline::kMostLinesOfAStave;

constexpr int kFewestStrings = 4;
constexpr int kStringsOfABass = 4;
constexpr std::size_t kSizesCounted = 16;

// The strings of instruments from the highest down, as they are usually tuned.
constexpr std::array<std::string_view, 5> kInstruments{"EBGDAE", "EBGDAD", "GDAE", "GDAD", "GDAEB"};

bool IsString(const DrawnLine& line) {
    return line.Kind == LineKind::String || line.Kind == LineKind::Dashes;
}

std::vector<int> SizesOf(int lines, int size) {
    return std::vector<int>(static_cast<std::size_t>(lines / size), size);
}

} // namespace

GluedStaves::GluedStaves(const std::vector<DrawnLine>& lines)
    : m_Lines(lines), m_BlocksOfSize(kSizesCounted) {
    std::size_t size = 0;
    for (std::size_t at = 0; at <= lines.size(); ++at) {
        if (at < lines.size() && IsString(lines[at])) {
            ++size;
            continue;
        }
        if (size < kSizesCounted)
            ++m_BlocksOfSize[size];
        size = 0;
    }
}

bool GluedStaves::HasNames(int first, int end) const {
    return std::none_of(m_Lines.begin() + first, m_Lines.begin() + end,
                        [](const DrawnLine& line) { return line.Name.empty(); });
}

// The lines have the names of an instrument's strings.
bool GluedStaves::IsStave(int first, int lines) const {
    std::string names;
    for (int line = first; line < first + lines; ++line) {
        const std::string_view name = m_Lines[static_cast<std::size_t>(line)].Name;
        names += name.size() == 1 ? Nvr::Ascii::ToUpper(name[0]) : '?';
    }
    return std::find(kInstruments.begin(), kInstruments.end(), names) != kInstruments.end();
}

std::vector<int> GluedStaves::SizesByNames(int first, int end) const {
    const int lines = end - first;
    const auto nameOf = [&](int line) { return m_Lines[static_cast<std::size_t>(line)].Name; };
    // The same strings again and again.
    for (int size = kFewestStrings; size <= kMostLinesOfAStave; ++size) {
        bool isRepeated = lines % size == 0 && lines > size;
        for (int line = first + size; isRepeated && line < end; ++line)
            isRepeated = nameOf(line) == nameOf(line - size);
        if (isRepeated)
            return SizesOf(lines, size);
    }
    std::vector<int> sizes;
    for (int line = first; line < end; line += sizes.back()) {
        int size = std::min(kMostLinesOfAStave, end - line);
        while (size >= kFewestStrings && !IsStave(line, size))
            --size;
        if (size < kFewestStrings)
            return {};
        sizes.push_back(size);
    }
    return sizes;
}

std::vector<int> GluedStaves::SizesByOthers(int lines) const {
    const bool hasGuitar = m_BlocksOfSize[kMostLinesOfAStave] > 0;
    for (int size = kFewestStrings; size < kMostLinesOfAStave; ++size)
        if (lines % size == 0 && !hasGuitar && m_BlocksOfSize[static_cast<std::size_t>(size)] > 0)
            return SizesOf(lines, size);
    // Six and two: nobody means that.
    return lines == 2 * kStringsOfABass && !hasGuitar ? SizesOf(lines, kStringsOfABass) : std::vector<int>();
}

std::vector<int> GluedStaves::EndsOfStaves(int first, int end) const {
    const int lines = end - first;
    if (lines <= kMostLinesOfAStave)
        return {};
    const std::vector<int> sizes = HasNames(first, end) ? SizesByNames(first, end) : SizesByOthers(lines);
    const bool isAsRead = std::all_of(sizes.begin(), sizes.end() - (sizes.empty() ? 0 : 1),
                                      [](int size) { return size == kMostLinesOfAStave; });
    std::vector<int> ends;
    if (isAsRead)
        return ends;
    int line = first;
    for (const int size : sizes) {
        if (line > first)
            ends.push_back(line);
        line += size;
    }
    return ends;
}

} // namespace TabText
