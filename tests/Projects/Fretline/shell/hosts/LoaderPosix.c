#include "tests/Projects/Fretline/shell/hosts/Loader.h"

#include <dlfcn.h>
#include <string.h>

void* OpenLibrary(const char* path, int isGlobal) {
    return dlopen(path, RTLD_NOW | (isGlobal ? RTLD_GLOBAL : RTLD_LOCAL));
}

int FindFunction(void* library, const char* name, void* function) {
    void* const found = dlsym(library, name);
    memcpy(function, &found, sizeof found);
    return found != NULL;
}

int CloseLibrary(void* library) {
    return dlclose(library);
}
