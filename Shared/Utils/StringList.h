#pragma once

#include "Shared/Utils/NvrString.h"
#include "Shared/Utils/VAList.h"

namespace Nvr {

/// A list of strings by value; see TVAList.
class StringList : public TVAList<String> {
public:
    using TVAList<String>::TVAList;
};

} // namespace Nvr
