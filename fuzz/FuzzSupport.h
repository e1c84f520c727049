#pragma once

#include "Shared/NotaveraAPI/ConverterOutput.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace FuzzSupport {

/// Ends the program with the property that does not hold.
void Require(bool holds, const char* property);

/// A file that holds the input, in memory where the system has a place for that. Made anew for each input;
/// gone with the object.
class InputFile {
public:
    InputFile(const std::uint8_t* data, std::size_t size);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    const std::string& Path() const { return m_Path; }

private:
    std::string m_Path;
};

/// A path in the same place where nothing is.
std::string FreshPath(const char* name);

/// Takes everything, says nothing.
class SilentOutput final : public Nvr::ConverterOutput {
public:
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
    void Report(Nvr::ResId /*id*/, int /*kind*/, Nvr::String /*text*/, bool /*repeat*/) override {}
    bool GetStatusFlag() override { return true; }
    bool GetReservedFlag() override { return false; }
};

} // namespace FuzzSupport
