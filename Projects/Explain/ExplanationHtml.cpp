#include "Projects/Explain/Explanation.h"
#include "Projects/Score/Utf8.h"

#include <pugixml.hpp>

#include <set>
#include <sstream>

namespace Explain {

namespace {

using Score::ToUtf8;

using pugi::xml_node;

constexpr const char* kStyle = R"(
:root { color-scheme: light dark; --ink: #1b1b1b; --paper: #fff; --dim: #777; --fret: #14731f; --rhythm: #8a1c8a;
        --chord: #8a1c1c; --label: #1c4f8a; --tuning: #0f6a6a; --ignored: #a33; }
@media (prefers-color-scheme: dark) {
  :root { --ink: #eee; --paper: #16181c; --dim: #8a8f98; --fret: #7fe08c; --rhythm: #e69be6; --chord: #ff9c8f;
          --label: #8fc1ff; --tuning: #7fd6d6; --ignored: #ff8080; }
}
body { color: var(--ink); background: var(--paper); font: 16px/1.5 system-ui, sans-serif; max-width: 70rem; margin: 2rem auto; padding: 0 1rem; }
pre { font: 14px/1.35 "DejaVu Sans Mono", Consolas, monospace; overflow-x: auto; margin: 0; }
.number { color: var(--dim); user-select: none; }
.nothing { color: var(--ink); } .stave { color: var(--dim); } .barline { font-weight: bold; }
.tuning { color: var(--tuning); font-weight: bold; } .fret { color: var(--fret); font-weight: bold; } .muted { color: var(--fret); }
.rhythm { color: var(--rhythm); font-weight: bold; } .chord { color: var(--chord); font-weight: bold; }
.lost-chord { color: var(--chord); text-decoration: line-through; } .label { color: var(--label); font-weight: bold; }
.lost-label { color: var(--label); text-decoration: line-through; } .time { color: var(--tuning); text-decoration: underline; }
.ignored { color: var(--ignored); text-decoration: line-through; } .note { color: var(--ignored); }
.playing { color: var(--chord); }
.doubt { text-decoration: underline wavy var(--ignored); } .doubt-note { color: var(--ignored); font-style: italic; }
details { margin: .3rem 0 1rem 3.5rem; } summary { cursor: pointer; } li { margin: .15rem 0; }
)";

xml_node Add(xml_node parent, const char* name, const std::string& text = {}) {
    xml_node node = parent.append_child(name);
    if (!text.empty())
        node.append_child(pugi::node_pcdata).set_value(text.c_str());
    return node;
}

void AddSpan(xml_node parent, const std::string& style, const std::string& text) {
    Add(parent, "span", text).append_attribute("class").set_value(style.c_str());
}

void AddLine(xml_node pre, const ExplainedLine& line) {
    std::string digits = line.Number == 0 ? std::string() : std::to_string(line.Number);
    digits.insert(0, digits.size() < 5 ? 5 - digits.size() : 0, ' ');
    AddSpan(pre, "number", digits + "  ");
    for (std::size_t column = 0; column < line.Text.size();) {
        const std::size_t end = line.EndOfStretch(column);
        const std::string style = NameOf(line.Marks[column]).Id;
        AddSpan(pre, line.IsDoubtful[column] ? style + " doubt" : style,
                ToUtf8(line.Text.substr(column, end - column)));
        column = end;
    }
    pre.append_child(pugi::node_pcdata).set_value("\n");
    for (const std::string& note : line.Notes)
        AddSpan(pre, "note", "       ! " + ToUtf8(note) + "\n");
    for (const std::string& doubt : line.Doubts)
        AddSpan(pre, "doubt-note", "       ? " + ToUtf8(doubt) + "\n");
}

void AddStave(xml_node body, const Explanation::Stave& stave) {
    xml_node details = Add(body, "details");
    Add(details, "summary", stave.Heading + ", " + std::to_string(stave.Bars.size()) + " bars read");
    xml_node list = Add(details, "ul");
    for (const ExplainedBar& bar : stave.Bars) {
        xml_node item = Add(list, "li", ToUtf8(bar.Heading));
        xml_node notes = Add(item, "ul");
        for (const std::string& note : bar.Notes)
            Add(notes, "li", ToUtf8(note));
    }
}

void AddLegend(xml_node body, const Explanation& explanation) {
    std::set<Recognised> used;
    for (const ExplainedLine& line : explanation.Lines)
        used.insert(line.Marks.begin(), line.Marks.end());
    xml_node list = Add(body, "ul");
    for (const Recognised kind : used)
        AddSpan(Add(list, "li"), NameOf(kind).Id, NameOf(kind).Name);
}

void AddSigns(xml_node body, const std::vector<TabText::SignRow>& signs) {
    if (signs.empty())
        return;
    Add(body, "h2", "Signs of this text");
    xml_node list = Add(body, "ul");
    for (const TabText::SignRow& row : signs) {
        xml_node item = Add(list, "li");
        AddSpan(item, "playing", row.Shown);
        item.append_child(pugi::node_pcdata).set_value((" " + std::string(row.Meaning)).c_str());
    }
}

} // namespace

std::string ExplanationHtml(const Explanation& explanation, const std::string& title) {
    pugi::xml_document document;
    document.append_child(pugi::node_doctype).set_value("html");
    xml_node html = Add(document, "html");
    html.append_attribute("lang").set_value("en");
    xml_node head = Add(html, "head");
    head.append_child("meta").append_attribute("charset").set_value("utf-8");
    xml_node viewport = head.append_child("meta");
    viewport.append_attribute("name").set_value("viewport");
    viewport.append_attribute("content").set_value("width=device-width");
    Add(head, "title", title);
    Add(head, "style", kStyle);
    xml_node body = Add(html, "body");
    Add(body, "h1", title);
    xml_node pre;
    auto stave = explanation.Staves.begin();
    for (std::size_t index = 0; index < explanation.Lines.size(); ++index) {
        if (!pre)
            pre = Add(body, "pre");
        AddLine(pre, explanation.Lines[index]);
        if (stave == explanation.Staves.end() || stave->LastLine != static_cast<int>(index))
            continue;
        AddStave(body, *stave++);
        pre = xml_node();
    }
    Add(body, "h2", "What the colours mean");
    AddLegend(body, explanation);
    AddSigns(body, explanation.Signs);
    std::ostringstream text;
    document.save(text, "", pugi::format_raw | pugi::format_no_declaration);
    return text.str();
}

} // namespace Explain
