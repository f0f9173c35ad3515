#pragma once

#include <string>
#include <vector>

#include <oa/oaDesignDB.h>
#include <oa/oaDesignInterfaces.h>

#include "support/environment_override.h"
#include "support/files.h"

namespace broker::test {

/// A library "lib" with the super master "cell" of the pcell "trial", in a directory with the
/// definitions of it.
class TrialLibrary {
public:
    explicit TrialLibrary(const std::string& directory)
        : plugIns("OA_PLUGIN_PATH", TEST_PLUG_INS), path(directory) {
        oa::oaDesignInit();
        lib = oa::oaLib::create(name("lib"), (path + "/lib").c_str());
        writeDefinitions("DEFINE lib lib\n");
        saveMaster({});
    }
    TrialLibrary(const TrialLibrary&) = delete;
    TrialLibrary& operator=(const TrialLibrary&) = delete;
    ~TrialLibrary() {
        lib->close();
        oa::oaPcellLink::find("trial")->destroy();
    }

    std::string definitions() const { return path + "/lib.defs"; }

    void writeDefinitions(const std::string& text) const {
        ovalis::test::writeText(definitions(), text);
    }

    /// A design of the view "layout".
    static oa::oaDesign* design(const std::string& cell, char mode = 'w') {
        return oa::oaDesign::open(name("lib"), name(cell), name("layout"),
                                  oa::oaViewType::get(oa::oacMaskLayout), mode);
    }

    /// The super master has the text parameter "action", to draw, and further ones.
    static void saveMaster(const std::vector<oa::oaParam>& further) {
        oa::oaParamArray params;
        params.append(oa::oaParam("action", oa::oaString("draw")));
        for (const oa::oaParam& param : further)
            params.append(param);
        oa::oaDesign* const master = design("cell");
        master->defineSuperMaster(oa::oaPcellLink::getPcellDef("trial"), params);
        master->save();
        master->close();
    }

    static oa::oaScalarName name(const std::string& text) {
        return oa::oaScalarName(oa::oaNativeNS(), text.c_str());
    }

private:
    ovalis::test::EnvironmentOverride plugIns;
    std::string path;
    oa::oaLib* lib = nullptr;
};

} // namespace broker::test
