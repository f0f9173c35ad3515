#pragma once

#include "oa/oaGroup.h"
