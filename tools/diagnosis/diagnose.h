#pragma once

#include <chrono>

#include "diagnosis/report.h"

namespace diagnosis {

/// Finds out what becomes of every pcell type that environment and configuration file name, by
/// doing what an evaluation would do: plug-ins are loaded into this process, the probe is run and
/// brokers are started, which end with this process.
///
/// A broker that says nothing for `patience` is given up, which the client would not do.
Report diagnoseBrokers(std::chrono::milliseconds patience);

} // namespace diagnosis
