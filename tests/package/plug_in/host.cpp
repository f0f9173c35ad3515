// Makes, evaluates and opens a super master of the plug-in "stripe" in a library at the path given,
// and prints what the plug-in did.

#include <oa/oaDesignDB.h>

#include <exception>
#include <iostream>

namespace {

using namespace oa;

oaScalarName name(const char* text) {
    return oaScalarName(oaNativeNS(), text);
}

oaDesign* open(oaChar mode) {
    return oaDesign::open(name("lib"), name("stripe"), name("layout"),
                          oaViewType::get(oacMaskLayout), mode);
}

void make() {
    oaParamArray defaults;
    defaults.append(oaParam("length", oaDouble(25)));
    defaults.append(oaParam("width", oaDouble(2.5)));
    oaDesign* design = open('w');
    design->defineSuperMaster(oaPcellLink::getPcellDef("stripe"), defaults);
    design->save();
    design->close();
}

void evaluate() {
    oaParamArray params;
    params.append(oaParam("length", oaDouble(40)));
    oaDesign* submaster = oaDesign::open(name("lib"), name("stripe"), name("layout"), params);
    if (!submaster) {
        std::cout << "no submaster\n";
        return;
    }
    oaBox box;
    submaster->getTopBlock()->getBBox(box);
    std::cout << "stripe " << box.left() << " " << box.bottom() << " " << box.right() << " "
              << box.top() << '\n';
    submaster->close();
}

void openAgain() {
    oaDesign* design = open('r');
    oaString evaluator;
    design->getPcellEvaluatorName(evaluator);
    std::cout << evaluator << (design->getPcellDef() ? " bound\n" : " not bound\n");
    design->close();
}

void run(const char* path) {
    oaDesignInit();
    if (!oaPcellLink::find("stripe")) {
        std::cout << "no stripe\n";
        return;
    }
    oaLib* lib = oaLib::create(name("lib"), path);
    make();
    evaluate();
    openAgain();
    lib->close();
}

} // namespace

int main(int count, char** values) {
    if (count != 2)
        return 2;
    try {
        run(values[1]);
    } catch (const oaException& error) {
        std::cerr << static_cast<const oaChar*>(error.getMsg()) << '\n';
        return 1;
    } catch (const IException& error) {
        std::cerr << error.getMsg() << '\n';
        return 1;
    }
    return 0;
}
