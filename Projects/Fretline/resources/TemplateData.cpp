#include "Projects/Fretline/resources/ResourceNumbers.h"
#include "Shared/Utils/platform/ResourceTable.h"

// The bytes that the assembler puts between these two.
extern "C" const std::byte FretlineTemplateBegin[];
extern "C" const std::byte FretlineTemplateEnd[];

namespace {

using Nvr::Platform::DataResource;

const DataResource kData[] = {
    {"TREENODE", "", Fretline::kTemplateResource, {FretlineTemplateBegin, FretlineTemplateEnd}}};

const Nvr::Platform::ResourceTable kResources({}, kData);

} // namespace
