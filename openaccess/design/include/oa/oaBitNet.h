#pragma once

#include "oa/oaNet.h"
