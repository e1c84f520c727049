#include "Shared/Utils/platform/ResourceTable.h"

// The bytes that the assembler puts between these two.
extern "C" const std::byte FretlineOptionsDialogBegin[];
extern "C" const std::byte FretlineOptionsDialogEnd[];

namespace {

using Nvr::Platform::DataResource;

constexpr int kDialogId = 100;

const DataResource kData[] = {
    {"DIALOG", "", kDialogId, {FretlineOptionsDialogBegin, FretlineOptionsDialogEnd}}};

const Nvr::Platform::ResourceTable kResources({}, kData);

} // namespace
