#pragma once

#include "oaDM.h"
#include "oaDerivedLayer.h"
#include "oaDerivedLayerDef.h"
#include "oaPhysicalLayer.h"
#include "oaPurpose.h"
#include "oaSizedLayer.h"
#include "oaTech.h"
#include "oaTechEnums.h"
#include "oaTechException.h"
#include "oaTechInit.h"
#include "oaValue.h"
