#pragma once

#include "oaDM.h"
#include "oaTechException.h"
#include "oaTechInit.h"
