#include "Projects/Formats/platform/OutsideWriters.h"

#include "Projects/Formats/platform/Engraver.h"
#include "Projects/Score/LilyPond.h"
#include "Projects/Score/MusicXml.h"

namespace Formats::Platform {

namespace {

using Score::TextSink;

void PassOn(const std::string& bytes, const TextSink& sink, const std::string& why) {
    if (why.empty())
        sink(bytes);
}

void WriteCompressedMusicXml(const Conversion& conversion, const TextSink& sink, std::string& why) {
    PassOn(Score::CompressedMusicXml(conversion.GetParts(), why), sink, why);
}

void WriteEngraved(const Conversion& conversion, const char* kind, const TextSink& sink, std::string& why) {
    // A printed score has pages; a picture is one.
    const bool isOnePage = std::string_view(kind) != "pdf";
    PassOn(Engrave(Score::LilyPondText(conversion.GetParts(), conversion.Title, conversion.Layout, isOnePage),
                   kind, why),
           sink, why);
}

void WritePdf(const Conversion& conversion, const TextSink& sink, std::string& why) {
    WriteEngraved(conversion, "pdf", sink, why);
}

void WritePng(const Conversion& conversion, const TextSink& sink, std::string& why) {
    WriteEngraved(conversion, "png", sink, why);
}

void WriteSvg(const Conversion& conversion, const TextSink& sink, std::string& why) {
    WriteEngraved(conversion, "svg", sink, why);
}

} // namespace

constinit const Writer kWriteCompressedMusicXml = WriteCompressedMusicXml;
constinit const Writer kWritePdf = WritePdf;
constinit const Writer kWritePng = WritePng;
constinit const Writer kWriteSvg = WriteSvg;

} // namespace Formats::Platform
