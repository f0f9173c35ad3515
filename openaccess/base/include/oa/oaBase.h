#pragma once

#include "oaBaseEnums.h"
#include "oaBaseInit.h"
#include "oaBaseTypes.h"
#include "oaBuildInfo.h"
#include "oaCommon.h"
#include "oaException.h"
#include "oaOrient.h"
#include "oaString.h"
#include "oaType.h"
