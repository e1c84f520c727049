/* A host in C with nothing but the boundary: loads the library named first, with its symbols "local" or
 * "global", starts it, and tells what became of the start and of the two functions that only pass calls on.
 * With a folder for options and a tab after these it opens the tab too, and counts what it is called for.
 * Built several times, each time without one of the six functions (a definition gives it another name). */

#include "Shared/NotaveraAPI/NotaveraPlugin.h"
#include "tests/Projects/Fretline/shell/hosts/Loader.h"

#include <stdio.h>
#include <string.h>

static int g_messages = 0;
static int g_loads = 0;
static int g_calls = 0;

void NVR_LOADTEMPFILE(const char* scorePath);
int NVR_UPDATEPROGRESSDIALOG(void* context, int percent, const char* text);
void NVR_DESTROYPROGRESSDIALOG(void* context);
void NVR_CREATEPROGRESSDIALOG_2(void* context, const char* title, int lowest, int highest, int last);

void NVR_LOADTEMPFILE(const char* scorePath) {
    (void)scorePath;
    ++g_loads;
    ++g_calls;
}

void NVR_RESULTSDIALOGMESSAGE(const char* converterName, const char* fileName, int kind, int context1,
                              int context2, const char* message) {
    if (strcmp(converterName, "c") == 0 && fileName == NULL && kind == 1 && context1 == 2 && context2 == 3 &&
        strcmp(message, "m") == 0)
        ++g_messages;
    ++g_calls;
}

int NVR_UPDATEPROGRESSDIALOG(void* context, int percent, const char* text) {
    (void)context;
    (void)text;
    ++g_calls;
    return percent >= 0;
}

void NVR_DESTROYPROGRESSDIALOG(void* context) {
    (void)context;
    ++g_calls;
}

void NVR_CREATEPROGRESSDIALOG_2(void* context, const char* title, int lowest, int highest, int last) {
    (void)context;
    (void)title;
    (void)lowest;
    (void)highest;
    (void)last;
    ++g_calls;
}

intptr_t NVR_CHOOSETRANSPOSINGINSTRUMENTS(intptr_t a, intptr_t b, intptr_t c, intptr_t d, intptr_t e,
                                          intptr_t f, intptr_t g, intptr_t h) {
    return a + 2 * b + 3 * c + 4 * d + 5 * e + 6 * f + 7 * g + 8 * h;
}

typedef struct Plugin {
    int (*Init)(const HostInitRecord*, PluginInfoRecord*);
    int (*Term)(void);
    int (*OpenFile)(const char*);
    void (*Message)(const char*, const char*, int, int, int, const char*);
    NvrChooseTransposingInstruments Choose;
} Plugin;

static void TellWhatIsPassedOn(const char* when, const Plugin* plugin) {
    g_messages = 0;
    plugin->Message("c", NULL, 1, 2, 3, "m");
    printf("%s: messages %d, chosen %ld\n", when, g_messages,
           (long)plugin->Choose(-1, 20, 30, 40, 50, 60, 70, 80));
}

static void TellWhatAnOpenCalls(const Plugin* plugin, const char* tab) {
    g_calls = 0;
    const int result = plugin->OpenFile(tab);
    printf("opened: %d, calls %d, loads %d\n", result, g_calls, g_loads);
}

int main(int argc, char** argv) {
    if (argc != 3 && argc != 5)
        return 2;
    void* const library = OpenLibrary(argv[1], strcmp(argv[2], "global") == 0);
    Plugin plugin;
    if (library == NULL || !FindFunction(library, "NVR_INIT", &plugin.Init) ||
        !FindFunction(library, "NVR_TERM", &plugin.Term) ||
        !FindFunction(library, "NVR_OPENFILE", &plugin.OpenFile) ||
        !FindFunction(library, "NVR_RESULTSDIALOGMESSAGE", &plugin.Message) ||
        !FindFunction(library, "NVR_CHOOSETRANSPOSINGINSTRUMENTS", &plugin.Choose)) {
        puts("not loaded");
        return 1;
    }
    TellWhatIsPassedOn("before", &plugin);
    HostInitRecord host = {0};
    PluginInfoRecord info = {{0}, 0, NULL, 0};
    host.ResourceModule = library;
    host.ConfigFolder = argc == 5 ? argv[3] : "/";
    const int result = plugin.Init(&host, &info);
    printf("init: %d, %d file types, %d\n", result, (int)info.FileTypeCount, (int)info.Eight);
    TellWhatIsPassedOn("started", &plugin);
    if (argc == 5)
        TellWhatAnOpenCalls(&plugin, argv[4]);
    const int first = plugin.Term();
    printf("term: %d %d\n", first, plugin.Term());
    TellWhatIsPassedOn("ended", &plugin);
    return CloseLibrary(library);
}
