#pragma once

#include "oa/oaTextDisplay.h"
