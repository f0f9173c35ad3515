#pragma once

#include "oaCommonExceptionBase.h"
#include "oaCommonGuid.h"
#include "oaCommonIBase.h"
#include "oaCommonIException.h"
#include "oaCommonPlugInBase.h"
#include "oaCommonSPtr.h"
