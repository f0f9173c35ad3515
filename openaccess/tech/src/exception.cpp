#include "oaTechException.h"

#include "base/src/messages.h"

namespace OpenAccess_4 {

namespace {

constexpr impl::MessageFormat formats[] = {
    {oacTechAlreadyExists, "Library '%s' already has a technology."},
    {oacTechLibNotFound,
     "The technology of library '%s' cannot be reached: there is no open library '%s'."},
    {oacTechNotFound, "Library '%s' has no technology."},
    {oacOpenUndefinedModeTech,
     "The technology of library '%s' cannot be opened in mode '%c'; use 'r', 'a' or 'w'."},
    {oacSaveReadOnlyTech,
     "The technology of library '%s' is open for reading and cannot be saved."},
    {oacCannotModifyReadModeTech,
     "The technology of library '%s' is open for reading and cannot be changed."},
    {oacInvalidTechViewType, "View type '%s' has no place in a technology."},
    {oacLayerNameExists, "The technology of library '%s' already has a layer named '%s'."},
    {oacLayerNumberExists, "The technology of library '%s' already has a layer with number %u."},
    {oacPurposeNumberIsReserved, "Purpose number %u is reserved."},
    {oacPurposeNumberExists,
     "The technology of library '%s' already has a purpose with number %u."},
    {oacPurposeNameExists, "The technology of library '%s' already has a purpose named '%s'."},
    {oacDerivedLayerDefExists, "A derived layer definition named '%s' already exists."},
    {oacDerivedLayerDefIsBuiltIn, "The derived layer definition '%s' is built in."},
    {oacDerivedLayerInvalid, "The derived layer '%s' cannot be made: %s."},
    {oacInvalidDatabaseForValue, "A %s does not keep values."},
    {oacInvalidDBUPerUU, "A user unit cannot have 0 database units."},
    {oacCannotDestroyOpenTech, "The technology of library '%s' is open and cannot be destroyed."},
    {oacTechAttachedTechLibDetected,
     "Library '%s' uses the technology of library '%s' and cannot have one of its own."},
    {oacTechNotAttached, "Library '%s' does not use the technology of another one."},
    {oacInvalidTechAttachment, "Library '%s' cannot use the technology of library '%s': %s."},
    {oacInvalidTechRef, "The technology of library '%s' cannot refer to that of library '%s': %s."},
    {oacDerivedLayerParamDefExists,
     "A definition of derived layer parameters named '%s' already exists."},
    {oacDerivedLayerParamDefIsBuiltIn,
     "The definition '%s' of derived layer parameters is built in."},
    {oacInvalidDerivedLayerParam, "A parameter '%s' of derived layers cannot be %s."},
    {oacCannotDestroyOwnedValue, "The value belongs to a parameter and goes with it."},
    {oacViaDefNameExists,
     "The technology of library '%s' already has a via definition named '%s'."},
    {oacInvalidViaDefLayer, "The via definition '%s' cannot be made: %s."},
    {oacInvalidViaParam, "The parameter '%s' of a via cannot be %u."},
    {oacSiteDefNameExists,
     "The technology of library '%s' already has a site definition named '%s'."},
};

} // namespace

const oaChar* oaTechException::getFormatString() const {
    return impl::findFormat(formats, getMsgId());
}

oaTechError::oaTechError(oaUInt4 msgId, ...) : oaTechException(msgId) {
    va_list args;
    va_start(args, msgId);
    setMsg(args);
    va_end(args);
}

} // namespace OpenAccess_4
