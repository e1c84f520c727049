#include "Projects/ReferenceHost/Exports.h"

#include "Projects/ReferenceHost/ScoreFile.h"
#include "Projects/ReferenceHost/export/Midi.h"
#include "Projects/ReferenceHost/export/MusicXml.h"
#include "Projects/ReferenceHost/export/Svg.h"

namespace ReferenceHost {

namespace {

constexpr const char* kCompressedExtension = ".mxl";

std::string MusicXmlBytes(const ScoreModel& score, const std::filesystem::path& target, std::string& why) {
    return target.extension() == kCompressedExtension ? CompressedMusicXml(score, why) : MusicXmlText(score);
}

} // namespace

std::vector<std::string> WriteExports(const CommandLine& line, const std::filesystem::path& file,
                                      const ScoreModel& score) {
    std::vector<std::string> failures;
    const auto note = [&](const std::string& why) {
        if (!why.empty())
            failures.push_back(why);
    };
    if (!line.MusicXml.empty()) {
        const std::filesystem::path target = TargetFor(file, line.MusicXml, ".musicxml");
        std::string why;
        const std::string bytes = MusicXmlBytes(score, target, why);
        note(why.empty() ? WriteWholeFile(target, bytes) : target.string() + " cannot be made: " + why);
    }
    if (!line.Midi.empty())
        note(WriteWholeFile(TargetFor(file, line.Midi, ".mid"), MidiBytes(score)));
    if (!line.Svg.empty())
        note(WriteWholeFile(TargetFor(file, line.Svg, ".svg"), SvgText(score, file.stem().string())));
    return failures;
}

} // namespace ReferenceHost
