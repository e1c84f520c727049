#include "fuzz/FuzzSupport.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string_view>
#include <unistd.h>

namespace FuzzSupport {

namespace {

// Each of these takes a text and the place of what it begins with, and gives the place after it; npos when it
// has no end.
std::size_t AfterString(std::string_view text, std::size_t at) {
    for (++at; at < text.size(); ++at) {
        if (text[at] == '"')
            return at + 1;
        at += text[at] == '\\' ? 1 : 0;
    }
    return std::string_view::npos;
}

std::size_t AfterComment(std::string_view text, std::size_t at) {
    return std::min(text.find('\n', at), text.size());
}

std::size_t AfterScheme(std::string_view text, std::size_t at) {
    int depth = 0;
    while (at < text.size()) {
        if (text[at] == '"') {
            at = AfterString(text, at);
            continue;
        }
        depth += text[at] == '(' ? 1 : text[at] == ')' ? -1 : 0;
        ++at;
        if (depth == 0)
            return at;
    }
    return std::string_view::npos;
}

// Reads no more of the language than strings, comments, Scheme in brackets, and the brackets of music.
bool IsClosed(std::string_view text) {
    std::string open;
    for (std::size_t at = 0; at < text.size();) {
        const char c = text[at];
        if (c == '"') {
            at = AfterString(text, at);
        } else if (c == '%') {
            at = AfterComment(text, at);
        } else if (c == '#' && (text.substr(at + 1, 1) == "(" || text.substr(at + 1, 2) == "'(")) {
            at = AfterScheme(text, text.find('(', at));
        } else {
            if (c == '{' || c == '<')
                open += c;
            const bool closes = c == '}' || c == '>';
            if (closes && (open.empty() || open.back() != (c == '}' ? '{' : '<')))
                return false;
            if (closes)
                open.pop_back();
            ++at;
        }
        if (at == std::string_view::npos)
            return false;
    }
    return open.empty();
}

} // namespace

void Require(bool holds, const char* property) {
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
}

std::string FreshPath(const char* name) {
    const char* place = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp";
    return std::string(place) + "/fretline-fuzz-" + std::to_string(getpid()) + "-" + name;
}

void CheckLilyPond(const std::string& text) {
    Require(IsClosed(text), "what a LilyPond file opens it closes, and nothing else");
    const char* folder = std::getenv("FRETLINE_LILYPOND_FOLDER");
    if (folder == nullptr)
        return;
    const std::string name = std::to_string(std::hash<std::string>()(text));
    std::ofstream(std::string(folder) + "/" + name + ".ly", std::ios::binary) << text;
}

InputFile::InputFile(const std::uint8_t* data, std::size_t size) : m_Path(FreshPath("input")) {
    if (std::FILE* file = std::fopen(m_Path.c_str(), "wb")) {
        std::fwrite(data, 1, size, file);
        std::fclose(file);
    }
}

InputFile::~InputFile() {
    std::remove(m_Path.c_str());
}

} // namespace FuzzSupport
