/* The boundary is C: this file compiles as C11 and holds what a host written in C does with it. */

#include "Shared/NotaveraAPI/NotaveraPlugin.h"

/* Starts a plug-in as a host does and gives the type code of its first row, or null. */
const char* FirstTypeCodeSeenFromC(int (*init)(const HostInitRecord*, PluginInfoRecord*),
                                   const char* configFolder);

const char* FirstTypeCodeSeenFromC(int (*init)(const HostInitRecord*, PluginInfoRecord*),
                                   const char* configFolder) {
    HostInitRecord host = {0};
    PluginInfoRecord info = {{0}, 0, NULL, 0};
    host.ConfigFolder = configFolder;
    if (init(&host, &info) == 0 || info.FileTypeCount < 1)
        return NULL;
    return info.FileTypes[0].TypeCode;
}
