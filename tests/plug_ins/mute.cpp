// A module that is no plug-in.

#include <oa/oaExport.h>

extern "C" OA_PLUGIN_API int answer();

int answer() {
    return 42;
}
