#include "Projects/Page/Answer.h"

#include <cstdint>

namespace Page {

namespace {

constexpr int kBytesOfLength = 4;
constexpr unsigned kBitsOfByte = 8;

} // namespace

void Answer::AddBlock(std::string_view name, std::string bytes) {
    m_Blocks.push_back({std::string(name), std::move(bytes)});
}

std::string Answer::ToBytes() const {
    Json object = Object;
    Json& blocks = object["blocks"] = Json::array();
    for (const Block& block : m_Blocks)
        blocks.push_back({{"name", block.Name}, {"size", block.Bytes.size()}});
    const std::string text = object.dump(-1, ' ', false, Json::error_handler_t::replace);
    std::string bytes;
    for (unsigned byte = 0; byte < kBytesOfLength; ++byte)
        bytes += static_cast<char>(static_cast<std::uint32_t>(text.size()) >> (kBitsOfByte * byte) & 0xFFU);
    bytes += text;
    for (const Block& block : m_Blocks)
        bytes += block.Bytes;
    return bytes;
}

} // namespace Page
