#pragma once

#include "Shared/Utils/Reporting.h"

#include <string>
#include <vector>

/// Collects all reports as long as it lives.
class RecordingSink : public Nvr::LogSink {
public:
    RecordingSink() : m_Former(Nvr::SetLogSink(this)) {}
    ~RecordingSink() override { Nvr::SetLogSink(m_Former); }
    RecordingSink(const RecordingSink&) = delete;
    RecordingSink& operator=(const RecordingSink&) = delete;

    void Write(const Nvr::String& message, std::intptr_t, std::intptr_t) override {
        Messages.emplace_back(message.View());
    }

    std::vector<std::string> Messages;

private:
    Nvr::LogSink* m_Former;
};
