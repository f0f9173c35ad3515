#pragma once

#include "oaCommonIException.h"

#include <string>

namespace oaCommon {

/// An exception that holds a number and a copy of a text.
class OA_API ExceptionBase : public IException {
public:
    /// A null `msg` gives an empty text.
    ExceptionBase(long id, const char* msg);

    long getMsgId() const override;
    const char* getMsg() const override;

private:
    long id_;
    std::string msg_;
};

/// A plug-in could not be made or used; carries the status that it answered.
class OA_API oaPlugInError : public ExceptionBase {
public:
    explicit oaPlugInError(long status, const char* msg = nullptr);

    long getStatus() const;

private:
    long status_;
};

} // namespace oaCommon
