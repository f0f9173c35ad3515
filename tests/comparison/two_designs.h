#pragma once

#include <gmock/gmock.h>

#include "comparison/designs.h"
#include "log.h"
#include "support/library_fixture.h"

namespace comparison::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr oa::oaPurposeNum drawing = oa::oavPurposeNumberDrawing;

inline oa::oaScalarName scalar(const char* name) {
    return {oa::oaNativeNS(), name};
}

inline oa::oaName general(const char* name) {
    return {oa::oaNativeNS(), name};
}

inline oa::oaPointArray outline(std::initializer_list<oa::oaPoint> points) {
    return {points.begin(), oa::oaUInt4(points.size())};
}

/// Two empty designs of one library, whose technology has the layers M1 and M2.
class TwoDesigns : public ovalis::test::LibraryTest {
protected:
    TwoDesigns() {
        oa::oaTech* const tech = oa::oaTech::open(scalar("lib"), 'a');
        oa::oaPhysicalLayer::create(tech, "M1", 1, oa::oacMetalMaterial);
        oa::oaPhysicalLayer::create(tech, "M2", 2, oa::oacMetalMaterial);
        tech->save();
        for (const char* cell : {"was", "is"})
            oa::oaBlock::create(&design(cell, "layout", 'w'));
    }

    oa::oaDesign& was() {
        return *oa::oaDesign::find(scalar("lib"), scalar("was"), scalar("layout"));
    }
    oa::oaDesign& is() {
        return *oa::oaDesign::find(scalar("lib"), scalar("is"), scalar("layout"));
    }
    oa::oaBlock* wasBlock() { return was().getTopBlock(); }
    oa::oaBlock* isBlock() { return is().getTopBlock(); }

    /// Does the same in both designs.
    template <class Action>
    void inBoth(Action action) {
        action(wasBlock());
        action(isBlock());
    }

    /// What differs, without the place.
    Lines differences() {
        Log log;
        compareDesigns(Place("at", log), was(), is(), {"lib", "lib"});
        for (std::string& line : log.lines)
            line.erase(0, 4);
        return log.lines;
    }
};

} // namespace comparison::test
