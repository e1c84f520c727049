#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace Page {

/// What goes back over the boundary in one piece: a JSON object, and blocks of bytes that it names.
class Answer {
public:
    using Json = nlohmann::ordered_json;

    /// The object; "blocks" is added to it: {"name", "size"} of each block, in their order.
    Json Object = Json::object();

    /// `name` is the caller's own.
    void AddBlock(std::string_view name, std::string bytes);

    /// The length of the object's text in four bytes, lowest first, the text, then the blocks, nothing
    /// between them. Bytes that are no UTF-8 are replaced in the text.
    std::string ToBytes() const;

private:
    struct Block {
        std::string Name;
        std::string Bytes;
    };
    std::vector<Block> m_Blocks;
};

} // namespace Page
