#pragma once

#include "oa/oaAttrType.h"
