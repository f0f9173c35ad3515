#include "oaCommonIBase.h"

#include "oaCommonExceptionBase.h"
#include "oaCommonIException.h"
#include "oaCommonIFactory.h"

namespace oaCommon {

const Guid IID_IBase = {
    0x4f4ce7b1, 0x9a0d, 0x4c3a, {0x8e, 0x51, 0x27, 0xd9, 0x60, 0x1b, 0xf3, 0x48}};

bool IBase::s_refCountDisabled = false;

IBase::~IBase() = default;

const Guid& IBase::getId() {
    return IID_IBase;
}

IFactory::~IFactory() = default;

const Guid& IFactory::getId() {
    static const Guid id = {
        0xc3a1f96e, 0x51d2, 0x4b07, {0xa4, 0x3e, 0x9c, 0x08, 0x7d, 0x65, 0xe2, 0x1b}};
    return id;
}

IException::~IException() = default;

ExceptionBase::ExceptionBase(long id, const char* msg) : id_(id), msg_(msg ? msg : "") {}

long ExceptionBase::getMsgId() const {
    return id_;
}

const char* ExceptionBase::getMsg() const {
    return msg_.c_str();
}

oaPlugInError::oaPlugInError(long status, const char* msg)
    : ExceptionBase(status, msg), status_(status) {}

long oaPlugInError::getStatus() const {
    return status_;
}

} // namespace oaCommon
