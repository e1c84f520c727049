#pragma once

#include "Projects/Formats/Conversion.h"
#include "Projects/Score/TextSink.h"

#include <span>
#include <string>
#include <string_view>

namespace Formats {

/// One format in which a conversion can be written. The table of these is all that options, help, checks of
/// arguments and tests know of formats: a new one is a row of it and a writer.
struct Format {
    /// As it is asked for, such as "musicxml".
    std::string_view Name;
    /// What names of its files end in, with the dot.
    std::string_view Extension;
    /// What it is, for the help.
    std::string_view Description;
    /// Text in UTF-8, or other bytes.
    bool IsText;
    /// What of a score it is made from.
    Wanted From;
    /// Gives the sink the bytes of a file, in one piece or more. Nothing fails but for what `why` then says;
    /// what came before that is of no use.
    void (*Write)(const Conversion& conversion, const Score::TextSink& sink, std::string& why);

    /// The bytes of a file in one piece; empty when `why` says something.
    std::string BytesOf(const Conversion& conversion, std::string& why) const;
};

/// Every format, in the order in which the help lists them.
std::span<const Format> AllFormats();

/// The format of that name or extension; null when there is none. Capitals count as small letters in
/// extensions.
const Format* FindFormat(std::string_view name);
const Format* FindFormatByExtension(std::string_view extension);

} // namespace Formats
