#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <oa/oaDesignDB.h>

#include <platform/file.h>

#include "pcell_master/recording_pcell.h"
#include "start_fixture.h"

namespace pcellBrokerClient::test {

inline oa::oaScalarName name(const std::string& text) {
    return oa::oaScalarName(oa::oaNativeNS(), text.c_str());
}

/// What observers of pcell errors are told while the object lives.
class Errors : public oa::oaPcellObserver {
public:
    Errors() : oa::oaPcellObserver(0) {}

    void onError(oa::oaDesign* design, const oa::oaString& msg,
                 oa::oaPcellErrorTypeEnum errorType) override {
        oa::oaString cell;
        design->getCellName(oa::oaNativeNS(), cell);
        reports.push_back(std::to_string(static_cast<unsigned>(errorType)) + " " +
                          std::string(cell) + ": " + std::string(msg));
    }

    std::vector<std::string> take() { return std::exchange(reports, {}); }

    std::vector<std::string> reports;
};

/// A library with designs to be evaluated.
class DesignTest : public StartTest {
protected:
    DesignTest() {
        oa::oaDesignInit();
        lib_ = oa::oaLib::create(name("lib"), path("lib").c_str());
    }
    ~DesignTest() override { lib_->close(); }

    /// An empty design.
    oa::oaDesign& design(const std::string& cell) {
        return *oa::oaDesign::open(name("lib"), name(cell), name("layout"),
                                   oa::oaViewType::get(oa::oacMaskLayout), 'w');
    }

    /// A design with parameters.
    oa::oaDesign& masterWith(const oa::oaParamArray& params, const std::string& cell) {
        oa::oaDesign& master = design(cell);
        master.defineSuperMaster(evaluator_->getPcellDef(), params);
        return master;
    }

    /// A file of the kind that brokers answer with: one rectangle of that width.
    std::string resultFile(oa::oaInt4 width) {
        oa::oaDesign& result = design("result");
        oa::oaRect::create(oa::oaBlock::create(&result), 1, 1, oa::oaBox(0, 0, width, 10));
        const std::string file = path("result");
        oa::PcellFile pcellFile(file.c_str());
        pcellFile.open("w");
        pcellFile.append(&result);
        pcellFile.close();
        return file;
    }

    static oa::oaInt4 widthOf(oa::oaDesign& evaluated) {
        oa::oaBox box;
        oa::oaBlock* const block = evaluated.getTopBlock();
        if (block == nullptr) {
            return -1;
        }
        block->getBBox(box);
        return box.right() - box.left();
    }

    std::size_t filesBeside(const std::string& prefix) const {
        std::size_t count = 0;
        for (const platform::DirectoryEntry& entry : platform::listDirectory(path(""))) {
            count += entry.name.starts_with(prefix) ? 1 : 0;
        }
        return count;
    }

private:
    oa::oaLib* lib_;
    oaCommon::SPtr<ovalis::test::RecordingPcell> evaluator_ = new ovalis::test::RecordingPcell;
};

} // namespace pcellBrokerClient::test
