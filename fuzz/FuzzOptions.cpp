// The options file. Properties: a level is known afterwards whatever the file holds, and saving one brings it
// back.

#include "Projects/Fretline/shell/FretlineOptions.h"
#include "fuzz/FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const FuzzSupport::InputFile input(data, size);
    const Nvr::String path(input.Path().c_str());
    int before = 0;
    {
        Fretline::FretlineOptions options(path);
        before = options.GetRhythmLevel();
        options.Save();
    }
    FuzzSupport::Require(Fretline::FretlineOptions(path).GetRhythmLevel() == before,
                         "a saved level comes back");
    Nvr::ClearNodeStringTable();
    return 0;
}
