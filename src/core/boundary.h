#pragma once

#include <ovalis/core.h>

namespace ovalis {

/// Runs the body of an exported function and turns what the database throws into `Exception`.
template <class Body>
auto atBoundary(Body&& body) -> decltype(body()) {
    try {
        return body();
    } catch (const oaCommon::IException& error) {
        throw Exception(error);
    } catch (const oa::oaException& error) {
        throw Exception(error);
    }
}

} // namespace ovalis
