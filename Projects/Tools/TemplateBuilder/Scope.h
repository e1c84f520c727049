#pragma once

#include "Projects/Tools/TemplateBuilder/Table.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace TemplateBuilder {

/// The names that a value may refer to at one place of a schema.
///
/// Scopes are nested: each row of a table and each entry of a list opens one around what is made of it, and a
/// name means the innermost scope that has it. A scope borrows its table and the scope around it.
class Scope {
public:
    /// The outermost scope, which has no names: `source` is the file that is being followed.
    explicit Scope(std::string source) : m_Kind(Kind::Source), m_Text(std::move(source)) {}
    /// The names of `outer`, while another file is being followed.
    static Scope OfSource(const Scope& outer, const std::string& source);
    /// The columns of one row, and `row` for its place among the rows, counted from 0.
    Scope(const Scope& outer, const Table& table, std::size_t row);
    /// The same for a row that is looked up to complete another one, which messages go on naming.
    static Scope OfFoundRow(const Scope& outer, const Table& table, std::size_t row);
    /// `item` for the entry itself, `item.1`, `item.2` and so on for what stands in it between colons, and
    /// `index` for its place in the list, counted from 0.
    Scope(const Scope& outer, const std::string& entry, std::size_t index);

    /// A value with every reference in it replaced. `{name}` is what the name stands for; `{name?text}` is
    /// `text` where that is empty; `{rule argument ...}` is a computed value, an argument being a name or a
    /// number. `{{` stands for a brace. Throws BuildError for a name that no scope has, a rule that does not
    /// exist or does not suit, and an unfinished reference.
    std::string Fill(std::string_view value) const;

    /// What a single name stands for. Throws BuildError when no scope has it.
    std::string Get(std::string_view name) const;

    /// An error in what is being made here. The message names the row at hand, if any, and the file that is
    /// being followed.
    [[noreturn]] void Fail(const std::string& sentence) const;

private:
    enum class Kind { Source, Row, FoundRow, Entry };

    bool Find(std::string_view name, std::string& result) const;
    bool FindInRow(std::string_view name, std::string& result) const;
    bool FindInEntry(std::string_view name, std::string& result) const;
    std::string Resolve(std::string_view reference) const;
    std::string Compute(std::string_view reference) const;
    const Scope* Innermost(Kind kind) const;

    Kind m_Kind;
    const Scope* m_Outer = nullptr;
    const Table* m_Table = nullptr;
    std::size_t m_Place = 0;
    /// The entry of a list, or the name of the source.
    std::string m_Text;
};

} // namespace TemplateBuilder
