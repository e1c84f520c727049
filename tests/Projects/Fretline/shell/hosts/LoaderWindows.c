#include "tests/Projects/Fretline/shell/hosts/Loader.h"

#include <string.h>
#include <windows.h>

void* OpenLibrary(const char* path, int isGlobal) {
    (void)isGlobal;
    return LoadLibraryA(path);
}

int FindFunction(void* library, const char* name, void* function) {
    const FARPROC found = GetProcAddress(library, name);
    memcpy(function, &found, sizeof found);
    return found != NULL;
}

int CloseLibrary(void* library) {
    return FreeLibrary(library) ? 0 : 1;
}
