#include "tests/support/StoredSettings.h"

#include "tests/support/Environment.h"
#include "tests/support/ScratchFolder.h"

namespace TestSupport {

struct StoredSettings::Place {
    ScratchFolder Folder;
    Environment Variable{"NOTAVERA_SETTINGS", Folder.Path().string()};
};

StoredSettings::StoredSettings() : m_Place(std::make_unique<Place>()) {}

StoredSettings::~StoredSettings() = default;

void StoredSettings::Store(const std::string& group, const Values& values, bool forUser) {
    std::ofstream file(m_Place->Folder.Path() / (forUser ? "user.conf" : "machine.conf"), std::ios::app);
    file << '[' << group << "]\n";
    for (const auto& [name, value] : values)
        file << name << " = " << value << '\n';
}

} // namespace TestSupport
