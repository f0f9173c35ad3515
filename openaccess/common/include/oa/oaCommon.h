#pragma once

#include "oaCommonExceptionBase.h"
#include "oaCommonFactory.h"
#include "oaCommonGuid.h"
#include "oaCommonIBase.h"
#include "oaCommonIException.h"
#include "oaCommonIFactory.h"
#include "oaCommonPlugInBase.h"
#include "oaCommonSPtr.h"
