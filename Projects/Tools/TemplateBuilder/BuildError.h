#pragma once

#include <stdexcept>
#include <string>

namespace TemplateBuilder {

/// What is wrong with the sources of a template: one sentence for the person who edits them.
///
/// The text reads "FILE:LINE: SENTENCE", or "FILE: SENTENCE" where no single line is at fault. Files are
/// named by their path from the template's folder. Nothing has been written when one of these is thrown.
class BuildError : public std::runtime_error {
public:
    BuildError(const std::string& file, const std::string& sentence)
        : std::runtime_error(file + ": " + sentence) {}
    BuildError(const std::string& file, int line, const std::string& sentence)
        : BuildError(file + ":" + std::to_string(line), sentence) {}
};

} // namespace TemplateBuilder
