#include "broker/registration.h"

namespace ovalis {

void registerPcellEvaluators() {}

} // namespace ovalis
