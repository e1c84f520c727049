#pragma once

#include "Shared/Utils/Reporting.h"

#include <string>
#include <utility>
#include <vector>

/// Collects all reports as long as it lives.
class RecordingSink : public Nvr::LogSink {
public:
    RecordingSink() : m_Former(Nvr::SetLogSink(this)) {}
    ~RecordingSink() override { Nvr::SetLogSink(m_Former); }
    RecordingSink(const RecordingSink&) = delete;
    RecordingSink& operator=(const RecordingSink&) = delete;

    void Write(const Nvr::String& message, std::intptr_t firstValue, std::intptr_t secondValue) override {
        Messages.emplace_back(message.View());
        Values.emplace_back(firstValue, secondValue);
    }

    std::vector<std::string> Messages;
    std::vector<std::pair<std::intptr_t, std::intptr_t>> Values;

private:
    Nvr::LogSink* m_Former;
};
