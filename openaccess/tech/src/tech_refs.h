#pragma once

#include "oa/oaTech.h"
#include "oa/oaTechArray.h"

namespace OpenAccess_4::impl {

struct TechRecord;

/// Opens the technologies that the content of one refers to, tells of those that cannot be, and
/// holds the others until releaseRefs().
void openRefs(oaTech* tech);
/// Gives back what openRefs() or setRefs() hold.
void releaseRefs(TechRecord& tech);
/// @throws oaTechError  oacInvalidTechRef
void setRefs(oaTech* tech, const oaTechArray& refs, oaTechModTypeEnum modType);

} // namespace OpenAccess_4::impl
