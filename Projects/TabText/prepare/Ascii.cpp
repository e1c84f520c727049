#include "Projects/TabText/prepare/Characters.h"
#include "Projects/TabText/prepare/Draft.h"
#include "Projects/TabText/prepare/Steps.h"

namespace TabText {

void RunAscii(Draft& draft) {
    const std::string_view source = draft.GetSource();
    std::string before = FromUtf16(source);
    if (before.empty())
        before = source;
    std::string ascii = ToAscii(before);
    if (ascii != source)
        draft.Recode(std::move(before), std::move(ascii));
}

} // namespace TabText
