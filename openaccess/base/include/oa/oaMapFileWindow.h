#pragma once

#include "oaMapWindow.h"
