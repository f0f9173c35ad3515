#pragma once

#include "tech_tests.h"

#include <string>
#include <vector>

namespace ovalis::test {

using News = std::vector<std::string>;

inline std::string libOf(const oa::oaTech* tech) {
    oa::oaString text;
    tech->getLibName(oa::oaNativeNS(), text);
    return std::string(text);
}

inline std::string textOf(const oa::oaScalarName& scalarName) {
    oa::oaString text;
    scalarName.get(oa::oaNativeNS(), text);
    return std::string(text);
}

/// The libraries of some technologies, as "a b".
inline std::string libsOf(const oa::oaTechArray& techs) {
    std::string text;
    for (oa::oaUInt4 i = 0; i < techs.getNumElements(); ++i)
        text += (i == 0 ? "" : " ") + libOf(techs[i]);
    return text;
}

/// The name of a layer, a purpose or a definition.
inline std::string nameOfAny(const oa::oaObject* object) {
    if (const auto* layer = dynamic_cast<const oa::oaLayer*>(object))
        return nameOf(layer);
    if (const auto* viaDef = dynamic_cast<const oa::oaViaDef*>(object))
        return nameOf(viaDef);
    if (const auto* siteDef = dynamic_cast<const oa::oaSiteDef*>(object))
        return nameOf(siteDef);
    return nameOf(dynamic_cast<const oa::oaPurpose*>(object));
}

/// Objects with the libraries that hold them, as "a:metal b:metal".
inline std::string placesOf(const oa::oaObjectArray& objects) {
    std::string text;
    for (oa::oaUInt4 i = 0; i < objects.getNumElements(); ++i) {
        text += (i == 0 ? "" : " ") + libOf(static_cast<oa::oaTech*>(objects[i]->getDatabase())) +
                ":" + nameOfAny(objects[i]);
    }
    return text;
}

/// Writes down what the observers of technologies are told.
class TechNews : public oa::oaVersionedObserver<oa::oaTech, 2> {
public:
    TechNews() : oaVersionedObserver(1) {}

    /// What was told since the last call.
    News take() { return std::exchange(news_, {}); }

    void onCreate(oa::oaTech* tech) override { add("create " + libOf(tech)); }
    void onFirstOpen(oa::oaTech* tech) override { add("open " + libOf(tech)); }
    void onPurge(oa::oaTech* tech) override { add("purge " + libOf(tech)); }
    void onPreReopen(oa::oaTech* tech, oa::oaChar mode) override {
        add("reopen " + libOf(tech) + " " + tech->getMode() + " to " + mode);
    }
    void onPostReopen(oa::oaTech* tech, oa::oaChar mode) override {
        add("reopened " + libOf(tech) + " " + mode + " to " + tech->getMode());
    }
    void onTruncate(oa::oaTech* tech) override { add("truncate " + libOf(tech)); }
    void onPreSave(oa::oaTech* tech) override { add("save " + libOf(tech)); }
    void onPostSave(oa::oaTech* tech, oa::oaBoolean done) override {
        add((done ? "saved " : "not saved ") + libOf(tech));
    }
    void onPreSaveAs(oa::oaTech* tech) override { add("save as " + libOf(tech)); }
    void onPostSaveAs(oa::oaTech* tech, oa::oaBoolean done) override {
        add((done ? "saved as " : "not saved as ") + libOf(tech));
    }
    void onPreModify(oa::oaTech* tech, oa::oaTechModTypeEnum type) override {
        add("modify " + libOf(tech) + " " + std::to_string(type));
    }
    void onPostModify(oa::oaTech* tech, oa::oaTechModTypeEnum type) override {
        add("modified " + libOf(tech) + " " + std::to_string(type));
    }
    void onPreAttach(oa::oaLib* lib, const oa::oaScalarName& to) override {
        add("attach " + nameOfLib(lib) + " to " + textOf(to));
    }
    void onPostAttach(oa::oaLib* lib, const oa::oaScalarName& to) override {
        add("attached " + nameOfLib(lib) + " to " + textOf(to));
    }
    void onPreDetach(oa::oaLib* lib) override { add("detach " + nameOfLib(lib)); }
    void onPostDetach(oa::oaLib* lib) override { add("detached " + nameOfLib(lib)); }
    void onUnboundRef(oa::oaTech* tech, oa::oaTechHeader* header) override {
        oa::oaScalarName ref;
        header->getRefLibName(ref);
        add("unbound " + libOf(tech) + " to " + textOf(ref));
    }
    void onPreOpenRefs(oa::oaTech* tech) override { add("open refs " + libOf(tech)); }
    void onPostOpenRefs(oa::oaTech* tech) override { add("opened refs " + libOf(tech)); }
    void onConflict(oa::oaTech* tech, oa::oaTechConflictTypeEnum type,
                    oa::oaObjectArray objects) override {
        add("conflict " + std::to_string(type) + " " + libOf(tech) + ": " + placesOf(objects));
    }
    void onClearanceMeasureConflict(oa::oaTechArray techs) override {
        add("clearance " + libsOf(techs));
    }
    void onDefaultManufacturingGridConflict(oa::oaTechArray techs) override {
        add("grid " + libsOf(techs));
    }
    void onGateGroundedConflict(oa::oaTechArray techs) override {
        add("grounded " + libsOf(techs));
    }
    void onDBUPerUUConflict(oa::oaTechArray techs, oa::oaViewType* type) override {
        add("dbu " + nameOf(type) + " " + libsOf(techs));
    }
    void onUserUnitsConflict(oa::oaTechArray techs, oa::oaViewType* type) override {
        add("units " + nameOf(type) + " " + libsOf(techs));
    }
    void onProcessFamilyConflict(const oa::oaTechArray& techs) override {
        add("family " + libsOf(techs));
    }
    void onExcludedLayerConflict(oa::oaTech* tech, const oa::oaPhysicalLayer* excluding,
                                 const oa::oaLayer* excluded) override {
        add("excluded " + libOf(tech) + ": " + nameOf(excluding) + " " + nameOf(excluded));
    }

private:
    void add(std::string text) { news_.push_back(std::move(text)); }
    static std::string nameOfLib(const oa::oaLib* lib) {
        oa::oaString text;
        lib->getName(oa::oaNativeNS(), text);
        return std::string(text);
    }

    News news_;
};

/// References to these technologies.
inline oa::oaTechArray refsTo(std::initializer_list<oa::oaTech*> techs) {
    oa::oaTechArray refs;
    for (oa::oaTech* tech : techs)
        refs.append(tech);
    return refs;
}

} // namespace ovalis::test
