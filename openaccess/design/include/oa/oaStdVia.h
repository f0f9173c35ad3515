#pragma once

#include "oa/oaVia.h"
