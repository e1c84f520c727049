#include "Projects/Tools/TemplateBuilder/Expander.h"

#include "Projects/Tools/TemplateBuilder/BuildError.h"
#include "Projects/Tools/TemplateBuilder/TextTree.h"

#include <fstream>
#include <iterator>
#include <utility>
#include <vector>

namespace TemplateBuilder {

namespace {

constexpr std::string_view kPartDirective = "~part";
// Sources that draw in each other come to an end here; deeper than any real template nests.
constexpr int kDeepestExpansion = 200;

bool IsDirective(const Nvr::TreeNode& node) {
    return node.GetLabel().CharAt(0) == '~';
}

bool IsWithoutChildren(std::string_view directive) {
    return directive == "~include" || directive == "~rows" || directive == kPartDirective ||
           directive == "~note";
}

// "COLUMN" or "COLUMN=TEXT": whether the names at hand fulfil it.
bool Holds(std::string_view condition, const Scope& scope) {
    const std::size_t equals = condition.find('=');
    if (equals == std::string_view::npos)
        return !scope.Get(Trimmed(condition)).empty();
    return scope.Get(Trimmed(condition.substr(0, equals))) == Trimmed(condition.substr(equals + 1));
}

// Moves value and children of `node` into a default for all parts.
void TurnIntoPartMap(Nvr::TreeNode& node, bool withOverrides) {
    auto values = std::make_unique<Nvr::TreeNode>("__PartMapDefault", node.GetValue());
    values->CopyChildrenFrom(node);
    node.ClearChildren();
    node.SetValue("");
    node.AddChild(values.release());
    if (withOverrides)
        node.AddChild(std::make_unique<Nvr::TreeNode>("PartMapOverrides").release());
}

} // namespace

Expander::Expander(std::string folder) : m_Folder(std::move(folder)) {
    if (!m_Folder.empty() && m_Folder.back() != '/')
        m_Folder += '/';
}

std::unique_ptr<Nvr::TreeNode> Expander::Build() {
    const Scope outermost("template.txt");
    return MakeNode(Source(outermost, "template.txt"), outermost, 0);
}

std::string Expander::ReadFile(const Scope& scope, const std::string& path) const {
    std::ifstream file(m_Folder + path, std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (!file.is_open() || file.bad())
        scope.Fail("the file " + path + " cannot be read");
    return text;
}

const Nvr::TreeNode& Expander::Source(const Scope& scope, const std::string& path) {
    auto& source = m_Sources[path];
    if (source == nullptr)
        source = ReadTextTree(path, ReadFile(scope, path));
    return *source;
}

const Table& Expander::GetTable(const Scope& scope, const std::string& name) {
    const std::string path = "tables/" + name + ".txt";
    const auto known = m_Tables.find(path);
    if (known != m_Tables.end())
        return known->second;
    return m_Tables.emplace(path, Table(path, ReadFile(scope, path))).first->second;
}

std::unique_ptr<Nvr::TreeNode> Expander::MakeNode(const Nvr::TreeNode& pattern, const Scope& scope,
                                                  int depth) {
    if (depth > kDeepestExpansion)
        scope.Fail("the sources draw in each other without an end");
    const std::string value = scope.Fill(pattern.GetValue().View());
    auto node = std::make_unique<Nvr::TreeNode>(pattern.GetLabel(), Nvr::String(value));
    MakeChildren(*node, pattern, scope, depth + 1);
    if (const Nvr::TreeNode* part = pattern.FindChild(Nvr::String(kPartDirective)))
        TurnIntoPartMap(*node, part->GetValue() == "overrides");
    return node;
}

void Expander::MakeChildren(Nvr::TreeNode& parent, const Nvr::TreeNode& pattern, const Scope& scope,
                            int depth) {
    for (int i = 0; i < pattern.GetChildCount(); ++i) {
        const Nvr::TreeNode& child = *pattern.GetChild(i);
        if (IsDirective(child))
            Obey(parent, child, scope, depth);
        else
            parent.AddChild(MakeNode(child, scope, depth).release());
    }
}

void Expander::Obey(Nvr::TreeNode& parent, const Nvr::TreeNode& directive, const Scope& scope, int depth) {
    const std::string_view name = directive.GetLabel().View();
    const std::string_view argument = directive.GetValue().View();
    // A list without a label belongs to the node before it: after a directive that has no children of its
    // own it would be lost without a word.
    if (directive.GetChildCount() != 0 && IsWithoutChildren(name))
        scope.Fail("the list after " + std::string(name) + " \"" + std::string(argument) +
                   "\" belongs to nothing");
    if (name == "~include")
        Include(parent, directive, scope, depth);
    else if (name == "~rows")
        MakeRows(parent, directive, scope, depth);
    else if (name == "~row")
        LookUpRow(parent, directive, scope, depth);
    else if (name == "~each")
        MakeEach(parent, directive, scope, depth);
    else if (name == "~if" || name == "~unless") {
        if (Holds(argument, scope) == (name == "~if"))
            MakeChildren(parent, directive, scope, depth);
    } else if (name == kPartDirective) {
        if (!argument.empty() && argument != "overrides")
            scope.Fail("~part knows no '" + std::string(argument) + "'");
    } else if (name != "~note")
        scope.Fail("there is no directive " + std::string(name));
}

void Expander::Include(Nvr::TreeNode& parent, const Nvr::TreeNode& directive, const Scope& scope, int depth) {
    if (depth > kDeepestExpansion)
        scope.Fail("the sources draw in each other without an end");
    const std::string path = scope.Fill(directive.GetValue().View()) + ".txt";
    MakeChildren(parent, Source(scope, path), Scope::OfSource(scope, path), depth + 1);
}

void Expander::MakeRows(Nvr::TreeNode& parent, const Nvr::TreeNode& directive, const Scope& scope,
                        int depth) {
    const std::vector<std::string> words = SplitList(scope.Fill(directive.GetValue().View()), ' ');
    if (words.empty() || words.size() > 2)
        scope.Fail("~rows wants a table and a schema");
    const Table& table = GetTable(scope, words.front());
    const std::string path = "schemas/" + words.back() + ".txt";
    const Nvr::TreeNode& schema = Source(scope, path);
    const Scope inSchema = Scope::OfSource(scope, path);
    for (std::size_t row = 0; row < table.RowCount(); ++row)
        parent.AddChild(MakeNode(schema, Scope(inSchema, table, row), depth + 1).release());
}

void Expander::LookUpRow(Nvr::TreeNode& parent, const Nvr::TreeNode& directive, const Scope& scope,
                         int depth) {
    const std::string argument = scope.Fill(directive.GetValue().View());
    const std::size_t blank = argument.find(' ');
    if (blank == std::string::npos)
        scope.Fail("~row wants a table and a key");
    const Table& table = GetTable(scope, argument.substr(0, blank));
    const std::string key(Trimmed(std::string_view(argument).substr(blank)));
    const std::size_t row = table.FindRow(key);
    if (row == table.RowCount())
        scope.Fail("'" + key + "' is not in " + table.File());
    MakeChildren(parent, directive, Scope::OfFoundRow(scope, table, row), depth);
}

void Expander::MakeEach(Nvr::TreeNode& parent, const Nvr::TreeNode& directive, const Scope& scope,
                        int depth) {
    const std::vector<std::string> entries = SplitList(scope.Get(directive.GetValue().View()), ',');
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].empty())
            scope.Fail("entry " + std::to_string(i + 1) + " of '" + std::string(directive.GetValue().View()) +
                       "' is empty");
        MakeChildren(parent, directive, Scope(scope, entries[i], i), depth);
    }
}

} // namespace TemplateBuilder
