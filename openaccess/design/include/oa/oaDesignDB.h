#pragma once

#include "oaDesignException.h"
#include "oaDesignInit.h"
#include "oaTechDB.h"
