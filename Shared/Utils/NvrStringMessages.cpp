#include "Shared/Utils/NvrString.h"

#include "Shared/Utils/ResId.h"
#include "Shared/Utils/StringList.h"

namespace Nvr {

namespace {

const char* const kApplicationMarker = "%app";

String& MutableApplicationName() {
    static String s_Name;
    return s_Name;
}

} // namespace

const String& String::ApplicationName() {
    return MutableApplicationName();
}

void String::SetApplicationName(const String& name) {
    MutableApplicationName() = name;
}

String::String(const ResId& id) : String(id.GetString()) {}

String::String(const ResId& id, const String& first)
    : String(id.GetString().ReplaceAll("%1", first).ReplaceAll(kApplicationMarker, ApplicationName())) {}

String::String(const ResId& id, const String& first, const String& second)
    : String(id.GetString()
                 .ReplaceAll("%1", first)
                 .ReplaceAll("%2", second)
                 .ReplaceAll(kApplicationMarker, ApplicationName())) {}

String::String(const ResId& id, const StringList& list) : String(id.GetString()) {
    for (int i = 1; i <= list.Count(); ++i)
        *this = ReplaceAll("%" + FromInt(i), list.GetAt(i - 1));
}

} // namespace Nvr
