#include "oaBaseInit.h"

#include "base/src/build_names.h"
#include "oaBuildInfo.h"
#include "oaException.h"

#include <array>

namespace OpenAccess_4 {

namespace {

// Built on first use: strings and names work before any init call and in any static constructor.
oaString& appBuild() {
    static oaString name;
    return name;
}

oaUInt4 lastDataModelRev = oacDataModelRevNumber;

std::array<oaBuildInfo, 5>& packages() {
    static std::array<oaBuildInfo, 5> all = {oaBuildInfo("oaCommon"), oaBuildInfo("oaBase"),
                                             oaBuildInfo("oaDM"), oaBuildInfo("oaTech"),
                                             oaBuildInfo("oaDesign")};
    return all;
}

} // namespace

namespace impl {

const oaString& appBuildName() {
    return appBuild();
}

const oaString& kitBuildName() {
    static const oaString name("22.60.p000");
    return name;
}

oaUInt4 appDataModelRev() {
    return lastDataModelRev;
}

void checkRevisions(oaUInt4 apiMajorRev, oaUInt4 apiMinorRev, oaUInt4 dataModelRev) {
    if (apiMajorRev != oacAPIMajorRevNumber)
        throw oaError(oacInvalidMajorAPIRev, apiMajorRev, oacAPIMajorRevNumber);
    if (apiMinorRev > oacAPIMinorRevNumber) {
        throw oaError(oacInvalidAPIRev, apiMajorRev, apiMinorRev, oacAPIMajorRevNumber,
                      oacAPIMinorRevNumber);
    }
    if (dataModelRev > oacDataModelRevNumber)
        throw oaError(oacInvalidDataModelRev, dataModelRev, oacDataModelRevNumber);
    lastDataModelRev = dataModelRev;
}

} // namespace impl

void oaBaseInit(oaUInt4 apiMajorRev, oaUInt4 apiMinorRev, oaUInt4 dataModelRev) {
    impl::checkRevisions(apiMajorRev, apiMinorRev, dataModelRev);
}

void oaBaseInitAppBuild(const oaString& buildName) {
    appBuild() = buildName;
}

oaBuildInfo* oaBuildInfo::find(const oaString& packageName) {
    for (oaBuildInfo& package : packages()) {
        if (package.getPackageName() == packageName)
            return &package;
    }
    return nullptr;
}

oaUInt4 oaBuildInfo::getNumPackages() {
    return static_cast<oaUInt4>(packages().size());
}

const oaString& oaBuildInfo::getAppBuildName() {
    return appBuild();
}

const oaString& oaBuildInfo::getBuildName() const {
    return impl::kitBuildName();
}

} // namespace OpenAccess_4
