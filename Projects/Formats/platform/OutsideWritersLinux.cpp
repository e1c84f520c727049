#include "Projects/Formats/platform/OutsideWriters.h"

#include "Projects/Formats/platform/Engraver.h"
#include "Projects/Score/LilyPond.h"
#include "Projects/Score/MusicXml.h"

namespace Formats::Platform {

namespace {

std::string WriteCompressedMusicXml(const Conversion& conversion, std::string& why) {
    return Score::CompressedMusicXml(conversion.GetParts(), why);
}

std::string Engraved(const Conversion& conversion, const char* kind, std::string& why) {
    // A printed score has pages; a picture is one.
    const bool isOnePage = std::string_view(kind) != "pdf";
    return Engrave(Score::LilyPondText(conversion.GetParts(), conversion.Title, conversion.Layout, isOnePage),
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

} // namespace

constinit const Writer kWriteCompressedMusicXml = WriteCompressedMusicXml;
constinit const Writer kWritePdf = WritePdf;
constinit const Writer kWritePng = WritePng;
constinit const Writer kWriteSvg = WriteSvg;

} // namespace Formats::Platform
