#pragma once

#include "oa/IEvalText.h"
#include "oa/IPcell.h"
