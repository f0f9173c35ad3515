#pragma once

#include "oaDesignEnums.h"
#include "oaDesignException.h"
#include "oaDesignInit.h"
#include "oaDesignInterfaces.h"
#include "oaPcellDef.h"
#include "oaPcellLink.h"
#include "oaTechDB.h"
