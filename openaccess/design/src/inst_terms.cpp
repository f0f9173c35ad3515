#include "design/src/inst_terms.h"

#include "design/src/design_database.h"

namespace OpenAccess_4::impl {

InstTerms::InstTerms(DesignDatabase& database)
    : table(database.addTable<InstTermRecord>(kInstTermTable)),
      ofNet(table),
      ofInst(table),
      database_(database),
      byName_(table),
      byPosition_(table) {}

bool InstTerms::usesPositions(std::uint32_t inst) {
    const std::uint32_t first = ofInst.first(inst);
    return first != kNone && table[first].name == 0;
}

std::uint32_t InstTerms::find(std::uint32_t inst, std::string_view name) {
    const StringId id = database_.strings.find(name);
    return id == kNone || id == 0 ? kNone : byName_.find(InstTermNameKey::of(inst, id));
}

std::uint32_t InstTerms::find(std::uint32_t inst, std::uint32_t position) {
    return byPosition_.find(InstTermNameKey::of(inst, position));
}

void InstTerms::setNet(std::uint32_t slot, std::uint32_t net) {
    ofNet.remove(slot);
    table[slot].net = net;
    ofNet.insert(slot);
}

void InstTerms::destroy(std::uint32_t slot) {
    database_.forgetAttachments({kInstTermTable, slot});
    byName_.remove(slot);
    byPosition_.remove(slot);
    ofNet.remove(slot);
    ofInst.remove(slot);
    table.destroy(slot);
}

void InstTerms::destroyOfInst(std::uint32_t inst) {
    if (table.live() == 0)
        return;
    for (const std::uint32_t slot : ofInst.of(inst))
        destroy(slot);
}

void InstTerms::clearNet(std::uint32_t net) {
    if (table.live() == 0)
        return;
    for (const std::uint32_t slot : ofNet.of(net))
        setNet(slot, kNone);
}

} // namespace OpenAccess_4::impl
