#pragma once

#include "Projects/Formats/Formats.h"
#include "Projects/Score/LilyPond.h"
#include "Projects/TabText/Preparation.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Page {

/// What is asked of one text.
struct Request {
    /// False for a step that gives several texts: an answer is about one.
    static bool IsStepOfOneText(const TabText::PreparationStep& step);

    /// What the text is called, with or without folder and extension.
    std::string Name;
    /// As Fretline::FretlineOptions keeps it.
    int RhythmLevel = 0;
    /// None: the text is opened as it is.
    std::vector<const TabText::PreparationStep*> Steps;
    Score::Layout Layout = Score::Layout::Both;
    std::vector<const Formats::Format*> Formats;

    /// Reads {"name", "rhythms", "prepare", "layout", "formats"}, all of which are there. Empty when a word
    /// is not known; `why` then says which.
    static std::optional<Request> Parse(std::string_view json, std::string& why);
};

} // namespace Page
