#include "Projects/Tools/ResourceScript/ScriptText.h"

#include <stdexcept>

namespace ResourceScript {

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char byte : text) {
        if (byte < ' ' || byte > '~')
            throw std::runtime_error("not plain text: " + std::string(text));
        if (byte == '"' || byte == '\\')
            quoted += byte == '"' ? '"' : '\\';
        quoted += byte;
    }
    return quoted += '"';
}

} // namespace ResourceScript
