// The handle of a design that saves and closes it, and its record of properties.

#include <limits>
#include <sstream>
#include <type_traits>

#include "diagnostics/collector_fixture.h"
#include "diagnostics/property_line.h"
#include "support/library_fixture.h"
#include "support/places.h"
#include "support/run_program.h"

using namespace ovalis;
using namespace oa;
using ovalis::test::failureOf;
using ovalis::test::Lines;

namespace {

static_assert(std::is_nothrow_move_constructible_v<OaDesignSAC>);
static_assert(std::is_nothrow_move_assignable_v<OaDesignSAC>);
static_assert(!std::is_copy_constructible_v<OaDesignSAC>);
static_assert(!std::is_copy_assignable_v<OaDesignSAC>);

class DesignSAC : public test::LibraryTest {
protected:
    /// Saves a design without content.
    void makeDesign(const std::string& cell = "cell") {
        oaDesign& made = design(cell, "layout", 'w');
        oaBlock::create(&made);
        made.save();
        made.close();
    }

    static void draw(oaDesign& design) {
        oaRect::create(design.getTopBlock(), 1, 2, oaBox(0, 0, 10, 20));
    }

    oaUInt4 shapesOnDisk(const std::string& cell = "cell") {
        oaDesign& read = design(cell, "layout", 'r');
        const oaUInt4 count = read.getTopBlock()->getShapes().getCount();
        read.close();
        return count;
    }

    oaDesign* openDesign(const std::string& cell) {
        const oaNativeNS ns;
        return oaDesign::find(oaScalarName(ns, "lib"), oaScalarName(ns, cell.c_str()),
                              oaScalarName(ns, "layout"));
    }
};

/// A design with properties.
class RecordedProperties : public DesignSAC {
protected:
    RecordedProperties() {
        makeDesign();
        handle_ = OaDesignSAC(&design("cell", "layout", 'a'));
    }

    oaObject* owner() { return handle_.get(); }

    /// The lines of the properties of the design.
    Lines recorded() {
        handle_.recordProperties(msgCollector::Iprop, "key", handle_->getProps());
        return handle_.sharedMessages()->getLines("Iprop", "key");
    }

    OaDesignSAC handle_{nullptr};
};

} // namespace

TEST_F(DesignSAC, SavesADesignThatIsOpenForAppendAndModified) {
    makeDesign();
    { draw(*OaDesignSAC(&design("cell", "layout", 'a'))); }
    EXPECT_EQ(openDesign("cell"), nullptr);
    EXPECT_EQ(shapesOnDisk(), 1U);
}

TEST_F(DesignSAC, SavesADesignThatIsOpenForWritingAndModified) {
    {
        const OaDesignSAC handle(&design("cell", "layout", 'w'));
        oaBlock::create(handle.get());
        draw(*handle);
    }
    EXPECT_EQ(openDesign("cell"), nullptr);
    EXPECT_EQ(shapesOnDisk(), 1U);
}

TEST_F(DesignSAC, DoesNotSaveADesignThatIsNotModified) {
    makeDesign();
    const auto file = filePath("lib") / "cell" / "layout" / "layout.oa";
    const auto before = std::filesystem::last_write_time(file) - std::chrono::hours(1);
    std::filesystem::last_write_time(file, before);
    { const OaDesignSAC handle(&design("cell", "layout", 'a')); }
    EXPECT_EQ(openDesign("cell"), nullptr);
    EXPECT_EQ(std::filesystem::last_write_time(file), before);
}

TEST_F(DesignSAC, ClosesADesignThatIsOpenForReadingWithoutSavingIt) {
    makeDesign();
    {
        oaDesign& modified = design("cell", "layout", 'a');
        draw(modified);
        const OaDesignSAC handle(&modified);
        // What is open for reading cannot be changed, so the right is taken away afterwards.
        modified.reopen('r');
        EXPECT_EQ(handle->getMode(), 'r');
    }
    EXPECT_EQ(openDesign("cell"), nullptr);
    EXPECT_EQ(shapesOnDisk(), 0U);
}

TEST_F(DesignSAC, TakesBackOneOpeningOnly) {
    makeDesign();
    oaDesign& first = design("cell", "layout", 'r');
    { const OaDesignSAC handle(&design("cell", "layout", 'r')); }
    EXPECT_EQ(openDesign("cell"), &first);
    first.close();
}

TEST_F(DesignSAC, LeavesADesignAloneThatIsClosedAlready) {
    makeDesign();
    const OaDesignSAC handle(&design("cell", "layout", 'r'));
    handle->close();
    EXPECT_FALSE(handle.get()->isValid());
}

TEST_F(DesignSAC, MayHoldNothing) {
    const OaDesignSAC handle(nullptr);
    EXPECT_EQ(handle.get(), nullptr);
    EXPECT_NE(handle.sharedMessages(), nullptr);
    EXPECT_EQ(failureOf([&] { *handle; }), "Invalid indirection to design");
    EXPECT_EQ(failureOf([&] { handle->save(); }), "Invalid indirection to design");
}

TEST_F(DesignSAC, GivesItsDesign) {
    makeDesign();
    oaDesign& held = design("cell", "layout", 'r');
    const OaDesignSAC handle(&held);
    EXPECT_EQ(handle.get(), &held);
    EXPECT_EQ(&*handle, &held);
    EXPECT_EQ(handle->getMode(), 'r');
}

TEST_F(DesignSAC, MovesDesignAndCollector) {
    makeDesign();
    oaDesign& held = design("cell", "layout", 'r');
    OaDesignSAC source(&held);
    const auto messages = source.sharedMessages();
    const OaDesignSAC target(std::move(source));
    EXPECT_EQ(target.get(), &held);
    EXPECT_EQ(target.sharedMessages(), messages);
    EXPECT_EQ(source.get(), nullptr);
    EXPECT_EQ(source.sharedMessages(), nullptr);
    EXPECT_EQ(failureOf([&] { *source; }), "Invalid indirection to design");
}

TEST_F(DesignSAC, EndsTheUseOfItsDesignWhenItIsAssignedAnother) {
    makeDesign("one");
    makeDesign("two");
    OaDesignSAC target(&design("one", "layout", 'a'));
    draw(*target);
    OaDesignSAC source(&design("two", "layout", 'r'));
    const auto messages = source.sharedMessages();
    target = std::move(source);
    EXPECT_EQ(openDesign("one"), nullptr);
    EXPECT_EQ(shapesOnDisk("one"), 1U);
    EXPECT_EQ(target.get(), openDesign("two"));
    EXPECT_EQ(target.sharedMessages(), messages);
    EXPECT_EQ(source.get(), nullptr);
}

TEST_F(DesignSAC, SharesACollectorThatOutlivesIt) {
    std::shared_ptr<msgCollector> messages;
    {
        const OaDesignSAC handle(nullptr);
        messages = handle.sharedMessages();
        messages->addMessage(msgCollector::Layer, "key", "line");
        EXPECT_EQ(handle.sharedMessages(), messages);
    }
    EXPECT_EQ(messages.use_count(), 1);
    EXPECT_EQ(messages->getLines("Layer", "key"), Lines{"line"});
}

TEST_F(DesignSAC, HasACollectorOfTheOriginsThatTheSettingNames) {
    const test::Setting setting("Tech");
    const OaDesignSAC handle(nullptr);
    EXPECT_TRUE(handle.sharedMessages()->isCollectorActive(msgCollector::Tech));
    EXPECT_FALSE(handle.sharedMessages()->isCollectorActive(msgCollector::Pcell));
}

TEST_F(DesignSAC, EndsTheProcessWhenItsDesignCannotBeSaved) {
    const auto result =
        test::runProgram(test::builtProgram("end_of_handle"), {pathOf("unsaved"), "design"});
    std::istringstream output(result.output);
    std::string word;
    output >> word;
    EXPECT_EQ(word, "ready");
    EXPECT_FALSE(output >> word);
    EXPECT_EQ(result.exitCode, 10);
}

TEST_F(RecordedProperties, OfEveryKindHaveALine) {
    const oaByte bytes[] = {1, 2, 3};
    const oaString enums[] = {"red", "green", "blue"};
    oaIntProp::create(owner(), "int", -5);
    oaIntRangeProp::create(owner(), "intRange", 1, 2, 3);
    oaFloatProp::create(owner(), "float", 0.1F);
    oaFloatRangeProp::create(owner(), "floatRange", 1, 2, 3);
    oaStringProp::create(owner(), "string", "a b");
    oaAppProp::create(owner(), "app", "bytes", 3, bytes);
    oaDoubleProp::create(owner(), "double", 1.0 / 3);
    oaDoubleRangeProp::create(owner(), "doubleRange", 1, 2, 3);
    oaBooleanProp::create(owner(), "yes", true);
    oaBooleanProp::create(owner(), "no", false);
    oaHierProp::create(owner(), "hier");
    oaTimeProp::create(owner(), "time", 1000000000);
    oaTimeRangeProp::create(owner(), "timeRange", 1, 2, 3);
    oaEnumProp::create(owner(), "enum", "green", 3, enums);
    EXPECT_EQ(recorded(), (Lines{"int=-5", "intRange: <IntRangeProp>", "float=0.1",
                                 "floatRange: <FloatRangeProp>", "string=a b", "app: <AppProp>",
                                 "double=0.333333", "doubleRange: <DoubleRangeProp>", "yes=true",
                                 "no=false", "hier: <HierProp>", "time: <TimeProp>",
                                 "timeRange: <TimeRangeProp>", "enum=red, green, blue"}));
}

TEST_F(RecordedProperties, OfRealNumbersHaveSixDigits) {
    oaDoubleProp::create(owner(), "small", 1e-9);
    oaDoubleProp::create(owner(), "large", 123456789.0);
    oaDoubleProp::create(owner(), "whole", 3.0);
    oaFloatProp::create(owner(), "negative", -2.5F);
    oaDoubleProp::create(owner(), "infinite", std::numeric_limits<double>::infinity());
    EXPECT_EQ(recorded(), (Lines{"small=1e-09", "large=1.23457e+08", "whole=3", "negative=-2.5",
                                 "infinite=inf"}));
}

TEST_F(RecordedProperties, KeepTheirTextsAsTheyAre) {
    oaStringProp::create(owner(), "größe", "5 µm\n\"wide\"");
    oaStringProp::create(owner(), "empty", "");
    EXPECT_EQ(recorded(), (Lines{"größe=5 µm\n\"wide\"", "empty="}));
}

TEST_F(RecordedProperties, OfUnknownTypesHaveTheirNumber) {
    const oaIntProp* property = oaIntProp::create(owner(), "newer", 1);
    EXPECT_EQ(lineOf(*property, oacGroupType), "newer unknown property type:179");
}

TEST_F(RecordedProperties, AreStoredWhetherTheirOriginIsActiveOrNot) {
    oaIntProp::create(owner(), "width", 1);
    const auto messages = handle_.sharedMessages();
    ASSERT_FALSE(messages->isCollectorActive(msgCollector::LCprop));
    handle_.recordProperties(msgCollector::LCprop, "größe", handle_->getProps());
    EXPECT_EQ(messages->getMessageLog("LCprop"), "LibCell properties:\n  größe: width=1\n");
}

TEST_F(RecordedProperties, OfAnObjectWithoutAnyMakeNoParagraph) {
    EXPECT_EQ(recorded(), Lines());
    EXPECT_EQ(handle_.sharedMessages()->getAvailableChapterKeys_ordered(), Lines());
}

TEST_F(RecordedProperties, OfAMovedFromHandleAreLeftAlone) {
    oaIntProp::create(owner(), "width", 1);
    const OaDesignSAC target(std::move(handle_));
    handle_.recordProperties(msgCollector::Iprop, "key", target->getProps());
    EXPECT_EQ(target.sharedMessages()->getAvailableChapterKeys_ordered(), Lines());
}
