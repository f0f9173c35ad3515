#pragma once

#include "oaDir.h"
