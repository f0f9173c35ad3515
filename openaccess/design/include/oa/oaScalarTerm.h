#pragma once

#include "oa/oaTerm.h"
