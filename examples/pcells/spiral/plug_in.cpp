#include <oa/oaCommonFactory.h>

#include "spiral_pcell.h"

// What the loader asks this module for, by the name of the plug-in.
static oaCommon::Factory<spiral::SpiralPcell> factory("spiral");

extern "C" SPIRAL_EXPORT long getClassObject(const char* classId, const oaCommon::Guid& interfaceId,
                                             void** object) {
    return oaCommon::FactoryBase::getClassObject(classId, interfaceId, object);
}
