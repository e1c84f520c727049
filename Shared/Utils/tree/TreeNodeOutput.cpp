#include "Shared/Utils/tree/TreeNodeOutput.h"

#include "Shared/Utils/Stream.h"

namespace Nvr {

TreeNodeOutput::TreeNodeOutput(OutStream& stream) : m_Stream(&stream) {
    // A block is passed on when it is full, by one field at the most more than that.
    m_Bytes.reserve(kBlockSize + kBlockSize / 2);
}

bool TreeNodeOutput::Flush() {
    m_Stream->Write(m_Bytes.data(), m_Bytes.size());
    m_Bytes.clear();
    return m_Stream->Good();
}

} // namespace Nvr
