#pragma once

/* The boundary between the host Notavera and an import plug-in: plain C, the same for both sides.
 *
 * The plug-in is a library that exports five functions; the host is the main executable of the process and
 * exports six. Nothing else crosses. All text is zero-terminated, 8-bit, in the system code page.
 *
 * Calls: every function, in both directions, is called as the platform's C compiler calls a function that is
 * declared without any more words. On 32-bit Windows that is cdecl: arguments on the stack from right to
 * left, taken away by the caller, the result in EAX. Names are exported as they stand here, without an
 * underscore in front or a count of bytes at the end.
 *
 * Threads: the plug-in starts none and takes no lock. The host makes one call at a time, all of them on one
 * thread; the plug-in calls back on that thread, and only while one of its own functions runs.
 *
 * States: the plug-in is not initialised when it is loaded, after NVR_TERM, and after an NVR_INIT that gave
 * 0; it is initialised after an NVR_INIT that gave 1. It is converting from the time that the first update
 * call of a file has returned until its destroy call has. Each function below says in which state it may be
 * called.
 *
 * Pointers: text that the host passes is read during the call and not kept, and text that the plug-in passes
 * to a host function lives until that function returns. Two values are kept until the next NVR_INIT and only
 * ever handed back: ParentWindow and ProgressContext. Null is allowed where the text says so. */

#include <assert.h>
#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Filled by the host, read once by NVR_INIT, and not kept. */
typedef struct HostInitRecord {
    /* Native handle of the window that owns the plug-in's dialog; null for none. */
    void* ParentWindow;
    uint32_t NotRead1[2];
    /* The loader's handle of the module that holds the plug-in's resources, the plug-in itself as a rule.
     * It must stay loaded until NVR_TERM. Null for none: texts and template are then not found. */
    void* ResourceModule;
    /* Passed back as the first argument of every progress call, never looked into. May be null. */
    void* ProgressContext;
    uint32_t NotRead2;
    /* Path of the folder with the plug-in's options file; copied, at most 511 bytes of it. Null is empty. */
    const char* ConfigFolder;
} HostInitRecord;

/* One kind of file that the plug-in takes. */
typedef struct FileTypeEntry {
    /* Shown to the user. */
    const char* Description;
    /* File name extension without its dot. */
    const char* Extension;
    /* Four letters. */
    const char* TypeCode;
} FileTypeEntry;

/* Owned by the host; NVR_INIT writes the last three fields and leaves the rest as it is. */
typedef struct PluginInfoRecord {
    uint8_t NotTouched[32];
    int32_t FileTypeCount;
    /* The first of FileTypeCount rows, valid as long as the library is loaded. */
    const FileTypeEntry* FileTypes;
    /* Always 8. */
    int32_t Eight;
} PluginInfoRecord;

/* The layout is part of the boundary: fixed for 32-bit processes, of natural alignment for 64-bit ones. */
static_assert(sizeof(void*) == 4 || sizeof(void*) == 8, "pointers of 32 or 64 bits");
static_assert(offsetof(HostInitRecord, ParentWindow) == 0, "ParentWindow");
static_assert(offsetof(HostInitRecord, ResourceModule) == (sizeof(void*) == 4 ? 12 : 16), "ResourceModule");
static_assert(offsetof(HostInitRecord, ProgressContext) == (sizeof(void*) == 4 ? 16 : 24), "ProgressContext");
static_assert(offsetof(HostInitRecord, ConfigFolder) == (sizeof(void*) == 4 ? 24 : 40), "ConfigFolder");
static_assert(offsetof(PluginInfoRecord, FileTypeCount) == 32, "FileTypeCount");
static_assert(offsetof(PluginInfoRecord, FileTypes) == (sizeof(void*) == 4 ? 36 : 40), "FileTypes");
static_assert(offsetof(PluginInfoRecord, Eight) == (sizeof(void*) == 4 ? 40 : 48), "Eight");
static_assert(sizeof(FileTypeEntry) == 3 * sizeof(void*), "three pointers a row");

/* ---- Exported by the plug-in ------------------------------------------------------------------------- */

/* State: any but converting; a further call binds again. Looks up the six host functions in the main
 * executable of the process. Gives 1 when all six are there, else 0 with none of them bound. `info` is
 * filled either way. When one of the records is null, nothing happens and the result is 0. */
int NVR_INIT(const HostInitRecord* host, PluginInfoRecord* info);

/* State: any; always gives 1. The host functions are not called any more. A conversion that is under way
 * takes it as a cancel. Call it before the library is unloaded. */
int NVR_TERM(void);

/* State: initialised. Converts the file at `path` and has the host load the score, all before it returns.
 * Gives 1 when the file is the plug-in's to handle, whatever became of it, and 0 when it is not tab text,
 * cannot be read, or `path` is null. While converting: gives the same number and does nothing. Whatever a
 * host function throws ends here. Not initialised: the conversion stops at its first progress report. */
int NVR_OPENFILE(const char* path);

/* State: any. Passes its arguments, which may be null if the host takes that, to the host function of the
 * same name; nothing when that is not bound. */
void NVR_RESULTSDIALOGMESSAGE(const char* converterName, const char* fileName, int kind, int context1,
                              int context2, const char* message);

/* State: any. Passes on to the host function of the same name whatever the caller gives, unchanged, and gives
 * back its result; 0 when that is not bound. It is declared with eight arguments, but only the caller and the
 * host have to agree on their number and types: a caller may call it as a function of any other type.
 */
intptr_t NVR_CHOOSETRANSPOSINGINSTRUMENTS(intptr_t argument1, intptr_t argument2, intptr_t argument3,
                                          intptr_t argument4, intptr_t argument5, intptr_t argument6,
                                          intptr_t argument7, intptr_t argument8);

/* ---- Exported by the host ---------------------------------------------------------------------------- *
 * All are called on the thread of the call that they serve, with texts that are never null. Between the
 * calls for one file stand no others: create, updates with messages between them, load, update, destroy.
 * Calls of the plug-in from inside of them are allowed: NVR_OPENFILE (turned away as said above), NVR_TERM,
 * NVR_RESULTSDIALOGMESSAGE and NVR_CHOOSETRANSPOSINGINSTRUMENTS. */

/* NVR_LOADTEMPFILE: load the finished score. The file is deleted as soon as the function returns. When it
 * could not be written, it may not be there. */
typedef void (*NvrLoadTempFile)(const char* scorePath);

/* NVR_RESULTSDIALOGMESSAGE: one line for the results dialog. A context of -2 is no context. */
typedef void (*NvrResultsDialogMessage)(const char* converterName, const char* fileName, int kind,
                                        int context1, int context2, const char* message);

/* NVR_UPDATEPROGRESSDIALOG: `percent` from 0 to 100. Gives 0 when the user has cancelled, else another
 * number. The answers to the first and to the last call for a file are not looked at. */
typedef int (*NvrUpdateProgressDialog)(void* progressContext, int percent, const char* text);

/* NVR_DESTROYPROGRESSDIALOG: the dialog goes. Also called when none was created, since the user cancelled
 * the options. */
typedef void (*NvrDestroyProgressDialog)(void* progressContext);

/* NVR_CREATEPROGRESSDIALOG_2: opens the dialog; the numbers are 0, 100 and 30. */
typedef void (*NvrCreateProgressDialog2)(void* progressContext, const char* title, int lowest, int highest,
                                         int number30);

/* NVR_CHOOSETRANSPOSINGINSTRUMENTS: the plug-in has no use for it of its own and only passes calls on. */
typedef intptr_t (*NvrChooseTransposingInstruments)(intptr_t argument1, intptr_t argument2,
                                                    intptr_t argument3, intptr_t argument4,
                                                    intptr_t argument5, intptr_t argument6,
                                                    intptr_t argument7, intptr_t argument8);

#ifdef __cplusplus
}
#endif
