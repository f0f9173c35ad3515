#pragma once

namespace ovalis {

/// Registers an evaluator for each pcell type that the environment and the configuration file name
/// for evaluation by a broker.
///
/// Once it succeeded it does nothing more. Never throws: what fails goes to the log.
void registerPcellEvaluators();

} // namespace ovalis
