#pragma once

#include "oaDM.h"
#include "oaTechEnums.h"
#include "oaTechException.h"
#include "oaTechInit.h"
