#pragma once

#include "oa/oaEvalText.h"
