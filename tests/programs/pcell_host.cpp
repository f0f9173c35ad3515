// An application of the library that evaluates pcells. Its arguments: the library definitions, then
// evaluations, each CELL or CELL/PARAMETER=VALUE, of the view "layout" of the library "lib". Prints
// what each of them holds, and what the observers of errors are told.

#include <algorithm>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include <oa/oaDesignDB.h>

#include <ovalis/core.h>
#include <platform/text.h>

namespace {

using namespace oa;

oaScalarName name(const std::string& text) {
    return oaScalarName(oaNativeNS(), text.c_str());
}

class Errors : public oaPcellObserver {
public:
    Errors() : oaPcellObserver(0) {}

    void onError(oaDesign*, const oaString& msg, oaPcellErrorTypeEnum errorType) override {
        std::cout << "error " << static_cast<unsigned>(errorType) << ": " << std::string(msg)
                  << '\n';
    }
};

oaParamArray paramsOf(const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) {
        return oaParamArray();
    }
    const std::string value = text.substr(equals + 1);
    const bool isNumber = value.find_first_not_of("0123456789") == std::string::npos;
    const std::string key = text.substr(0, equals);
    const oaParam param = isNumber ? oaParam(key.c_str(), oaInt4(std::stoi(value)))
                                   : oaParam(key.c_str(), oaString(value.c_str()));
    return oaParamArray(&param, 1);
}

std::string textOf(const oaShape& shape) {
    oaPointArray points;
    if (shape.getType() == oacPolygonType) {
        static_cast<const oaPolygon&>(shape).getPoints(points);
    } else {
        oaBox box;
        shape.getBBox(box);
        points.append(oaPoint(box.left(), box.bottom()));
        points.append(oaPoint(box.right(), box.top()));
    }
    std::ostringstream text;
    text << shape.getType().getName() << " on " << shape.getLayerNum() << '/'
         << shape.getPurposeNum();
    for (oaUInt4 i = 0; i < points.getNumElements(); ++i) {
        text << ' ' << points[i].x() << ',' << points[i].y();
    }
    return text.str();
}

std::vector<std::string> contentsOf(const oaBlock& block) {
    std::vector<std::string> lines;
    oaIter<oaShape> shapes(block.getShapes());
    while (const oaShape* shape = shapes.getNext()) {
        lines.push_back(textOf(*shape));
    }
    oaIter<oaTerm> terms(block.getTerms());
    while (const oaTerm* term = terms.getNext()) {
        oaString termName;
        term->getName(oaNativeNS(), termName);
        lines.push_back("terminal " + std::string(termName) + " with " +
                        std::to_string(term->getPins().getCount()) + " pins");
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

void evaluate(const std::string& what) {
    std::cout << what << '\n';
    const std::size_t slash = std::min(what.find('/'), what.size());
    const oaDesign* const design =
        oaDesign::open(name("lib"), name(what.substr(0, slash)), name("layout"),
                       paramsOf(what.substr(std::min(slash + 1, what.size()))));
    if (design == nullptr || design->getTopBlock() == nullptr) {
        std::cout << "  nothing\n";
        return;
    }
    for (const std::string& line : contentsOf(*design->getTopBlock())) {
        std::cout << "  " << line << '\n';
    }
}

} // namespace

int main(int count, char** values) {
    ovalis::initOa();
    const Errors errors;
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    oaLibDefList::openLibs(arguments.at(1).c_str());
    for (std::size_t i = 2; i < arguments.size(); ++i) {
        evaluate(arguments[i]);
    }
    return 0;
}
