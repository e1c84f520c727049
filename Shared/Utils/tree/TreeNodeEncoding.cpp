#include "Shared/Utils/tree/TreeNodeEncoding.h"

#include "Shared/Utils/Reporting.h"
#include "Shared/Utils/platform/TextServices.h"

namespace Nvr {

namespace {

constexpr int kMacintoshEncoding = 1;

} // namespace

void ConvertFromUtf16(std::u16string_view units, std::string& text) {
    if (!Platform::FromUtf16(units, text)) {
        Raise(Exception("WideCharToMultiByte failed - code page not present on machine?"), __FILE__,
              __LINE__);
    }
}

void ConvertToUtf16(int encoding, std::string_view text, std::u16string& units) {
    const auto page =
        encoding == kMacintoshEncoding ? Platform::CodePage::Macintosh : Platform::CodePage::System;
    if (Platform::ToUtf16(page, text, units))
        return;
    // A failure here leaves the units empty: there is nothing else to write.
    static_cast<void>(Platform::ToUtf16(Platform::CodePage::System, text, units));
}

} // namespace Nvr
