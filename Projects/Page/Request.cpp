#include "Projects/Page/Request.h"

#include "Projects/Fretline/shell/FretlineOptions.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>

namespace Page {

namespace {

using Json = nlohmann::ordered_json;

template <typename Value>
struct Word {
    std::string_view Name;
    Value Meaning;
};

constexpr Word<int> kRhythms[] = {{"never", Fretline::kRhythmsNever},
                                  {"indicated", Fretline::kRhythmsWhenIndicated},
                                  {"always", Fretline::kRhythmsAlways}};

constexpr Word<Score::Layout> kLayouts[] = {
    {"tab", Score::Layout::Tab}, {"notes", Score::Layout::Notes}, {"both", Score::Layout::Both}};

// False, with `why` set, for a word that is not in the table.
template <typename Value, std::size_t Count>
bool Find(const Word<Value> (&table)[Count], const Json& json, const char* name, Value& value,
          std::string& why) {
    const std::string word = json.value(name, std::string());
    const auto row = std::find_if(std::begin(table), std::end(table),
                                  [&](const Word<Value>& entry) { return entry.Name == word; });
    if (row == std::end(table)) {
        why = std::string(name) + ": there is no \"" + word + "\"";
        return false;
    }
    value = row->Meaning;
    return true;
}

// The same for a list of words, by a function that gives null for an unknown one.
template <typename Row>
bool FindAll(const Row* (*find)(std::string_view), const Json& json, const char* name,
             std::vector<const Row*>& rows, std::string& why) {
    for (const Json& entry : json.value(name, Json::array())) {
        const std::string word = entry.is_string() ? entry.get<std::string>() : entry.dump();
        rows.push_back(find(word));
        if (rows.back() == nullptr) {
            why = std::string(name) + ": there is no \"" + word + "\"";
            return false;
        }
    }
    return true;
}

const TabText::PreparationStep* FindStep(std::string_view name) {
    const TabText::PreparationStep* step = TabText::FindPreparationStep(name);
    return step != nullptr && Request::IsStepOfOneText(*step) ? step : nullptr;
}

} // namespace

bool Request::IsStepOfOneText(const TabText::PreparationStep& step) {
    return std::string_view(step.Name) != "parts";
}

std::optional<Request> Request::Parse(std::string_view text, std::string& why) {
    const Json json = Json::parse(text, nullptr, false);
    if (!json.is_object()) {
        why = "the options are no JSON object";
        return std::nullopt;
    }
    Request request;
    request.Name = json.value("name", std::string());
    if (Find(kRhythms, json, "rhythms", request.RhythmLevel, why) &&
        Find(kLayouts, json, "layout", request.Layout, why) &&
        FindAll(FindStep, json, "prepare", request.Steps, why) &&
        FindAll(Formats::FindFormat, json, "formats", request.Formats, why))
        return request;
    return std::nullopt;
}

} // namespace Page
