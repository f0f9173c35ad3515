#pragma once

#include "oa/oaDesignEnums.h"
#include "oa/oaDesignObject.h"

namespace OpenAccess_4 {

class oaInst;
class oaName;
class oaNameSpace;
class oaNet;
class oaString;
class oaTerm;

/// The connection of a net to a terminal of an instance's master. It names the terminal, or gives
/// its position; the terminal itself need not exist. All those of one instance go the same way.
class OA_API oaInstTerm : public oaBlockObject {
public:
    /// Takes the name of the terminal, or its position when the instance goes by positions. The net
    /// may be null in all forms.
    /// @throws oaDesignError  oacInstTermExists, oacInstTermNotInSameBlock,
    ///                        oacInstTermsGoAnotherWay; oacTermNotInInstMaster;
    ///                        oacInvalidTermName: the name is empty
    static oaInstTerm* create(oaNet* net, oaInst* inst, oaTerm* term,
                              oaBlockDomainVisibility view = oacInheritFromTopBlock);
    static oaInstTerm* create(oaNet* net, oaInst* inst, const oaName& termName,
                              oaBlockDomainVisibility view = oacInheritFromTopBlock);
    static oaInstTerm* create(oaNet* net, oaInst* inst, oaUInt4 termPosition,
                              oaBlockDomainVisibility view = oacInheritFromTopBlock);

    /// Null when the instance has none of it. Opens nothing.
    static oaInstTerm* find(const oaInst* inst, const oaTerm* term);
    static oaInstTerm* find(const oaInst* inst, const oaName& termName);
    static oaInstTerm* find(const oaInst* inst, oaUInt4 termPosition);

    oaInst* getInst() const;
    /// Null when it is on none.
    oaNet* getNet() const;
    /// The terminal of the instance's master, which is bound for it; null when there is none.
    oaTerm* getTerm() const;
    /// True when the master is bound and has the terminal. Opens nothing.
    oaBoolean isBound() const;
    /// The name that was given; else that of getTerm(), and empty when there is none.
    void getTermName(oaName& name) const;
    void getTermName(const oaNameSpace& ns, oaString& name) const;
    /// The position that was given; else that of getTerm(), and oacNullIndex when there is none.
    oaUInt4 getTermPosition() const;
    oaBoolean usesTermPosition() const;
    /// The bits of the name that was given, for each bit of the instance.
    oaUInt4 getNumBits() const;
    oaBoolean isImplicit() const;

    /// Puts it on a net; it leaves the one that it was on.
    /// @throws oaDesignError  oacInstTermNotInSameBlock
    void addToNet(oaNet* net);
    void removeFromNet();
    void destroy();

    OA_HANDLE(oaInstTerm);
};

} // namespace OpenAccess_4
