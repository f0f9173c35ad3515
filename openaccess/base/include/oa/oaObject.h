#pragma once

#include "oa/oaBaseEnums.h"
#include "oa/oaBaseTypes.h"
#include "oa/oaCollection.h"
#include "oa/oaExport.h"
#include "oa/oaType.h"

#include <new>

namespace OpenAccess_4 {

class oaAppDef;
class oaGroup;
class oaGroupMember;
class oaProp;

namespace impl {
struct Slab;
class Handles;
} // namespace impl

/// Gives a public class the constructor and the class name that only the database uses.
#define OA_HANDLE(Class)                                                                           \
protected:                                                                                         \
    Class() = default;                                                                             \
    static const oaChar* handleClass() {                                                           \
        return #Class;                                                                             \
    }                                                                                              \
    friend class impl::Handles

/// Base of everything that a database, the session or a library hands out by pointer.
///
/// Objects belong to the database: a client neither constructs nor deletes one. A pointer to an
/// object that was destroyed, or whose database was closed, keeps answering isValid() with false;
/// any other call on it throws oacInvalidObject. The memory behind such a pointer may serve another
/// object of a database that is opened later.
class OA_API oaObject {
public:
    oaObject(const oaObject&) = delete;
    oaObject& operator=(const oaObject&) = delete;
    virtual ~oaObject();

    /// False once the object is destroyed or its database is closed.
    oaBoolean isValid() const { return slab_ != nullptr; }

    oaType getType() const;

    /// The design, technology, library or session that holds the object.
    oaObject* getDatabase() const;
    oaDomain getDomain() const;

    oaBoolean isAppObject() const;
    oaBoolean isConstraint() const;
    oaBoolean isConstraintGroup() const;
    oaBoolean isConstraintGroupHeader() const;
    oaBoolean isConstraintGroupMem() const;
    oaBoolean isConstraintParam() const;
    oaBoolean isDesign() const;
    oaBoolean isDM() const;
    oaBoolean isDMData() const;
    oaBoolean isGroup() const;
    oaBoolean isGroupMember() const;
    oaBoolean isProp() const;
    oaBoolean isSession() const;
    oaBoolean isTech() const;
    oaBoolean isValue() const;
    oaBoolean isWafer() const;

    /// The properties of the object, in the order of their creation.
    oaCollection<oaProp, oaObject> getProps() const;
    oaBoolean hasProp() const;

    /// The definitions of those application-defined values that the object has a value of.
    oaCollection<oaAppDef, oaObject> getAppDefs() const;
    oaBoolean hasAppDef() const;

    /// The places of the object in groups, and those of them where it leads the group.
    oaCollection<oaGroupMember, oaObject> getGroupMems() const;
    oaCollection<oaGroupMember, oaObject> getGroupLeaders() const;
    /// The groups of a design or technology; no other object owns groups.
    oaCollection<oaGroup, oaObject> getGroupsOwnedBy() const;
    oaBoolean inGroup() const;

    /// False: there are no constraint groups here, and no objects that represent others.
    oaBoolean hasConstraintGroup() const;
    oaBoolean hasAssociate() const;

    OA_HANDLE(oaObject);

private:
    // Everything else of an object lies in its table: the slab tells which one and where.
    impl::Slab* slab_ = nullptr;
};

namespace impl {

/// The only place that makes handles and looks into them.
class Handles {
public:
    /// Puts a handle into the memory at `where`.
    template <class Class>
    static oaObject* construct(void* where) {
        static_assert(sizeof(Class) == sizeof(oaObject), "a handle has no members of its own");
        return new (where) Class;
    }
    template <class Class>
    static const oaChar* className() {
        return Class::handleClass();
    }
    static Slab* slabOf(const oaObject* object) { return object->slab_; }
    static void setSlab(oaObject* object, Slab* slab) { object->slab_ = slab; }
};

} // namespace impl

} // namespace OpenAccess_4
