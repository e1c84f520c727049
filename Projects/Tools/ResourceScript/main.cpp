// resource_script strings OUTPUT: the texts that the user gets to see, as a script for the resource compiler.
// resource_script dialog LAYOUT ID OUTPUT: a dialog's layout as such a script.

#include "Projects/Fretline/resources/StringTable.h"
#include "Projects/Tools/ResourceScript/DialogScript.h"
#include "Projects/Tools/ResourceScript/ScriptText.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string_view>

namespace {

constexpr int kExitFailed = 1;
constexpr int kExitWrongCall = 2;

std::string StringScript() {
    std::string script = "STRINGTABLE\nBEGIN\n";
    for (const Fretline::ResourceText& text : Fretline::kResourceTexts)
        script.append("    ")
            .append(std::to_string(text.Id))
            .append(", ")
            .append(ResourceScript::Quoted(text.Text) + "\n");
    return script + "END\n";
}

std::string ScriptOfDialog(const char* layoutFile, int id) {
    const std::unique_ptr<Nvr::TreeNodeRoot> layout(Nvr::TreeNode::LoadFromFile(layoutFile));
    if (layout == nullptr)
        throw std::runtime_error(std::string(layoutFile) + " cannot be read");
    return ResourceScript::DialogScript(*layout, id);
}

void Write(const char* file, const std::string& script) {
    std::ofstream output(file, std::ios::binary | std::ios::trunc);
    output << script;
    output.close();
    if (!output)
        throw std::runtime_error(std::string(file) + " cannot be written");
}

} // namespace

int main(int argc, char** argv) {
    const std::string_view what = argc > 1 ? argv[1] : "";
    try {
        if (what == "strings" && argc == 3)
            Write(argv[2], StringScript());
        else if (what == "dialog" && argc == 5)
            Write(argv[4], ScriptOfDialog(argv[2], std::atoi(argv[3])));
        else {
            std::fputs("usage: resource_script strings OUTPUT | dialog LAYOUT ID OUTPUT\n", stderr);
            return kExitWrongCall;
        }
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "resource_script: %s\n", failure.what());
        return kExitFailed;
    }
}
