#pragma once

#include "oa/oaDesignObject.h"
