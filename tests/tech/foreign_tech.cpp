// foreign_tech <library>: makes a library with a technology as another application would, whose
// session-wide definitions are others than those of the test that reads it.

#include <oa/oaTechDB.h>

#include "platform/text.h"

#include <iostream>
#include <string>
#include <vector>

using namespace oa;

namespace {

void addValues(oaLayer* layer) {
    oaIntAppDef<oaLayer>::get("foreign kind")->set(layer, 5);
    oaIntAppDef<oaLayer>::get("foreign persistence")->set(layer, 6);
    oaStringAppDef<oaLayer>::get("foreign text")->set(layer, "seven");
    oaIntAppDef<oaLayer>::get("foreign same")->set(layer, 8);
}

oaTypeArray types(oaTypeEnum type) {
    oaTypeArray array;
    array.append(type);
    return array;
}

void addGroups(oaTech* tech) {
    oaDBTypeArray databases;
    databases.append(oacTechDBType);
    oaGroup::create(tech, "one",
                    oaFlatGroupDef::create("foreign flat", types(oacPurposeType), databases));
    oaGroup::create(tech, "two", oaHierGroupDef::create("foreign hier", oaTypeArray(), databases));
    oaGroup::create(tech, "three",
                    oaFlatGroupDef::create("foreign group", oaTypeArray(), databases));
}

void addDerivedLayers(oaTech* tech, oaLayer* layer) {
    auto* distance = oaDerivedLayerParamDef::create("foreign distance", oacIntValueType);
    oaDerivedLayerParamArray params;
    params.append(oaDerivedLayerParam::create(distance, oaIntValue::create(tech, 9)));
    oaDerivedLayer::create(tech, layer, oaDerivedLayerDef::create("foreign grow", 1), "grown", 2,
                           &params);
}

} // namespace

int main(int count, char** values) {
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    if (arguments.size() != 2)
        return 2;
    try {
        oaLib* lib = oaLib::create(oaScalarName(oaNativeNS(), "foreign"), arguments[1].c_str());
        oaTech* tech = oaTech::create(lib);
        oaLayer* layer = oaPhysicalLayer::create(tech, "m1", 1);
        addValues(layer);
        addGroups(tech);
        addDerivedLayers(tech, layer);
        tech->save();
        lib->close();
        return 0;
    } catch (const oaException& error) {
        std::cout << error.getMsg() << std::flush;
        return 1;
    }
}
