#include "design/src/design_database.h"
#include "design/src/param_records.h"
#include "oa/oaParamArray.h"

namespace OpenAccess_4::impl {

oaParamArray Instances::paramsOf(std::uint32_t slot) {
    oaParamArray array;
    for (const std::uint32_t param : instParams.of(explicitOf(slot)))
        array.append(paramOf(params[param], database_.strings));
    return array;
}

void Instances::setParams(std::uint32_t slot, const oaParamArray& array) {
    subHeaders.forget(slot);
    clearParams(slot);
    for (oaUInt4 i = 0; i < array.getNumElements(); ++i) {
        InstParamRecord record;
        record.owner = slot;
        storeParam(record, database_.strings, array[i]);
        params.add(record);
    }
}

void Instances::clearParams(std::uint32_t slot) {
    for (const std::uint32_t param : instParams.of(slot)) {
        instParams.remove(param);
        params.destroy(param);
    }
}

} // namespace OpenAccess_4::impl
