#pragma once

#include "Shared/Utils/CStream.h"
#include "Shared/Utils/tree/TreeNodeReader.h"
#include "tests/Shared/Utils/tree/TreeTest.h"

#include <sstream>

/// Reads bytes as a stream of the standard library gives them.
inline std::unique_ptr<Nvr::TreeNodeRoot> LoadAsStream(const std::string& bytes, const char* fileName = "") {
    std::istringstream source(bytes);
    Nvr::CInStream stream(source);
    return std::unique_ptr<Nvr::TreeNodeRoot>(Nvr::TreeNodeReader(stream, fileName).Read());
}

inline std::unique_ptr<Nvr::TreeNodeRoot> LoadAsString(const std::string& bytes) {
    return std::unique_ptr<Nvr::TreeNodeRoot>(Nvr::TreeNode::LoadFromString(Nvr::String(bytes)));
}

/// What WriteToStream gives.
inline std::string Written(const Nvr::TreeNode& node, bool binary, bool unicode = false, int encoding = 0,
                           int depth = 0) {
    std::ostringstream target;
    Nvr::COutStream stream(target);
    node.WriteToStream(stream, depth, binary, unicode, encoding);
    return target.str();
}

/// `text` as UTF-16 without a mark; the bytes are taken as code units.
inline std::string AsUtf16(std::string_view text, bool bigEndian) {
    std::string bytes;
    for (const char c : text) {
        if (bigEndian)
            bytes += '\0';
        bytes += c;
        if (!bigEndian)
            bytes += '\0';
    }
    return bytes;
}
