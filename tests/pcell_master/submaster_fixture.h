#pragma once

#include "recording_pcell.h"

#include "support/temporary_directory.h"

#include <gtest/gtest.h>

#include <functional>

namespace ovalis::test {

using Lines = std::vector<std::string>;

/// An evaluator that draws one square, as wide as the parameter "size", and can be told to do other
/// things.
class SquarePcell : public oaCommon::PlugInBase<oa::IPcell> {
public:
    explicit SquarePcell(Lines& lines) : lines_(lines) {}

    oa::oaPcellDef* getPcellDef() override {
        return new oa::oaPcellDef(this); // deleted by onUnbind()
    }
    void getName(oa::oaString& name) override { name = "square"; }
    void onBind(oa::oaDesign*, oa::oaPcellDef*) override { failIn("onBind"); }
    void onUnbind(oa::oaDesign*, oa::oaPcellDef* def) override {
        delete def;
        failIn("onUnbind");
    }
    void onEval(oa::oaDesign* design, oa::oaPcellDef*) override {
        oa::oaParam size;
        design->findParam("size", size);
        lines_.push_back("onEval " + std::to_string(size.getIntVal()));
        oa::oaBlock* block = oa::oaBlock::create(design);
        oa::oaRect::create(block, 1, 2, oa::oaBox(0, 0, size.getIntVal(), size.getIntVal()));
        if (meanwhile)
            meanwhile(design, size.getIntVal());
    }
    void onRead(oa::oaDesign*, oa::oaMapFileWindow&, oa::oaUInt4&, oa::oaPcellDef*) override {
        failIn("onRead");
    }
    void onWrite(oa::oaDesign*, oa::oaMapFileWindow& window, oa::oaUInt4& loc,
                 oa::oaPcellDef*) override {
        failIn("onWrite");
        window.data().writeUInt4(loc, 7);
    }
    oa::oaUInt4 calcDiskSize(oa::oaPcellDef*) const override {
        failIn("calcDiskSize");
        return 4;
    }

    std::function<void(oa::oaDesign*, oa::oaInt4)> meanwhile; // while it evaluates
    std::string failing;                                      // the call that throws

private:
    void failIn(const std::string& call) const {
        if (call == failing)
            throw oaCommon::ExceptionBase(5, ("no " + call).c_str());
    }

    Lines& lines_;
};

/// Notes what it is told in the lines that the evaluator notes its calls in.
class NotingObserver : public oa::oaPcellObserver {
public:
    explicit NotingObserver(Lines& lines) : oaPcellObserver(1), lines_(lines) {}

    void onError(oa::oaDesign* design, const oa::oaString& msg,
                 oa::oaPcellErrorTypeEnum kind) override {
        failed = design;
        lines_.push_back("onError " + std::to_string(kind) + " " + std::string(msg));
    }
    void onPreEval(oa::oaDesign* design, oa::oaPcellDef*) override {
        lines_.push_back(std::string("onPreEval") + (design->getTopBlock() ? " drawn" : ""));
        if (!failing.empty())
            throw std::runtime_error(failing);
    }
    void onPostEval(oa::oaDesign* design, oa::oaPcellDef*) override {
        lines_.push_back(std::string("onPostEval") + (design->getTopBlock() ? " drawn" : ""));
    }

    oa::oaDesign* failed = nullptr;
    std::string failing; // the text of an exception out of onPreEval

private:
    Lines& lines_;
};

inline oa::oaScalarName name(const char* text) {
    return oa::oaScalarName(oa::oaNativeNS(), text);
}

/// What `call` throws: its text, or "nothing".
template <class Call>
std::string refused(oa::oaUInt4 id, Call call) {
    try {
        call();
    } catch (const oa::oaException& error) {
        return error.getMsgId() == id ? std::string(error.getMsg())
                                      : "message " + std::to_string(error.getMsgId());
    }
    return "nothing";
}

/// A library whose cell "square" is a super master with the parameters "size" and "label".
class SubmasterFixture : public testing::Test {
protected:
    SubmasterFixture()
        : lib(oa::oaLib::create(name("lib"), (directory.str() + "/lib").c_str())),
          evaluator(new SquarePcell(lines)),
          link(oa::oaPcellLink::create(evaluator)) {
        oa::oaDesign* design = openCell('w');
        design->defineSuperMaster(evaluator->getPcellDef(), defaults());
        design->save();
        design->close();
        observer.emplace(lines);
    }
    ~SubmasterFixture() override {
        observer.reset();
        evaluator->meanwhile = nullptr;
        evaluator->failing.clear();
        lib->close();
        if (link)
            link->destroy();
    }

    static oa::oaParamArray defaults() {
        oa::oaParamArray params;
        params.append(oa::oaParam("size", oa::oaInt4(10)));
        params.append(oa::oaParam("label", "none"));
        return params;
    }

    static oa::oaParamArray sized(oa::oaInt4 size) {
        oa::oaParamArray params;
        params.append(oa::oaParam("size", size));
        return params;
    }

    static oa::oaParamArray effective(oa::oaInt4 size) {
        oa::oaParamArray params = sized(size);
        params.append(oa::oaParam("label", "none"));
        return params;
    }

    static oa::oaDesign* openCell(oa::oaChar mode, const char* cell = "square") {
        return oa::oaDesign::open(name("lib"), name(cell), name("layout"),
                                  oa::oaViewType::get(oa::oacMaskLayout), mode);
    }

    static oa::oaDesign* openSubmaster(const oa::oaParamArray& params) {
        return oa::oaDesign::open(name("lib"), name("square"), name("layout"), params);
    }

    static oa::oaDesign* findSuperMaster() {
        return oa::oaDesign::find(name("lib"), name("square"), name("layout"));
    }

    static oa::oaParamArray paramsOf(const oa::oaDesign* design, bool includeDefaults) {
        oa::oaParamArray params;
        design->getParams(params, includeDefaults);
        return params;
    }

    static int widthOf(const oa::oaDesign* design) {
        oa::oaBox box;
        design->getTopBlock()->getBBox(box);
        return box.getWidth();
    }

    static std::vector<oa::oaDesign*> submastersOf(const oa::oaDesign* superMaster) {
        std::vector<oa::oaDesign*> found;
        oa::oaIter<oa::oaDesign> each(superMaster->getSubMasters());
        while (oa::oaDesign* next = each.getNext())
            found.push_back(next);
        return found;
    }

    Lines takeLines() { return std::exchange(lines, {}); }

    TemporaryDirectory directory;
    Lines lines;
    oa::oaLib* lib;
    SquarePcell* evaluator;
    oa::oaPcellLink* link;
    std::optional<NotingObserver> observer;
};

} // namespace ovalis::test
