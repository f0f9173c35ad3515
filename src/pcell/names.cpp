#include "pcell/names.h"

namespace ovalis {

const std::string scriptMacroDataName = "SKRMacroName";
const std::string skrEvaluatorName = "SKRPcell";
const std::string layerMappingEvaluatorName = "LayerMappingPcell";
const std::string nestedTechnologyEvaluatorName = "NestedTechnologyPcell";
const std::string psnEvaluatorName = "PSNPcell";
const std::string referenceEvaluatorName = "ReferencePcell";
const std::string viaPadEvaluatorName = "CorvidViaPad";

} // namespace ovalis
