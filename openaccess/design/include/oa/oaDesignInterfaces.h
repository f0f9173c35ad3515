#pragma once

#include "oa/IPcell.h"
