// A module that knows no class and says so with a status of its own.

#include <oa/oaCommonFactory.h>

long getClassObject(const char*, const oaCommon::Guid&, void** ptr) {
    *ptr = nullptr;
    return 23;
}
