#pragma once

#include "Shared/NotaveraAPI/ConverterOutput.h"

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace TestSupport {

/// A converter output that keeps what it is told, for tests to look at afterwards.
class FakeOutput final : public Nvr::ConverterOutput {
public:
    struct Message {
        int Id;
        int Kind;
        std::string Text;
        bool Repeat;

        bool operator==(const Message&) const = default;
        friend std::ostream& operator<<(std::ostream& stream, const Message& message) {
            return stream << message.Id << " kind " << message.Kind << " \"" << message.Text << "\" repeat "
                          << message.Repeat;
        }
    };
    struct Progress {
        int Percent;
        std::string Text;

        bool operator==(const Progress&) const = default;
        friend std::ostream& operator<<(std::ostream& stream, const Progress& progress) {
            return stream << progress.Percent << "% \"" << progress.Text << '"';
        }
    };

    /// In the order of the calls; also those that a host would not be shown twice.
    std::vector<Message> Messages;
    std::vector<Progress> ProgressCalls;
    /// The progress call, counted from 1, at which the user cancels; 0 for never.
    int CancelAt = 0;
    /// Runs after each progress call; may throw.
    std::function<void(int percent)> OnProgress;

    void SetConverterName(Nvr::String name) override { m_ConverterName = name; }
    void SetFileName(Nvr::String name) override { m_FileName = name; }
    void SetContext1(int value) override { m_Context1 = value; }
    void SetContext2(int value) override { m_Context2 = value; }
    void SetContext3(std::int16_t value) override { m_Context3 = value; }
    Nvr::String GetFileName() override { return m_FileName; }
    int GetContext1() override { return m_Context1; }
    int GetContext2() override { return m_Context2; }
    std::int16_t GetContext3() override { return m_Context3; }
    Nvr::String GetConverterName() override { return m_ConverterName; }
    void SetProgressText(Nvr::String text) override {
        SetProgress(ProgressCalls.empty() ? 0 : ProgressCalls.back().Percent, text);
    }
    void SetProgress(int percent, Nvr::String text) override {
        ProgressCalls.push_back({percent, std::string(text.View())});
        if (static_cast<int>(ProgressCalls.size()) == CancelAt)
            throw Nvr::ConverterCancelled();
        if (OnProgress)
            OnProgress(percent);
    }
    void Report(Nvr::ResId id, int kind, Nvr::String text, bool repeat) override {
        Messages.push_back({id.GetId(), kind, std::string(text.View()), repeat});
    }
    bool GetStatusFlag() override { return true; }
    bool GetReservedFlag() override { return false; }

private:
    static constexpr int kNoContext = -2;

    Nvr::String m_ConverterName;
    Nvr::String m_FileName;
    int m_Context1 = kNoContext;
    int m_Context2 = kNoContext;
    std::int16_t m_Context3 = kNoContext;
};

} // namespace TestSupport
