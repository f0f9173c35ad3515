#pragma once

#include "oa/oaInst.h"
