#pragma once

#include "oa/oaViaDef.h"
