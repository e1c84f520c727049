#include "Shared/Utils/tree/TreeNode.h"

#include "Shared/Utils/FileStream.h"
#include "Shared/Utils/SafeFileWriter.h"
#include "Shared/Utils/tree/TreeNodeExceptions.h"
#include "Shared/Utils/tree/TreeNodeFailure.h"
#include "Shared/Utils/tree/TreeNodeReader.h"

#include <memory>

namespace Nvr {

bool TreeNode::SaveToFile(const String& fileName, bool binary, bool unicode, int encoding) const {
    SafeFileWriter writer(fileName);
    if (writer.Stream().Good()) {
        WriteToStream(writer.Stream(), 0, binary, unicode, encoding);
        // The text form is what a user's settings are kept in; a score is loaded at once and has no former
        // one.
        if (binary ? writer.Commit() : writer.CommitToDisk())
            return true;
    }
    ReportTreeFailure("Could not write configuration file " + fileName, __FILE__, __LINE__);
    return false;
}

TreeNodeRoot* TreeNode::LoadFromFile(const String& fileName, const String& stopLabel, int stopMode) {
    InFileStream stream(fileName, kOpenInput | kOpenBinary);
    if (stream.Good()) {
        if (TreeNodeRoot* const root = TreeNodeReader(stream, fileName).Read(stopLabel, stopMode))
            return root;
    }
    ReportTreeFailure("Could not open configuration file " + fileName, __FILE__, __LINE__);
    return nullptr;
}

String TreeNode::FindValueInFile(const String& fileName, const String& label) {
    try {
        const std::unique_ptr<TreeNode> withoutLabel(
            LoadFromFile(fileName, label, TreeNodeReader::kStopAtValue));
        return {};
    } catch (const TreeNodeLabelFoundException& found) {
        return found.GetValue();
    }
}

TreeNode* TreeNode::FindSubTreeInFile(const String& fileName, const String& label) {
    try {
        const std::unique_ptr<TreeNode> withoutLabel(
            LoadFromFile(fileName, label, TreeNodeReader::kStopAtSubTree));
        return nullptr;
    } catch (const TreeNodeSubTreeFoundException& found) {
        return found.GetNode();
    }
}

} // namespace Nvr
