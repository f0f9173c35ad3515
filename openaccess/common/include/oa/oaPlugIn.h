#pragma once

#include "oaCommon.h"

/// The names that plug-ins use, for those who write `using namespace oaPlugIn`.
namespace oaPlugIn {

using oaCommon::ExceptionBase;
using oaCommon::Factory;
using oaCommon::FactoryBase;
using oaCommon::Guid;
using oaCommon::IBase;
using oaCommon::IException;
using oaCommon::IFactory;
using oaCommon::oaPlugInError;
using oaCommon::PlugInBase;
using oaCommon::SPtr;
using oaCommon::SRef;

} // namespace oaPlugIn
