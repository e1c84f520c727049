#include "Projects/Formats/Formats.h"

#include "Projects/Explain/Explanation.h"
#include "Projects/Formats/Json.h"
#include "Projects/Formats/platform/OutsideWriters.h"
#include "Projects/Score/LilyPond.h"
#include "Projects/Score/Midi.h"
#include "Projects/Score/MusicXml.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <vector>

namespace Formats {

namespace {

std::string WriteScore(const Conversion& conversion, std::string& /*why*/) {
    return conversion.ScoreBytes;
}

std::string WriteMusicXml(const Conversion& conversion, std::string& /*why*/) {
    return Score::MusicXmlText(conversion.GetParts());
}

std::string WriteMidi(const Conversion& conversion, std::string& /*why*/) {
    return Score::MidiBytes(conversion.GetParts());
}

std::string WriteTreeText(const Conversion& conversion, std::string& /*why*/) {
    return conversion.GetTreeText();
}

std::string WriteLilyPond(const Conversion& conversion, std::string& /*why*/) {
    return Score::LilyPondText(conversion.GetParts(), conversion.Title, conversion.Layout, false);
}

std::string WriteExplanation(const Conversion& conversion, std::string& why) {
    if (const TabText::TabReading* reading = conversion.GetReading())
        return Explain::ExplanationHtml(Explain::Explanation::Of(*reading, conversion.Tab->Map),
                                        conversion.Title);
    why = "only a tab can be explained, a finished score no longer knows its text";
    return {};
}

std::string WriteJson(const Conversion& conversion, std::string& /*why*/) {
    return JsonText(conversion, {}) + "\n";
}

// Without those rows that this platform cannot write.
std::vector<Format> MakeTable() {
    std::vector<Format> table{
        {"nvf", ".nvf", "the finished score", false, WriteScore},
        {"musicxml", ".musicxml", "MusicXML 4.0", true, WriteMusicXml},
        {"mxl", ".mxl", "MusicXML 4.0, compressed", false, Platform::kWriteCompressedMusicXml},
        {"mid", ".mid", "standard MIDI file", false, WriteMidi},
        {"ly", ".ly", "LilyPond, for engraving", true, WriteLilyPond},
        {"pdf", ".pdf", "engraved by LilyPond, for printing", false, Platform::kWritePdf},
        {"svg", ".svg", "engraved, a picture of one page", true, Platform::kWriteSvg},
        {"png", ".png", "engraved, a picture of one page", false, Platform::kWritePng},
        {"html", ".html", "what each character of the tab was taken for", true, WriteExplanation},
        {"json", ".json", "what is in the score, for programs", true, WriteJson},
        {"txt", ".txt", "the score's tree as text", false, WriteTreeText},
    };
    std::erase_if(table, [](const Format& row) { return row.Write == nullptr; });
    return table;
}

bool IsSameWord(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Nvr::Ascii::ToLower(x) == Nvr::Ascii::ToLower(y); });
}

} // namespace

std::span<const Format> AllFormats() {
    static const std::vector<Format> table = MakeTable();
    return table;
}

const Format* FindFormat(std::string_view name) {
    const std::span<const Format> all = AllFormats();
    const auto row =
        std::find_if(all.begin(), all.end(), [&](const Format& format) { return format.Name == name; });
    return row == all.end() ? nullptr : &*row;
}

const Format* FindFormatByExtension(std::string_view extension) {
    const std::span<const Format> all = AllFormats();
    const auto row = std::find_if(all.begin(), all.end(), [&](const Format& format) {
        return IsSameWord(format.Extension, extension);
    });
    return row == all.end() ? nullptr : &*row;
}

} // namespace Formats
