#include "design/src/connectivity.h"

#include "design/src/design_database.h"

namespace OpenAccess_4::impl {

Connectivity::Connectivity(DesignDatabase& database)
    : nets(database.addTable<NetRecord>(kNetTable)),
      terms(database.addTable<TermRecord>(kTermTable)),
      pins(database.addTable<PinRecord>(kPinTable)),
      netNames(database, nets),
      termNames(database, terms),
      termPositions(terms),
      pinNames(pins),
      netTerms(terms),
      termPins(pins),
      netFigs(database.addTable<FigNetRecord>(kFigNetTable)),
      pinFigs(database.addTable<FigPinRecord>(kFigPinTable)),
      database_(database) {}

void Connectivity::destroyNet(std::uint32_t slot) {
    for (const std::uint32_t term : netTerms.of(slot))
        destroyTerm(term);
    database_.instances.terms.clearNet(slot);
    netFigs.removeOwner(slot);
    database_.forgetAttachments({kNetTable, slot});
    netNames.remove(slot);
    nets.destroy(slot);
}

void Connectivity::destroyTerm(std::uint32_t slot) {
    for (const std::uint32_t pin : termPins.of(slot))
        destroyPin(pin);
    database_.forgetAttachments({kTermTable, slot});
    termNames.remove(slot);
    termPositions.remove(slot);
    netTerms.remove(slot);
    terms.destroy(slot);
}

void Connectivity::destroyPin(std::uint32_t slot) {
    pinFigs.removeOwner(slot);
    database_.forgetAttachments({kPinTable, slot});
    pinNames.remove(slot);
    termPins.remove(slot);
    pins.destroy(slot);
}

bool Connectivity::isSound() {
    return netNames.isSound() && termNames.isSound() && termPositions.isSound() &&
           pinNames.isSound() && netFigs.isSound() && pinFigs.isSound();
}

} // namespace OpenAccess_4::impl
