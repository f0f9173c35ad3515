#pragma once

#include "oaDesignEnums.h"
#include "oaDesignException.h"
#include "oaDesignInit.h"
#include "oaTechDB.h"
