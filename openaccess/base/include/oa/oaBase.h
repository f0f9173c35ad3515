#pragma once

#include "oaBaseInit.h"
#include "oaBaseTypes.h"
#include "oaBuildInfo.h"
#include "oaCommon.h"
#include "oaException.h"
#include "oaString.h"
