#include "Projects/Fretline/resources/ResourceNumbers.h"
#include "Shared/Utils/platform/ResourceTable.h"

// The bytes that the assembler puts between these two.
extern "C" const std::byte FretlineOptionsDialogBegin[];
extern "C" const std::byte FretlineOptionsDialogEnd[];

namespace {

using Nvr::Platform::DataResource;

const DataResource kData[] = {
    {"DIALOG", "", Fretline::kDialogResource, {FretlineOptionsDialogBegin, FretlineOptionsDialogEnd}}};

const Nvr::Platform::ResourceTable kResources({}, kData);

} // namespace
