#pragma once

#include "Shared/NotaveraAPI/ConverterOutput.h"

#include <string>
#include <vector>

namespace TabText {

/// Lines that the stave detection left out, counted from 0, and what it said of them.
struct IgnoredLines {
    int First = 0;
    int Last = 0;
    std::string Message;
};

/// Listens to the analysis of one tab and keeps its messages. Never cancels.
class ReadingMessages final : public Nvr::ConverterOutput {
public:
    const std::vector<IgnoredLines>& GetIgnoredLines() const { return m_Ignored; }

    void SetConverterName(Nvr::String /*name*/) override {}
    void SetFileName(Nvr::String /*name*/) override {}
    void SetContext1(int /*value*/) override {}
    void SetContext2(int /*value*/) override {}
    void SetContext3(std::int16_t /*value*/) override {}
    Nvr::String GetFileName() override { return {}; }
    int GetContext1() override { return 0; }
    int GetContext2() override { return 0; }
    std::int16_t GetContext3() override { return 0; }
    Nvr::String GetConverterName() override { return {}; }
    void SetProgressText(Nvr::String /*text*/) override {}
    void SetProgress(int /*percent*/, Nvr::String /*text*/) override {}
    void Report(Nvr::ResId id, int kind, Nvr::String text, bool repeat) override;
    bool GetStatusFlag() override { return true; }
    bool GetReservedFlag() override { return false; }

private:
    std::vector<IgnoredLines> m_Ignored;
};

} // namespace TabText
