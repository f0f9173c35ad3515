#include "oa/oaPcellDef.h"

#include <algorithm>

namespace OpenAccess_4 {

IPcell::~IPcell() = default;

const oaCommon::Guid& IPcell::getId() {
    static const oaCommon::Guid id = {
        0x7c0e3d52, 0x51b6, 0x4d0f, {0xa3, 0x1e, 0x88, 0x40, 0xc9, 0x6d, 0x2b, 0x17}};
    return id;
}

oaPcellDef::oaPcellDef(IPcell* evaluator) : evaluator_(evaluator) {}

oaPcellDef::~oaPcellDef() = default;

oaPcellDef::Data::iterator oaPcellDef::find(const oaString& name) {
    return std::find_if(data_.begin(), data_.end(),
                        [&](const auto& item) { return item.first == name; });
}

oaBoolean oaPcellDef::addData(const oaString& name, const oaString& value) {
    if (find(name) != data_.end())
        return false;
    data_.emplace_back(name, value);
    return true;
}

oaBoolean oaPcellDef::removeData(const oaString& name) {
    const auto item = find(name);
    if (item == data_.end())
        return false;
    data_.erase(item);
    return true;
}

oaBoolean oaPcellDef::getDataValue(const oaString& name, oaString& value) {
    const auto item = find(name);
    if (item == data_.end())
        return false;
    value = item->second;
    return true;
}

oaBoolean oaPcellDef::setDataValue(const oaString& name, const oaString& value) {
    const auto item = find(name);
    if (item == data_.end())
        return false;
    item->second = value;
    return true;
}

} // namespace OpenAccess_4
