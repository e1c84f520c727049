#include "Projects/Formats/Formats.h"

#include "Projects/Explain/Explanation.h"
#include "Projects/Formats/Engraver.h"
#include "Projects/Formats/Json.h"
#include "Projects/Score/LilyPond.h"
#include "Projects/Score/Midi.h"
#include "Projects/Score/MusicXml.h"
#include "Shared/Utils/AsciiChars.h"

#include <algorithm>
#include <array>

namespace Formats {

namespace {

std::string WriteScore(const Conversion& conversion, std::string& /*why*/) {
    return conversion.ScoreBytes;
}

std::string WriteMusicXml(const Conversion& conversion, std::string& /*why*/) {
    return Score::MusicXmlText(conversion.GetMusic());
}

std::string WriteCompressedMusicXml(const Conversion& conversion, std::string& why) {
    return Score::CompressedMusicXml(conversion.GetMusic(), why);
}

std::string WriteMidi(const Conversion& conversion, std::string& /*why*/) {
    return Score::MidiBytes(conversion.GetMusic());
}

std::string WriteTreeText(const Conversion& conversion, std::string& /*why*/) {
    return std::string(conversion.Tree->ToText().View());
}

std::string WriteLilyPond(const Conversion& conversion, std::string& /*why*/) {
    return Score::LilyPondText(conversion.GetMusic(), conversion.Title, conversion.Layout, false);
}

std::string Engraved(const Conversion& conversion, const char* kind, std::string& why) {
    // A printed score has pages; a picture is one.
    const bool isOnePage = std::string_view(kind) != "pdf";
    return Engrave(Score::LilyPondText(conversion.GetMusic(), conversion.Title, conversion.Layout, isOnePage),
                   kind, why);
}

std::string WritePdf(const Conversion& conversion, std::string& why) {
    return Engraved(conversion, "pdf", why);
}

std::string WritePng(const Conversion& conversion, std::string& why) {
    return Engraved(conversion, "png", why);
}

std::string WriteSvg(const Conversion& conversion, std::string& why) {
    return Engraved(conversion, "svg", why);
}

std::string WriteExplanation(const Conversion& conversion, std::string& why) {
    if (const TabText::TabReading* reading = conversion.GetReading())
        return Explain::ExplanationHtml(Explain::Explanation::Of(*reading), conversion.Title);
    why = "only a tab can be explained, a finished score no longer knows its text";
    return {};
}

std::string WriteJson(const Conversion& conversion, std::string& /*why*/) {
    return JsonText(conversion, {}) + "\n";
}

constexpr auto kFormats = std::to_array<Format>({
    {"nvf", ".nvf", "the finished score", false, WriteScore},
    {"musicxml", ".musicxml", "MusicXML 4.0", true, WriteMusicXml},
    {"mxl", ".mxl", "MusicXML 4.0, compressed", false, WriteCompressedMusicXml},
    {"mid", ".mid", "standard MIDI file", false, WriteMidi},
    {"ly", ".ly", "LilyPond, for engraving", true, WriteLilyPond},
    {"pdf", ".pdf", "engraved by LilyPond, for printing", false, WritePdf},
    {"svg", ".svg", "engraved, a picture of one page", true, WriteSvg},
    {"png", ".png", "engraved, a picture of one page", false, WritePng},
    {"html", ".html", "what each character of the tab was taken for", true, WriteExplanation},
    {"json", ".json", "what is in the score, for programs", true, WriteJson},
    {"txt", ".txt", "the score's tree as text", false, WriteTreeText},
});

bool IsSameWord(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Nvr::Ascii::ToLower(x) == Nvr::Ascii::ToLower(y); });
}

} // namespace

std::span<const Format> AllFormats() {
    return kFormats;
}

const Format* FindFormat(std::string_view name) {
    const auto* row = std::find_if(kFormats.begin(), kFormats.end(),
                                   [&](const Format& format) { return format.Name == name; });
    return row == kFormats.end() ? nullptr : row;
}

const Format* FindFormatByExtension(std::string_view extension) {
    const auto* row = std::find_if(kFormats.begin(), kFormats.end(), [&](const Format& format) {
        return IsSameWord(format.Extension, extension);
    });
    return row == kFormats.end() ? nullptr : row;
}

} // namespace Formats
