#pragma once

#include "oaArray.h"
#include "oaString.h"
#include "oaTechEnums.h"
#include "oaTechObject.h"
#include "oaTransform.h"

namespace OpenAccess_4 {

/// A place on which cells are put in rows. Its name is its own, see oaViaDef.
class OA_API oaSiteDef : public oaTechObject {
public:
    /// The definition of that name, or null. Those of the technologies that `tech` refers to are
    /// looked at behind its own, unless `local` is set.
    static oaSiteDef* find(const oaTech* tech, const oaString& name, oaBoolean local = false);

    void getName(oaString& name) const;
    oaSiteDefType getSiteDefType() const;
    void setType(oaSiteDefType type);

    /// The extent of the site; of an array that of all sites of its pattern that are known.
    oaUInt4 getWidth() const;
    oaUInt4 getHeight() const;

    /// Whether a cell may be mirrored in the site about an axis, or turned.
    oaBoolean isSymmetricInX() const;
    oaBoolean isSymmetricInY() const;
    oaBoolean isSymmetricInRot() const;
    void setSymmetricInX(oaBoolean val);
    void setSymmetricInY(oaBoolean val);
    void setSymmetricInRot(oaBoolean val);

    /// Patterns that name this site stay, and name one that is missing.
    void destroy();

    OA_HANDLE(oaSiteDef);
};

/// One site.
class OA_API oaScalarSiteDef : public oaSiteDef {
public:
    /// @throws oaTechError  oacSiteDefNameExists, oacCannotModifyReadModeTech
    static oaScalarSiteDef* create(oaTech* tech, const oaString& name, oaSiteDefType type,
                                   oaUInt4 width, oaUInt4 height, oaBoolean isSymmetricInX = false,
                                   oaBoolean isSymmetricInY = false,
                                   oaBoolean isSymmetricInRot = false);

    void setWidth(oaUInt4 width);
    void setHeight(oaUInt4 height);

    OA_HANDLE(oaScalarSiteDef);
};

/// A site of a pattern: its name and its place there.
class OA_API oaSiteRef {
public:
    oaSiteRef() = default;
    oaSiteRef(const oaString& siteName, const oaTransform& xform)
        : siteName_(siteName), transform_(xform) {}

    oaString& siteName() { return siteName_; }
    const oaString& siteName() const { return siteName_; }
    oaTransform& transform() { return transform_; }
    const oaTransform& transform() const { return transform_; }

    bool operator==(const oaSiteRef& other) const {
        return siteName_ == other.siteName_ && transform_ == other.transform_;
    }

private:
    oaString siteName_;
    oaTransform transform_;
};

/// Sites side by side.
class OA_API oaSitePattern : public oaArray<oaSiteRef> {
public:
    explicit oaSitePattern(oaUInt4 size = 0) : oaArray(size) {}
};

/// Several sites that are used as one.
class OA_API oaArraySiteDef : public oaSiteDef {
public:
    /// The sites of the pattern need not exist yet.
    /// @throws oaTechError  oacSiteDefNameExists, oacCannotModifyReadModeTech
    static oaArraySiteDef* create(oaTech* tech, const oaString& name, oaSiteDefType type,
                                  const oaSitePattern& sitePattern,
                                  oaBoolean isSymmetricInX = false,
                                  oaBoolean isSymmetricInY = false,
                                  oaBoolean isSymmetricInRot = false);

    void getSitePattern(oaSitePattern& sitePattern) const;
    void setSitePattern(const oaSitePattern& sitePattern);

    OA_HANDLE(oaArraySiteDef);
};

} // namespace OpenAccess_4
