#pragma once

#include "oaString.h"

namespace OpenAccess_4 {

/// The release of one package of the library. Can be asked before any init call.
class OA_API oaBuildInfo {
public:
    /// Finds the release of a package, "oaBase" for example; null when there is no such package.
    static oaBuildInfo* find(const oaString& packageName);
    static oaUInt4 getNumPackages();
    /// What oaBaseInitAppBuild was given; empty when it was not called.
    static const oaString& getAppBuildName();

    const oaString& getPackageName() const { return packageName_; }
    oaUInt4 getMajorReleaseNum() const { return 22; }
    oaUInt4 getMinorReleaseNum() const { return 60; }
    oaUInt4 getBuildNumber() const { return 0; }
    const oaString& getBuildName() const;

    explicit oaBuildInfo(const oaString& packageName) : packageName_(packageName) {}

private:
    oaString packageName_;
};

} // namespace OpenAccess_4
