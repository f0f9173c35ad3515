#include <functional>
#include <unordered_map>
#include <vector>

#include "comparison/attachments.h"
#include "comparison/text.h"

namespace comparison {
namespace {

using Reader = std::function<std::string(const oa::oaObject&)>;

const std::string unreadable = "a value that cannot be read";

/// A reader for values of one kind on objects of one class, if the definition is of these.
template <class Def, class Object, class Text>
bool makeReader(Reader& reader, const oa::oaAppDef& known, Text text) {
    const Def* const def = Def::find(plainNameOf(known).c_str());
    if (static_cast<const oa::oaAppDef*>(def) != &known)
        return false;
    reader = [def, text](const oa::oaObject& object) {
        const auto* const of = dynamic_cast<const Object*>(&object);
        return of == nullptr ? unreadable : text(*def, *of);
    };
    return true;
}

/// For a value that is a number.
template <class Def, class Object>
bool makeNumberReader(Reader& reader, const oa::oaAppDef& known, const char* type) {
    return makeReader<Def, Object>(reader, known, [type](const Def& def, const Object& object) {
        return std::string(type) + " " + numberText(def.get(&object));
    });
}

template <class Object>
bool makeBytesReader(Reader& reader, const oa::oaAppDef& known) {
    const auto text = [](std::vector<oa::oaByte> bytes, const auto& def, const Object& object) {
        def.get(&object, bytes.data());
        return "bytes " + hexText(bytes.data(), bytes.size());
    };
    if (known.getType() == oa::oacDataAppDefType)
        return makeReader<oa::oaDataAppDef<Object>, Object>(
            reader, known, [text](const oa::oaDataAppDef<Object>& def, const Object& object) {
                return text(std::vector<oa::oaByte>(def.getSize()), def, object);
            });
    return makeReader<oa::oaVarDataAppDef<Object>, Object>(
        reader, known, [text](const oa::oaVarDataAppDef<Object>& def, const Object& object) {
            return text(std::vector<oa::oaByte>(def.getSize(&object)), def, object);
        });
}

template <class Object>
bool makeReaderOf(Reader& reader, const oa::oaAppDef& known) {
    switch (known.getType()) {
    case oa::oacIntAppDefType:
        return makeNumberReader<oa::oaIntAppDef<Object>, Object>(reader, known, "int");
    case oa::oacFloatAppDefType:
        return makeNumberReader<oa::oaFloatAppDef<Object>, Object>(reader, known, "float");
    case oa::oacDoubleAppDefType:
        return makeNumberReader<oa::oaDoubleAppDef<Object>, Object>(reader, known, "double");
    case oa::oacTimeAppDefType:
        return makeNumberReader<oa::oaTimeAppDef<Object>, Object>(reader, known, "time");
    case oa::oacBooleanAppDefType:
        return makeReader<oa::oaBooleanAppDef<Object>, Object>(
            reader, known, [](const oa::oaBooleanAppDef<Object>& def, const Object& object) {
                return std::string(def.get(&object) ? "true" : "false");
            });
    case oa::oacStringAppDefType:
        return makeReader<oa::oaStringAppDef<Object>, Object>(
            reader, known, [](const oa::oaStringAppDef<Object>& def, const Object& object) {
                oa::oaString value;
                def.get(&object, value);
                return quoted(value);
            });
    case oa::oacDataAppDefType:
    case oa::oacVarDataAppDefType:
        return makeBytesReader<Object>(reader, known);
    default:
        return false;
    }
}

template <class... Objects>
Reader readerAmong(const oa::oaAppDef& known) {
    Reader reader = [](const oa::oaObject&) { return unreadable; };
    static_cast<void>((makeReaderOf<Objects>(reader, known) || ...));
    return reader;
}

/// A definition does not tell of which class its objects are, so each is tried.
Reader makeReader(const oa::oaAppDef& known) {
    using namespace oa;
    return readerAmong<
        oaObject, oaDesign, oaBlock, oaNet, oaBitNet, oaScalarNet, oaTerm, oaBitTerm, oaScalarTerm,
        oaPin, oaInst, oaBitInst, oaScalarInst, oaArrayInst, oaVectorInst, oaVectorInstBit, oaRef,
        oaRefHeader, oaInstHeader, oaInstTerm, oaLayerHeader, oaLPPHeader, oaDesignObject,
        oaBlockObject, oaFig, oaConnFig, oaPinFig, oaShape, oaRect, oaPolygon, oaLine, oaPath,
        oaPathSeg, oaArc, oaEllipse, oaDonut, oaDot, oaText, oaEvalText, oaTextDisplay,
        oaAttrDisplay, oaPropDisplay, oaProp, oaIntProp, oaFloatProp, oaDoubleProp, oaBooleanProp,
        oaTimeProp, oaStringProp, oaAppProp, oaEnumProp, oaHierProp, oaGroup, oaGroupMember, oaTech,
        oaLayer, oaPhysicalLayer, oaDerivedLayer, oaSizedLayer, oaPurpose, oaValue, oaTechHeader,
        oaViaDef, oaStdViaDef, oaCustomViaDef, oaSiteDef, oaScalarSiteDef, oaArraySiteDef, oaVia,
        oaStdVia, oaCustomVia, oaViaHeader, oaStdViaHeader, oaCustomViaHeader, oaDMData,
        oaLibDMData, oaCellDMData, oaViewDMData, oaCellViewDMData>(known);
}

/// Definitions live as long as the process.
const Reader& readerOf(const oa::oaAppDef& def) {
    static std::unordered_map<const oa::oaAppDef*, Reader> known;
    const auto [found, isNew] = known.try_emplace(&def);
    if (isNew)
        found->second = makeReader(def);
    return found->second;
}

} // namespace

void addAppValues(Fields& fields, const oa::oaObject& object, const std::string& owner) {
    if (!object.hasAppDef())
        return;
    oa::oaIter<oa::oaAppDef> defs(object.getAppDefs());
    while (const oa::oaAppDef* def = defs.getNext())
        if (def->isPersistent())
            fields.add(owner + "application value " + quoted(plainNameOf(*def)),
                       readerOf(*def)(object));
}

} // namespace comparison
