#pragma once

#include "Shared/NotaveraAPI/ConverterOutput.h"
#include "Shared/Utils/VAList.h"

namespace Nvr {

/// The ConverterOutput that talks to the host through HostFunctions(). Messages go out as they are reported;
/// nothing is gathered.
///
/// The names, the contexts and the last progress text are kept once for the whole process, so that they
/// outlast an object. Names start empty, contexts at -2.
class PluginOutput : public ConverterOutput {
public:
    PluginOutput(const String& fileName, const String& converterName);
    PluginOutput(const PluginOutput&) = delete;
    PluginOutput& operator=(const PluginOutput&) = delete;

    void SetConverterName(String name) override;
    /// Also forgets which ids were reported.
    void SetFileName(String name) override;
    /// A new value also forgets which ids were reported.
    void SetContext1(int value) override;
    void SetContext2(int value) override;
    void SetContext3(std::int16_t value) override;
    String GetFileName() override;
    int GetContext1() override;
    int GetContext2() override;
    std::int16_t GetContext3() override;
    String GetConverterName() override;

    void SetProgressText(String text) override;
    /// Stores both, then tells the host. A host without the function counts as one that cancels.
    void SetProgress(int percent, String text) override;
    /// Counts the message also when the host has no function for it. Contexts 1 and 2 go along.
    void Report(ResId id, int kind, String text, bool repeat) override;

    /// Always true.
    bool GetStatusFlag() override;
    /// Always false.
    bool GetReservedFlag() override;

    // After the operations of the base, whose order is settled.
    virtual ~PluginOutput();

    int GetMessageCount() const { return m_MessageCount; }
    int GetLastPercent() const { return m_LastPercent; }
    /// Of the whole process.
    static String GetLastProgressText();

private:
    void ForgetReportedIds();
    void UpdateProgressDialog() const;

    int m_MessageCount = 0;
    bool m_StatusFlag = true;
    int m_LastPercent = 0;
    TVAList<int> m_ReportedIds;
};

} // namespace Nvr
