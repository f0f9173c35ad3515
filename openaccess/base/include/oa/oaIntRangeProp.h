#pragma once

#include "oa/oaProps.h"
