#include "Shared/NotaveraAPI/PluginOutput.h"

#include "Shared/NotaveraAPI/HostFunctions.h"

#include <utility>

namespace Nvr {

namespace {

constexpr int kNoContext = -2;

struct ProcessState {
    String FileName;
    String ConverterName;
    String LastProgressText;
    int Context1 = kNoContext;
    int Context2 = kNoContext;
    int Context3 = kNoContext;
    // Nothing sets it.
    const bool ReservedFlag = false;
};

ProcessState& State() {
    static ProcessState state;
    return state;
}

} // namespace

PluginOutput::PluginOutput(const String& fileName, const String& converterName) {
    State().FileName = fileName;
    State().ConverterName = converterName;
}

PluginOutput::~PluginOutput() = default;

void PluginOutput::SetConverterName(String name) {
    State().ConverterName = std::move(name);
}

void PluginOutput::SetFileName(String name) {
    State().FileName = std::move(name);
    ForgetReportedIds();
}

void PluginOutput::SetContext1(int value) {
    if (value == State().Context1)
        return;
    ForgetReportedIds();
    State().Context1 = value;
}

void PluginOutput::SetContext2(int value) {
    if (value == State().Context2)
        return;
    ForgetReportedIds();
    State().Context2 = value;
}

void PluginOutput::SetContext3(std::int16_t value) {
    State().Context3 = value;
}

String PluginOutput::GetFileName() {
    return State().FileName;
}

int PluginOutput::GetContext1() {
    return State().Context1;
}

int PluginOutput::GetContext2() {
    return State().Context2;
}

std::int16_t PluginOutput::GetContext3() {
    return static_cast<std::int16_t>(State().Context3);
}

String PluginOutput::GetConverterName() {
    return State().ConverterName;
}

void PluginOutput::SetProgressText(String text) {
    State().LastProgressText = std::move(text);
    UpdateProgressDialog();
}

void PluginOutput::SetProgress(int percent, String text) {
    m_LastPercent = percent;
    State().LastProgressText = std::move(text);
    UpdateProgressDialog();
}

void PluginOutput::Report(ResId id, int kind, String text, bool repeat) {
    if (!repeat && m_ReportedIds.Contains(id.GetId()))
        return;
    if (text.IsEmpty())
        text = id.GetString();
    if (HostFunctions().ResultsDialogMessage != nullptr) {
        // Copies: the host may call back and change what is stored before it has read them.
        const String converterName = State().ConverterName;
        const String fileName = State().FileName;
        const HostCallGuard guard;
        HostFunctions().ResultsDialogMessage(converterName.CStr(), fileName.CStr(), kind, GetContext1(),
                                             GetContext2(), text.CStr());
    }
    ++m_MessageCount;
    m_StatusFlag = true;
    m_ReportedIds.Add(id.GetId());
}

bool PluginOutput::GetStatusFlag() {
    return m_StatusFlag;
}

bool PluginOutput::GetReservedFlag() {
    return State().ReservedFlag;
}

String PluginOutput::GetLastProgressText() {
    return State().LastProgressText;
}

void PluginOutput::ForgetReportedIds() {
    m_ReportedIds.DeleteAll();
}

void PluginOutput::UpdateProgressDialog() const {
    const NvrUpdateProgressDialog update = HostFunctions().UpdateProgressDialog;
    const String text = State().LastProgressText;
    const HostCallGuard guard;
    if (update == nullptr || update(ProgressContext(), m_LastPercent, text.CStr()) == 0)
        throw ConverterCancelled();
}

} // namespace Nvr
