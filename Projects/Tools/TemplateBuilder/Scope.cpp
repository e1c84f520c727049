#include "Projects/Tools/TemplateBuilder/Scope.h"

#include "Projects/Tools/TemplateBuilder/BuildError.h"
#include "Projects/Tools/TemplateBuilder/Rules.h"

#include <charconv>
#include <vector>

namespace TemplateBuilder {

namespace {

bool IsNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

} // namespace

Scope Scope::OfSource(const Scope& outer, const std::string& source) {
    Scope scope(source);
    scope.m_Outer = &outer;
    return scope;
}

Scope::Scope(const Scope& outer, const Table& table, std::size_t row)
    : m_Kind(Kind::Row), m_Outer(&outer), m_Table(&table), m_Place(row) {}

Scope Scope::OfFoundRow(const Scope& outer, const Table& table, std::size_t row) {
    Scope scope(outer, table, row);
    scope.m_Kind = Kind::FoundRow;
    return scope;
}

Scope::Scope(const Scope& outer, const std::string& entry, std::size_t index)
    : m_Kind(Kind::Entry), m_Outer(&outer), m_Place(index), m_Text(entry) {}

std::string Scope::Fill(std::string_view value) const {
    std::string filled;
    for (std::size_t at = 0; at < value.size(); ++at) {
        if (value[at] != '{') {
            filled += value[at];
            continue;
        }
        if (at + 1 < value.size() && value[at + 1] == '{') {
            filled += '{';
            ++at;
            continue;
        }
        const std::size_t end = value.find('}', at);
        if (end == std::string_view::npos)
            Fail("the reference in '" + std::string(value) + "' has no closing brace");
        filled += Resolve(value.substr(at + 1, end - at - 1));
        at = end;
    }
    return filled;
}

std::string Scope::Resolve(std::string_view reference) const {
    const std::size_t mark = reference.find('?');
    if (mark != std::string_view::npos) {
        std::string result = Get(reference.substr(0, mark));
        return result.empty() ? std::string(reference.substr(mark + 1)) : result;
    }
    return reference.find(' ') == std::string_view::npos ? Get(reference) : Compute(reference);
}

std::string Scope::Compute(std::string_view reference) const {
    const std::vector<std::string> words = SplitList(reference, ' ');
    std::vector<std::string> arguments;
    for (std::size_t i = 1; i < words.size(); ++i)
        arguments.push_back(IsNumber(words[i]) ? words[i] : Get(words[i]));
    const std::optional<std::string> result = ApplyRule(words[0], arguments);
    if (!result)
        Fail("'{" + std::string(reference) + "}' is no rule with values that suit it");
    return *result;
}

std::string Scope::Get(std::string_view name) const {
    std::string result;
    for (const Scope* scope = this; scope != nullptr; scope = scope->m_Outer) {
        if (scope->Find(name, result))
            return result;
    }
    Fail("nothing is named '" + std::string(name) + "' here");
}

bool Scope::Find(std::string_view name, std::string& result) const {
    switch (m_Kind) {
    case Kind::Row:
    case Kind::FoundRow:
        return FindInRow(name, result);
    case Kind::Entry:
        return FindInEntry(name, result);
    case Kind::Source:
        break;
    }
    return false;
}

bool Scope::FindInRow(std::string_view name, std::string& result) const {
    if (const std::string* field = m_Table->Field(m_Place, name))
        result = *field;
    else if (name == "row")
        result = std::to_string(m_Place);
    else
        return false;
    return true;
}

bool Scope::FindInEntry(std::string_view name, std::string& result) const {
    constexpr std::string_view kPart = "item.";
    if (name == "index") {
        result = std::to_string(m_Place);
        return true;
    }
    if (name == "item") {
        result = m_Text;
        return true;
    }
    if (!name.starts_with(kPart) || !IsNumber(name.substr(kPart.size())))
        return false;
    std::size_t part = 0;
    std::from_chars(name.data() + kPart.size(), name.data() + name.size(), part);
    const std::vector<std::string> parts = SplitList(m_Text, ':');
    result = part >= 1 && part <= parts.size() ? parts[part - 1] : std::string();
    return true;
}

const Scope* Scope::Innermost(Kind kind) const {
    const Scope* scope = this;
    while (scope != nullptr && scope->m_Kind != kind)
        scope = scope->m_Outer;
    return scope;
}

void Scope::Fail(const std::string& sentence) const {
    const Scope* const source = Innermost(Kind::Source);
    const Scope* const row = Innermost(Kind::Row);
    if (row == nullptr)
        throw BuildError(source->m_Text, sentence);
    throw BuildError(row->m_Table->File(), row->m_Table->LineOf(row->m_Place),
                     sentence + ", by " + source->m_Text);
}

} // namespace TemplateBuilder
