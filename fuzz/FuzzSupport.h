#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace FuzzSupport {

/// Ends the program with the property that does not hold.
void Require(bool holds, const char* property);

/// Requires that a LilyPond file closes what it opens, strings, comments, music and Scheme alike. Where the
/// environment names a folder in FRETLINE_LILYPOND_FOLDER, the file is left there, named after its content.
void CheckLilyPond(const std::string& text);

/// A file that holds the input, in memory where the system has a place for that. Made anew for each input;
/// gone with the object.
class InputFile {
public:
    InputFile(const std::uint8_t* data, std::size_t size);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    const std::string& Path() const { return m_Path; }

private:
    std::string m_Path;
};

/// A path in the same place where nothing is.
std::string FreshPath(const char* name);

} // namespace FuzzSupport
