// Chord symbols and rhythm lines as strings: the input is the line above a stave of three bars. Properties:
// chords ascend and end after their start, columns have ascending positions.

#include "Projects/Fretline/shell/FretlineOptions.h"
#include "Projects/Fretline/stave/TabBar.h"
#include "Projects/Fretline/stave/TabChord.h"
#include "Projects/Fretline/text/TabAnalysis.h"
#include "Projects/Fretline/text/TabFile.h"
#include "fuzz/FuzzSupport.h"
#include "tests/support/FakeOutput.h"

#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
    text += "\n";
    for (int line = 0; line < 6; ++line)
        text += "|-0-2-3-5-7-9-|--12--x--3-|-1-1-1-1-1-1-1-1-|\n";
    const FuzzSupport::InputFile input(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    const Nvr::String noOptions(FuzzSupport::FreshPath("no-options").c_str());
    Fretline::FretlineOptions options(noOptions);
    options.SetRhythmLevel(data[0] % 3);
    TestSupport::FakeOutput output;
    Fretline::TabFile file(input.Path().c_str(), &options, &output);
    Fretline::TabAnalysis analysis(file);
    for (Fretline::TabBar* bar : analysis.GetReadableBars()) {
        bar->ReadBar(nullptr);
        int end = -1;
        for (const auto& chord : bar->GetChords()) {
            FuzzSupport::Require(chord->m_Start >= end && chord->m_End > chord->m_Start, "chords ascend");
            end = chord->m_End;
        }
        int position = 0;
        for (const Fretline::TabColumn& column : bar->GetColumns()) {
            FuzzSupport::Require(column.m_Duration >= 0, "no duration is negative");
            FuzzSupport::Require(column.m_Position >= position, "positions ascend");
            position = column.m_Position;
        }
    }
    return 0;
}
