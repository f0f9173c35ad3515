#pragma once

#include "oa/oaArray.h"
#include "oa/oaSession.h"
#include "oa/oaString.h"
#include "oa/oaTypeArray.h"

namespace OpenAccess_4 {

/// What the groups of one purpose may hold, and which databases may hold them. A definition lasts
/// for the session; databases keep the rules of those that their groups follow.
class OA_API oaGroupDef : public oaSessionObject {
public:
    /// The definition of that name, or null.
    static oaGroupDef* find(const oaString& name);

    void getName(oaString& name) const;
    /// The types of the objects that a group may hold, in the order of their numbers; empty when
    /// it may hold any.
    void getValidTypes(oaTypeArray& types) const;
    /// The kinds of databases that may hold such groups; empty when each may.
    void getValidDatabases(oaDBTypeArray& databases) const;
    /// False: there are no definitions but those that applications make.
    oaBoolean isBuiltIn() const;

    /// Groups that follow the definition stay.
    void destroy();
    /// Destroys the groups of a database that follow the definition.
    void remove(oaObject* database);

    OA_HANDLE(oaGroupDef);
};

/// Definitions by pointer.
class oaGroupDefArray : public oaArray<oaGroupDef*> {
public:
    explicit oaGroupDefArray(oaUInt4 size = 0) : oaArray(size) {}
};

/// The definition of groups that hold no groups.
class OA_API oaFlatGroupDef : public oaGroupDef {
public:
    /// @throws oaError  oacGroupDefExists
    static oaFlatGroupDef* create(const oaString& name, const oaTypeArray& validTypes,
                                  const oaDBTypeArray& validDatabases);

    OA_HANDLE(oaFlatGroupDef);
};

/// The definition of groups that may hold other groups.
class OA_API oaHierGroupDef : public oaGroupDef {
public:
    /// @param validGroupTypes  the definitions that the groups in such a group must follow
    /// @param recursive        whether such a group may hold another one of the same definition
    /// @throws oaError  oacGroupDefExists
    static oaHierGroupDef* create(const oaString& name, const oaTypeArray& validTypes,
                                  const oaDBTypeArray& validDatabases,
                                  const oaGroupDefArray& validGroupTypes = oaGroupDefArray(),
                                  oaBoolean recursive = false);

    /// True when a group of that definition may be in such a group.
    oaBoolean isValidGroupType(const oaGroupDef* def) const;
    oaBoolean isRecursive() const;

    OA_HANDLE(oaHierGroupDef);
};

} // namespace OpenAccess_4
