#pragma once

#include "Projects/Fretline/text/TabFile.h"
#include "tests/support/FakeOutput.h"
#include "tests/support/ScratchFolder.h"

#include <string>
#include <string_view>

namespace TestSupport {

inline std::string Repeat(std::string_view text, std::size_t count) {
    std::string repeated;
    for (std::size_t i = 0; i < count; ++i)
        repeated += text;
    return repeated;
}

/// The same line for each string of a stave.
inline std::string Stave(const std::string& line, std::size_t strings = 4) {
    return Repeat(line + '\n', strings);
}

/// A text as the analysis and the stave readers get it, and the output that its messages go to.
struct TabText {
    explicit TabText(std::string_view text, const Fretline::FretlineOptions* options = nullptr)
        : File(Nvr::String(ScratchFolder().Write("text.tab", text)), options, &Output) {}

    FakeOutput Output;
    Fretline::TabFile File;
};

} // namespace TestSupport
