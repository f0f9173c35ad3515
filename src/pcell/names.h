#pragma once

#include <string>

namespace ovalis {

extern const std::string scriptMacroDataName;
extern const std::string skrEvaluatorName;
extern const std::string layerMappingEvaluatorName;
extern const std::string nestedTechnologyEvaluatorName;
extern const std::string psnEvaluatorName;
extern const std::string referenceEvaluatorName;
extern const std::string viaPadEvaluatorName;

} // namespace ovalis
