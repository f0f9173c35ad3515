#pragma once

#include "oaBoxArray.h"
#include "oaByteArray.h"
#include "oaParamArray.h"
#include "oaPointArray.h"
#include "oaStringArray.h"
