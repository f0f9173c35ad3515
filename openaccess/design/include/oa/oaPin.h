#pragma once

#include "oa/oaDesignEnums.h"
#include "oa/oaDesignObject.h"

namespace OpenAccess_4 {

class oaPinFig;
class oaTerm;

/// A place at which a terminal can be reached, made of figures.
class OA_API oaPin : public oaBlockObject {
public:
    /// Makes a pin with an automatic name.
    static oaPin* create(oaTerm* term, oaUInt4 accessDir = oacNone);
    /// @throws oaDesignError  oacPinExists: the terminal has a pin of that name
    static oaPin* create(oaTerm* term, const oaString& name, oaUInt4 accessDir = oacNone);
    /// The pin of that name of a terminal, or null.
    static oaPin* find(const oaTerm* term, const oaString& name);

    void getName(oaString& name) const;
    oaTerm* getTerm() const;
    oaUInt4 getAccessDir() const;
    oaPlacementStatus getPlacementStatus() const;
    oaPinType getPinType() const;
    oaCollection<oaPinFig, oaPin> getFigs() const;

    /// @throws oaDesignError  oacPinExists
    void setName(const oaString& name);
    /// @throws oaDesignError  oacPinExists, oacPinAndTermNotInSameBlock
    void setTerm(oaTerm* term);
    void setAccessDir(oaUInt4 accessDir);
    void setPlacementStatus(oaPlacementStatus status);
    void setPinType(oaPinType pinType);

    /// Destroys the pin. Its figures stay, on no pin.
    void destroy();

    OA_HANDLE(oaPin);
};

} // namespace OpenAccess_4
