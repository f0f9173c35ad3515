#pragma once

#include "oaBase.h"
#include "oaDMEnums.h"
#include "oaDMException.h"
#include "oaDMInit.h"
