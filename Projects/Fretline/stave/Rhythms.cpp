#include "Projects/Fretline/stave/Rhythms.h"

namespace Fretline {

Rhythms::~Rhythms() = default;

} // namespace Fretline
