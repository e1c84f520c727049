#include "Projects/TabText/LineMap.h"

#include "Shared/Utils/AsciiChars.h"

namespace TabText {

std::string WithOriginalLines(const std::string& sentence, const LineMap& map) {
    std::string text;
    for (std::size_t at = 0; at < sentence.size();) {
        std::size_t end = at;
        while (end < sentence.size() && Nvr::Ascii::IsDigit(sentence[end]))
            ++end;
        if (end == at) {
            text += sentence[at++];
            continue;
        }
        const int line = std::stoi(sentence.substr(at, end - at)) - 1;
        text += line >= 0 && line < map.GetLineCount() ? std::to_string(map.ToOriginal(line, 0).Line + 1)
                                                       : sentence.substr(at, end - at);
        at = end;
    }
    return text;
}

} // namespace TabText
