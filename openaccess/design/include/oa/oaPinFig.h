#pragma once

#include "oa/oaFig.h"
