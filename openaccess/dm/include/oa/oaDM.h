#pragma once

#include "oaBase.h"
#include "oaDMException.h"
#include "oaDMInit.h"
