#pragma once

#include <span>
#include <string>

/// A kind of text that invites a cost beyond proportion. The text of size n is n times as long as that of
/// size 1; at size 1,000 it is what `AtThousand` says.
struct HostileShape {
    const char* Name;
    const char* AtThousand;
    std::string (*Make)(int size);
};

std::span<const HostileShape> HostileShapes();
