#include "Projects/TabText/ReadingMessages.h"

#include "Shared/Utils/AsciiChars.h"

namespace TabText {

namespace {

// The line numbers that a message names, in order.
std::vector<int> NumbersIn(std::string_view text) {
    std::vector<int> numbers;
    bool inside = false;
    for (const char character : text) {
        if (!Nvr::Ascii::IsDigit(character)) {
            inside = false;
            continue;
        }
        if (!inside)
            numbers.push_back(0);
        numbers.back() = numbers.back() * 10 + (character - '0');
        inside = true;
    }
    return numbers;
}

} // namespace

void ReadingMessages::Report(Nvr::ResId /*id*/, int /*kind*/, Nvr::String text, bool /*repeat*/) {
    const std::vector<int> numbers = NumbersIn(text.View());
    if (!numbers.empty())
        // Messages count lines from 1.
        m_Ignored.push_back({numbers.front() - 1, numbers.back() - 1, text.CStr()});
}

} // namespace TabText
