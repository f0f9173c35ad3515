#pragma once

#include "oa/oaPcellFileObserver.h"
#include "oa/oaPcellObserver.h"

namespace OpenAccess_4::impl {

void notifyPreEval(oaDesign* design, oaPcellDef* def);
void notifyPostEval(oaDesign* design, oaPcellDef* def);

/// The text of the exception that is being handled, whatever it is.
oaString textOfFailure();

/// Tells the pcell observers. What they throw is dropped: the news was of a failure already.
void tellPcellError(oaDesign* design, const oaString& msg, oaPcellErrorTypeEnum kind) noexcept;

void notifyPcellFileRead(oaDesign* design, PcellFile* file, oaUInt8 offset);
void notifyPcellFilePreAppend(oaDesign* design, PcellFile* file);
void notifyPcellFilePostAppend(oaDesign* design, PcellFile* file);

} // namespace OpenAccess_4::impl
