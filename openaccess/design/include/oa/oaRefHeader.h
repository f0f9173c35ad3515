#pragma once

#include "oa/oaInstHeader.h"
