#include "Shared/Utils/tree/TreeNodeOutput.h"

#include "Shared/Utils/Stream.h"

namespace Nvr {

TreeNodeOutput::TreeNodeOutput(OutStream& stream) : m_Stream(&stream) {}

bool TreeNodeOutput::Flush() {
    m_Stream->Write(m_Bytes.data(), m_Size);
    m_Size = 0;
    return m_Stream->Good();
}

void TreeNodeOutput::MakeRoom(std::size_t count) {
    m_Bytes.resize(std::max({m_Bytes.size() * 2, m_Size + count, kSmallestRoom}));
}

} // namespace Nvr
