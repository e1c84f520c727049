#include "Shared/Utils/ResId.h"

#include "Shared/Utils/platform/Resources.h"
#include "Shared/Utils/tree/TreeNode.h"

namespace Nvr {

TreeNodeRoot* ResId::LoadFromResource() const {
    constexpr std::string_view kResourceType = "TREENODE";
    auto bytes = Platform::FindDataResource(m_Module, kResourceType, m_Name.View(), m_Id);
    if (bytes.data() == nullptr)
        bytes = Platform::FindDataResource(Platform::ProcessModule(), kResourceType, m_Name.View(), m_Id);
    return bytes.data() != nullptr ? TreeNode::LoadFromMemory(bytes.data(), bytes.size()) : nullptr;
}

} // namespace Nvr
