// Does what its arguments say, one after the other, and prints what can be seen of it. A process of
// its own, because registration happens once.

#include <iostream>
#include <memory>
#include <string>

#include <oa/oaDesignDB.h>

#include <platform/environment.h>
#include <platform/text.h>

#include "broker/registration.h"
#include "support/temporary_directory.h"

namespace {

using namespace oa;

oaScalarName name(const std::string& text) {
    return oaScalarName(oaNativeNS(), text.c_str());
}

class Errors : public oaPcellObserver {
public:
    Errors() : oaPcellObserver(0) {}

    void onError(oaDesign*, const oaString& msg, oaPcellErrorTypeEnum errorType) override {
        std::cout << static_cast<unsigned>(errorType) << ": " << std::string(msg) << '\n';
    }
};

class Program {
public:
    Program() : lib_(oaLib::create(name("lib"), (directory_.str() + "/lib").c_str())) {}
    ~Program() { lib_->close(); }

    void run(const std::string& action, const std::string& value) {
        if (action == "register") {
            ovalis::registerPcellEvaluators();
        } else if (action == "set") {
            const std::size_t equals = value.find('=');
            platform::setEnvironmentVariable(value.substr(0, equals), value.substr(equals + 1));
        } else if (action == "find") {
            std::cout << value << (oaPcellLink::find(value.c_str()) ? ": known\n" : ": unknown\n");
        } else if (action == "evaluate") {
            oaPcellLink::find(value.c_str())->getIPcell()->onEval(design(), nullptr);
        } else if (action == "submaster") {
            printSubmaster(value);
        } else if (action == "create") {
            oaLib::create(name(value), (directory_.str() + "/" + value).c_str());
        } else if (action == "open") {
            oaLib::open(name(value), (directory_.str() + "/" + value).c_str());
        } else if (action == "close") {
            oaLib::find(name(value))->close();
        } else if (action == "definitions") {
            oaLibDefList::openLibs(value.c_str());
        } else {
            std::cout << "no action " << action << '\n';
        }
    }

private:
    oaDesign* design() {
        return oaDesign::open(name("lib"), name("cell"), name("layout"),
                              oaViewType::get(oacMaskLayout), 'w');
    }

    // The way that an application meets the evaluator.
    void printSubmaster(const std::string& type) {
        const oaParam width("w", 1);
        oaDesign* const master = oaDesign::open(name("lib"), name("master"), name("layout"),
                                                oaViewType::get(oacMaskLayout), 'w');
        master->defineSuperMaster(oaPcellLink::getPcellDef(type.c_str()), oaParamArray(&width, 1));
        master->save();
        const oaParam given("w", 2);
        oaDesign* const submaster =
            oaDesign::open(name("lib"), name("master"), name("layout"), oaParamArray(&given, 1));
        oaBox box;
        submaster->getTopBlock()->getBBox(box);
        std::cout << "width " << box.right() - box.left() << '\n';
    }

    ovalis::test::TemporaryDirectory directory_;
    oaLib* lib_;
};

} // namespace

int main(int count, char** values) {
    oaDesignInit();
    const Errors errors;
    Program program;
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        const std::size_t colon = std::min(arguments[i].find(':'), arguments[i].size() - 1);
        program.run(arguments[i].substr(0, arguments[i].find(':')), arguments[i].substr(colon + 1));
    }
    return 0;
}
