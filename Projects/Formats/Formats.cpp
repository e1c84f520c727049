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

using Score::TextSink;

constexpr Wanted kBytes{.Bytes = true, .Music = false};
constexpr Wanted kMusic{.Bytes = false, .Music = true};
constexpr Wanted kTextAlone{.Bytes = false, .Music = false};

void WriteScore(const Conversion& conversion, const TextSink& sink, std::string& /*why*/) {
    sink(conversion.ScoreBytes);
}

void WriteMusicXml(const Conversion& conversion, const TextSink& sink, std::string& /*why*/) {
    Score::WriteMusicXml(conversion.GetParts(), sink);
}

void WriteMidi(const Conversion& conversion, const TextSink& sink, std::string& /*why*/) {
    sink(Score::MidiBytes(conversion.GetParts()));
}

void WriteTreeText(const Conversion& conversion, const TextSink& sink, std::string& /*why*/) {
    sink(conversion.GetTreeText());
}

void WriteLilyPond(const Conversion& conversion, const TextSink& sink, std::string& /*why*/) {
    sink(Score::LilyPondText(conversion.GetParts(), conversion.Title, conversion.Layout, false));
}

void WriteExplanation(const Conversion& conversion, const TextSink& sink, std::string& why) {
    if (const TabText::TabReading* reading = conversion.GetReading())
        sink(Explain::ExplanationHtml(Explain::Explanation::Of(*reading, conversion.Tab->Map),
                                      conversion.Title));
    else
        why = "only a tab can be explained, a finished score no longer knows its text";
}

void WriteJson(const Conversion& conversion, const TextSink& sink, std::string& /*why*/) {
    sink(JsonText(conversion, {}) + "\n");
}

// Without those rows that this platform cannot write.
std::vector<Format> MakeTable() {
    std::vector<Format> table{
        {"nvf", ".nvf", "the finished score", false, kBytes, WriteScore},
        {"musicxml", ".musicxml", "MusicXML 4.0", true, kMusic, WriteMusicXml},
        {"mxl", ".mxl", "MusicXML 4.0, compressed", false, kMusic, Platform::kWriteCompressedMusicXml},
        {"mid", ".mid", "standard MIDI file", false, kMusic, WriteMidi},
        {"ly", ".ly", "LilyPond, for engraving", true, kMusic, WriteLilyPond},
        {"pdf", ".pdf", "engraved by LilyPond, for printing", false, kMusic, Platform::kWritePdf},
        {"svg", ".svg", "engraved, a picture of one page", true, kMusic, Platform::kWriteSvg},
        {"png", ".png", "engraved, a picture of one page", false, kMusic, Platform::kWritePng},
        {"html", ".html", "what each character of the tab was taken for", true, kTextAlone, WriteExplanation},
        {"json", ".json", "what is in the score, for programs", true, kMusic, WriteJson},
        {"txt", ".txt", "the score's tree as text", false, kBytes, WriteTreeText},
    };
    std::erase_if(table, [](const Format& row) { return row.Write == nullptr; });
    return table;
}

bool IsSameWord(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return Nvr::Ascii::ToLower(x) == Nvr::Ascii::ToLower(y); });
}

} // namespace

std::string Format::BytesOf(const Conversion& conversion, std::string& why) const {
    std::string bytes;
    Write(
        conversion, [&bytes](std::string_view piece) { bytes += piece; }, why);
    return why.empty() ? bytes : std::string();
}

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
