#pragma once

#include "broker/brokered_pcell.h"
#include "diagnosis/configuration_file.h"
#include "diagnosis/report.h"

namespace diagnosis {

/// Faults of what the keys of the file lead to: programs that cannot be started, directories that
/// are not there or hold nothing.
void checkDisk(const ConfigurationFile& file, const std::string& directory, Faults& faults);

} // namespace diagnosis
