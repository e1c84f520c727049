#include "Projects/ReferenceHost/Help.h"

#include "Projects/Formats/Formats.h"
#include "Projects/TabText/Preparation.h"

#include <sstream>

namespace ReferenceHost {

namespace {

constexpr const char* kUsage = R"(fretline opens plain-text guitar and bass tabs as scores.

  fretline song.tab                         leaves the score in song.nvf, and says what is in it
  fretline song.txt -o song.musicxml        writes MusicXML instead
  fretline tabs/ -o scores/ --to mid,mxl    converts a folder and all below it
  fretline song.tab --explain               shows what each character was taken for
  fretline - --to musicxml -o - < song      reads standard input, writes standard output

What is read
  FILE...               tabs (.tab, .btab, .crd, no extension; any other text that is tab), finished scores
                        (.nvf), folders, and - for standard input

What is written
  -o, --output NAME     a file, whose extension says the format; a folder/, which is made; - for standard
                        output. May be given several times
  -t, --to FORMAT,...   the formats, beside the tab or in the folder of -o:
)";

constexpr const char* kOptions = R"(  -n, --no-clobber      keep files that are there already
  --layout STAVES       of an engraved score: tab, notes, or both (otherwise both)
                        Without -o and --to, the score goes beside the tab

What is printed
  --explain             the tab, with what was recognised in it (--explain=html: as a page)
  --json                one JSON object a file
  --dump                the score's tree as text
  --doubts              everything that was read and is probably not meant so, with what to try
                        With one of these and without -o and --to, nothing is written
  --strict              end with 3 where there is any such doubt
  -v, --verbose         the messages of the plug-in one by one
  -q, --quiet           nothing but errors

How it is read
  --rhythms LEVEL       import rhythms never, only when indicated, or always: never, indicated, always.
                        For this run only
  --remember            keep what --rhythms says for later runs
  --prepare[=STEP,...]  tidy the text up before it is opened, by the steps that need not be named, or by those
                        named ("default" stands for the former); "show" among them prints the tidied text:
)";

constexpr const char* kFurtherOptions =
    R"(  -y, --yes             don't ask about rhythms: what was stored holds

Many files
  -j, --jobs N          convert so many at a time (otherwise as many as there are cores)
  --json-lines          read {"id":...,"text":...} from each line of standard input, and write a line for each,
                        with the formats of --to

  --config FOLDER       where the stored option is kept
  --plugin FILE         the plug-in's library
  -h, --help            this text
  --version             the version

Ends with 0 when all is done, 1 when a file gave no score, 2 for a mistake in the command, 3 for a
doubt with --strict, 130 when cancelled, 143 when asked to end.
)";

constexpr std::size_t kIndent = 26;
constexpr std::size_t kNameWidth = 10;

std::string StepLine(const TabText::PreparationStep& step) {
    std::string name(step.Name);
    name.resize(kNameWidth, ' ');
    // Broken where a terminal would break it.
    constexpr std::size_t kWidth = 66;
    std::string line = std::string(kIndent, ' ') + name;
    std::size_t used = 0;
    std::istringstream words(step.Does + std::string(step.IsOnByDefault ? "" : " (only by name)"));
    for (std::string word; words >> word; used += word.size() + 1) {
        if (used + word.size() > kWidth) {
            line += "\n" + std::string(kIndent + kNameWidth, ' ');
            used = 0;
        }
        line += word + " ";
    }
    line.pop_back();
    return line + "\n";
}

} // namespace

std::string HelpText() {
    std::string text = kUsage;
    for (const Formats::Format& format : Formats::AllFormats()) {
        std::string name(format.Name);
        name.resize(kNameWidth, ' ');
        text += std::string(kIndent, ' ') + name + std::string(format.Description) + "\n";
    }
    text += kOptions;
    for (const TabText::PreparationStep& step : TabText::AllPreparationSteps())
        text += StepLine(step);
    return text + kFurtherOptions;
}

std::string VersionText() {
    return "fretline " FRETLINE_VERSION "\n";
}

std::string FormatNames() {
    std::string names;
    for (const Formats::Format& format : Formats::AllFormats())
        names += (names.empty() ? "" : ", ") + std::string(format.Name);
    return names;
}

} // namespace ReferenceHost
