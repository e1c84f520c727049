#include "Projects/Fretline/shell/FretlineOptions.h"

#include "Shared/Utils/FileName.h"
#include "Shared/Utils/FileStream.h"
#include "Shared/Utils/PathSplitting.h"
#include "Shared/Utils/Reporting.h"
#include "Shared/Utils/tree/TreeNodeReader.h"

namespace Fretline {

using Nvr::String;

namespace {

constexpr const char* kRhythmLevelLabel = "RhythmLevel";

} // namespace

FretlineOptions::FretlineOptions(const String& path) : m_Path(path) {
    if (Nvr::FileName(path).IsFile())
        Load();
    if (m_Tree == nullptr)
        m_Tree = std::make_unique<Nvr::TreeNodeRoot>();
    m_RhythmLevel = m_Tree->GetChildValue(kRhythmLevelLabel, static_cast<int>(kRhythmsWhenIndicated));
}

void FretlineOptions::Load() {
    // As TreeNode::LoadFromFile does, with an eye on the medium.
    Nvr::InFileStream file(m_Path, Nvr::kOpenInput | Nvr::kOpenBinary);
    const bool isOpen = file.Good();
    if (isOpen)
        m_Tree.reset(Nvr::TreeNodeReader(file, m_Path).Read());
    m_IsUnreadable = !isOpen || file.Bad();
    if (m_Tree == nullptr)
        Nvr::ReportError("Could not open configuration file " + m_Path);
}

void FretlineOptions::Save() {
    // What stands in the file would be lost because it could not be read for a moment.
    if (m_IsUnreadable) {
        Nvr::ReportError("Could not write configuration file " + m_Path);
        return;
    }
    m_Tree->MergeChild(std::make_unique<Nvr::TreeNode>(kRhythmLevelLabel, m_RhythmLevel).release());
    m_Tree->SaveToFile(m_Path);
}

String FretlineOptions::PathIn(const String& configFolder) {
    return Nvr::JoinPath(String(), configFolder, "FretlineOptions", "txt");
}

} // namespace Fretline
