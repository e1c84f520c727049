#pragma once

#include "Projects/Tools/TemplateBuilder/Scope.h"
#include "Projects/Tools/TemplateBuilder/Table.h"
#include "Shared/Utils/tree/TreeNode.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace TemplateBuilder {

/// Makes the whole template from the sources in one folder: `template.txt` and what it draws in.
///
/// A source is a text tree that stands for itself, apart from the directives: nodes whose label starts with a
/// tilde. Each is replaced by what it makes, at its place among its siblings.
///
///     ~include "PATH"        the children of the root of PATH.txt, with the names known here
///     ~rows "TABLE SCHEMA"   the root of schemas/SCHEMA.txt, once for each row of tables/TABLE.txt
///     ~row "TABLE KEY"       its own children, with the columns of the row whose first field is KEY
///     ~each "COLUMN"         its own children, once for each entry of a list separated by commas
///     ~if "COLUMN"           its own children, when the column is not empty
///     ~if "COLUMN=TEXT"      its own children, when the column is that text
///     ~unless                its own children, when ~if would make nothing
///     ~part                  nothing, but the node it stands in becomes a part map: its value and its other
///                            children go into a __PartMapDefault
///     ~part "overrides"      the same, and an empty PartMapOverrides follows
///     ~note "TEXT"           nothing: a remark
///
/// Everywhere else values may hold references to the columns of the row at hand; see Scope.
class Expander {
public:
    /// `folder` is the path of the template's folder, with or without a slash at its end.
    explicit Expander(std::string folder);

    /// The finished tree. Throws BuildError for anything wrong in the sources; may be called again.
    std::unique_ptr<Nvr::TreeNode> Build();

private:
    const Nvr::TreeNode& Source(const Scope& scope, const std::string& path);
    const Table& GetTable(const Scope& scope, const std::string& name);
    std::string ReadFile(const Scope& scope, const std::string& path) const;

    std::unique_ptr<Nvr::TreeNode> MakeNode(const Nvr::TreeNode& pattern, const Scope& scope, int depth);
    void MakeChildren(Nvr::TreeNode& parent, const Nvr::TreeNode& pattern, const Scope& scope, int depth);
    void Obey(Nvr::TreeNode& parent, const Nvr::TreeNode& directive, const Scope& scope, int depth);
    void Include(Nvr::TreeNode& parent, const Nvr::TreeNode& directive, const Scope& scope, int depth);
    void MakeRows(Nvr::TreeNode& parent, const Nvr::TreeNode& directive, const Scope& scope, int depth);
    void LookUpRow(Nvr::TreeNode& parent, const Nvr::TreeNode& directive, const Scope& scope, int depth);
    void MakeEach(Nvr::TreeNode& parent, const Nvr::TreeNode& directive, const Scope& scope, int depth);

    std::string m_Folder;
    std::map<std::string, std::unique_ptr<Nvr::TreeNodeRoot>> m_Sources;
    std::map<std::string, Table> m_Tables;
};

} // namespace TemplateBuilder
