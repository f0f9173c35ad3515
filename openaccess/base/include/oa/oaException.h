#pragma once

#include "oaBaseMsgIds.h"
#include "oaString.h"

#include <cstdarg>

namespace OpenAccess_4 {

/// What every failure of the database is thrown as: a message id and a text.
///
/// Each package has its own classes below this one; they are not related to one another, nor to
/// std::exception. Their constructors take a message id and the arguments that the format text
/// of that id asks for, as printf does: texts as `const oaChar*`, never as oaString.
class OA_API oaException {
public:
    virtual ~oaException();

    /// The number of the message; the enums oaBaseMsgIds, oaDDMsgIds, oaTechMsgIds and
    /// oaDesignMsgIds name them.
    oaUInt4 getMsgId() const { return msgId_; }
    /// The message with its arguments filled in.
    const oaString& getMsg() const { return msg_; }

protected:
    explicit oaException(oaUInt4 msgId) : msgId_(msgId) {}
    oaException(const oaException&) = default;
    oaException& operator=(const oaException&) = default;

    /// The format text of the message id in the package of the class; null when it has none.
    virtual const oaChar* getFormatString() const = 0;
    /// Fills in the message; constructors of derived classes call it once.
    void setMsg(va_list args);

private:
    oaUInt4 msgId_;
    oaString msg_;
};

/// A failure of the base package.
class OA_API oaError : public oaException {
public:
    oaError(oaUInt4 msgId, ...);

protected:
    const oaChar* getFormatString() const override;
};

/// A failure that the operating system reported.
class OA_API oaOSError : public oaException {
public:
    oaOSError(oaUInt4 msgId, ...);

protected:
    const oaChar* getFormatString() const override;
};

/// Memory could not be had.
class OA_API oaMemoryError : public oaException {
public:
    oaMemoryError(oaUInt4 msgId, ...);

protected:
    const oaChar* getFormatString() const override;
};

/// A failure of a connection between processes.
class OA_API oaSocketError : public oaException {
public:
    oaSocketError(oaUInt4 msgId, ...);

protected:
    const oaChar* getFormatString() const override;
};

/// A database was written with a data model that this library does not know.
class OA_API oaCompatibilityError : public oaException {
public:
    /// `databaseName` is the file or the design; `dbDataModelRev` and `dbBuildName` are what it
    /// says about its origin.
    oaCompatibilityError(const oaString& databaseName, oaUInt4 dbDataModelRev,
                         const oaString& dbBuildName);

    /// The build that the application said it was made with.
    const oaString& getAppBuildName() const { return appBuildName_; }
    /// The build of this library.
    const oaString& getKitBuildName() const { return kitBuildName_; }
    /// The build that wrote the database.
    const oaString& getDataModelBuildName() const { return dataModelBuildName_; }
    const oaString& getDatabaseName() const { return database_; }
    oaUInt4 getAppDataModelRev() const { return appDataModelRev_; }
    oaUInt4 getKitDataModelRev() const { return oacDataModelRevNumber; }
    oaUInt4 getDBDataModelRev() const { return dbDataModelRev_; }

protected:
    const oaChar* getFormatString() const override;

private:
    void fill(oaUInt4 firstOfArguments, ...);

    oaString database_;
    oaString appBuildName_;
    oaString kitBuildName_;
    oaString dataModelBuildName_;
    oaUInt4 appDataModelRev_;
    oaUInt4 dbDataModelRev_;
};

} // namespace OpenAccess_4
