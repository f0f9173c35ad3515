#include <ovalis/core.h>
#include <ovalis/pcell.h>

#include "broker/registration.h"
#include "core/statics.h"

// The composition root: the one file of this room that knows rooms above it.

namespace ovalis {

namespace {

// The OpenAccess interface that the library is built against.
constexpr oa::oaUInt4 apiMajorRevision = 6;
constexpr oa::oaUInt4 apiMinorRevision = 603;

void initDatabase() {
    oa::oaBaseInit(apiMajorRevision, apiMinorRevision);
    oa::oaDMInit(apiMajorRevision, apiMinorRevision);
    oa::oaDesignInit(apiMajorRevision, apiMinorRevision);
}

// The database holds the evaluators by their reference counts for the life of the process.
void registerEvaluators() {
    oa::oaPcellLink::create(new VexPSNPcell);
    oa::oaPcellLink::create(new VexLayerMappingPcell);
    oa::oaPcellLink::create(new VexReferencePcell);
    oa::oaPcellLink::create(new VexViaPadPcell);
    oa::oaPcellLink::create(new VexNestedTechnologyPcell);
    oa::oaPcellLink::create(new VexSKRPcell);
}

} // namespace

void initOa() {
    if (initialised) {
        return;
    }
    initDatabase();
    registerEvaluators();
    registerPcellEvaluators();
    oa::oaDerivedLayerDef::create("growEnvelope", 1);
    // Before the last step on purpose: its failure leaves the library initialised.
    initialised = true;
    vexPinAngle = oa::oaDoubleAppDef<oa::oaPin>::get("vexPinAngle", 0.0, true);
}

} // namespace ovalis
