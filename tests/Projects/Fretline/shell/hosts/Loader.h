#pragma once

/* Libraries as the platform loads them. One source a platform. */

/* Null when it cannot be loaded. Where the platform knows the difference, its symbols are for everybody with
 * `isGlobal`, else its own. */
void* OpenLibrary(const char* path, int isGlobal);
/* Puts the address of the function into the pointer that `function` points to; 0 when there is none. */
int FindFunction(void* library, const char* name, void* function);
/* 0 when it could be unloaded. */
int CloseLibrary(void* library);
