#pragma once

namespace ovalis {

/// Registers an evaluator for each pcell type that is configured to be evaluated by a broker.
/// This version reads no broker configuration, so no type is.
void registerPcellEvaluators();

} // namespace ovalis
