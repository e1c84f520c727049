#include "Projects/TabText/Preparation.h"

#include "tests/Projects/TabText/ReadText.h"
#include "tests/support/TabBook.h"
#include "tests/support/TabText.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {

using TabText::Prepare;
using TabText::PreparedText;

std::string ReadFile(const std::filesystem::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

void ExpectUnchanged(const std::string& text, const std::string& name) {
    const PreparedText prepared = Prepare(text);
    EXPECT_EQ(text, prepared.Text) << name << "\n" << TabText::ChangesText(prepared);
    EXPECT_FALSE(prepared.IsChanged()) << name;
}

TEST(Preparation, LeavesTidyTabsAlone) {
    for (const auto& entry : std::filesystem::directory_iterator(FRETLINE_SOURCE_DIR "/examples"))
        if (entry.path().extension() != ".nvf")
            ExpectUnchanged(ReadFile(entry.path()), entry.path().filename());
    for (std::uint32_t seed = 0; seed < 1000; ++seed)
        ExpectUnchanged(TestSupport::MakeOddTab(seed), "odd tab " + std::to_string(seed));
}

// The table of docs/preparation.md: "name, on", a line each.
std::string DocumentedSteps() {
    std::string steps;
    std::ifstream page(FRETLINE_SOURCE_DIR "/docs/preparation.md");
    for (std::string line; std::getline(page, line);)
        if (line.starts_with("| `")) {
            const std::size_t end = line.find('`', 3);
            steps += line.substr(3, end - 3) + ", " +
                     (line.find("| by name |") == std::string::npos ? "on" : "by name") + "\n";
        }
    return steps;
}

TEST(Preparation, HasItsStepsDocumented) {
    std::string steps;
    for (const TabText::PreparationStep& step : TabText::AllPreparationSteps())
        steps += std::string(step.Name) + ", " + (step.IsOnByDefault ? "on" : "by name") + "\n";
    EXPECT_EQ(steps, DocumentedSteps());
}

} // namespace
