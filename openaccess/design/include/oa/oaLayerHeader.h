#pragma once

#include "oa/oaLPPHeader.h"
