// The built library, as a host gets it.

#include "tests/Projects/Fretline/shell/LibraryTesting.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <sstream>

namespace {

// What a command writes to its standard output.
std::string OutputOf(const std::string& command) {
    std::string text;
    FILE* const pipe = popen(command.c_str(), "r");
    std::array<char, 4096> block;
    while (const std::size_t length = std::fread(block.data(), 1, block.size(), pipe))
        text.append(block.data(), length);
    pclose(pipe);
    return text;
}

std::vector<std::string> SortedWords(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    std::sort(words.begin(), words.end());
    return words;
}

TEST(Library, ExportsTheNamesOfTheListAndNothingElse) {
    std::ifstream list(FRETLINE_EXPORTS_LIST);
    const std::string listed{std::istreambuf_iterator<char>(list), {}};
    ASSERT_EQ(SortedWords(listed).size(), 5U);
    // "address type name" a line, weak and unique symbols too.
    const std::string table =
        OutputOf(FRETLINE_NM " -D --defined-only --format=posix '" FRETLINE_LIBRARY "'");
    std::istringstream lines(table);
    std::string exported;
    for (std::string line; std::getline(lines, line);)
        exported += line.substr(0, line.find(' ')) + " ";
    EXPECT_EQ(SortedWords(exported), SortedWords(listed)) << table;
}

TEST(Library, ConvertsAFileForThisProgramAndCanBeUnloaded) {
    const std::vector<std::string> calls = CallsOfALoadedLibrary(true);
    ASSERT_EQ(calls.size(), 10U);
    EXPECT_EQ(calls.front(), "create Importing Tab file|0|100|30");
    EXPECT_EQ(calls[7], "load");
    EXPECT_EQ(calls.back(), "destroy");
}

} // namespace
