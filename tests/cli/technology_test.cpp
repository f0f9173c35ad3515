#include <gtest/gtest.h>

#include "workplace.h"

namespace cli::test {
namespace {

/// The technology of a library, read back.
class Technology {
public:
    explicit Technology(const std::string& library)
        : lib_(ovalis::openLib(library, false, "lib")), tech_(oa::oaTech::open(lib_.get(), 'r')) {}
    ~Technology() { tech_->close(); }

    std::map<std::string, std::uint32_t> layers() const {
        return named<oa::oaLayer>(oa::oaIter<oa::oaLayer>(tech_->getLayers()));
    }

    std::uint32_t purpose(const char* name) const {
        const oa::oaPurpose* found = oa::oaPurpose::find(tech_, oa::oaString(name));
        return found == nullptr ? 0 : found->getNumber();
    }

    oa::oaTech& operator*() const { return *tech_; }

private:
    template <class Named>
    static std::map<std::string, std::uint32_t> named(oa::oaIter<Named> objects) {
        std::map<std::string, std::uint32_t> all;
        while (const Named* object = objects.getNext()) {
            oa::oaString name;
            object->getName(name);
            all[ovalis::fromOa(name)] = object->getNumber();
        }
        return all;
    }

    ovalis::LibPtr lib_;
    oa::oaTech* tech_;
};

TEST(Technology, GetsUnitsLayersAndPurposes) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const Technology tech(work.library());
    EXPECT_EQ(tech.layers(),
              (std::map<std::string, std::uint32_t>{{"M1", 1},
                                                    {"TEXT", 63},
                                                    {"vex_device", 231},
                                                    {"tessa_3dc_artwork", 4294966518},
                                                    {"tessa_3dc_pins", 4294966519}}));
    EXPECT_EQ(tech.purpose("pin"), 2u);
    const oa::oaViewType* view = oa::oaViewType::get(oa::oacMaskLayout);
    EXPECT_TRUE((*tech).isDBUPerUUSet(view));
    EXPECT_TRUE((*tech).isUserUnitsSet(view));
    EXPECT_EQ((*tech).getDBUPerUU(view), 1000u);
}

TEST(Technology, KeepsWhatStoodFirstWhenTheComponentContradictsItself) {
    Workplace work;
    work.component["layers"][1]["number"] = 7;
    const Outcome exported = work.exportIt();
    EXPECT_EQ(exported.status, 0);
    EXPECT_NE(
        exported.talk.find("/layers/1/number: the technology keeps layer \"M1\" with number 1"),
        std::string::npos);
    EXPECT_EQ(Technology(work.library()).layers().at("M1"), 1u);
}

TEST(Technology, LeavesOutNamesForLabelsThatAreTaken) {
    Workplace work;
    work.layout["texts"][0]["layer"] = 1;
    EXPECT_EQ(work.exportIt().status, 0);
    EXPECT_EQ(Technology(work.library()).layers().count("TEXT"), 0u);
}

struct Clash {
    const char* pointer;
    nlohmann::json value;
    const char* complaint;
};

TEST(Technology, RefusesAComponentThatContradictsIt) {
    const Clash clashes[] = {
        {"/layers/0/number", 4,
         "the technology has layer \"M1\" with number 1, the component needs "
         "layer \"M1\" with number 4"},
        {"/layers/0/name", "M2",
         "the technology has layer \"M1\" with number 1, the component needs "
         "layer \"M2\" with number 1"},
        {"/layers/1/purpose_number", 9,
         "the technology has purpose \"pin\" with number 2, the component needs purpose \"pin\" "
         "with "
         "number 9"},
        {"/units/dbu_per_uu", 2000,
         "the technology has 1000 database units for each user unit, the component needs 2000"},
        {"/units/user_unit", "mil",
         "the technology has the user unit micron, the component needs mil"},
    };
    for (const Clash& clash : clashes) {
        Workplace work;
        ASSERT_EQ(work.exportIt().status, 0);
        const Tree before = work.tree();
        work.component["name"] = "second";
        const nlohmann::json::json_pointer pointer(clash.pointer);
        work.component[pointer] = clash.value;
        if (pointer.back() == "number" || pointer.back() == "name") {
            // Both pairs of the layer and its users change together, so that only one clash is
            // left.
            work.component["layers"][1][pointer.back()] = clash.value;
            work.layout["layers"][0]["name"] = work.component["layers"][0]["name"];
            for (auto& port : work.component["ports"])
                port["layer"] = work.component["layers"][0]["name"];
        }
        EXPECT_EQ(work.exportIt(),
                  (Outcome{2, "", "ovalis: " + work.library() + ": " + clash.complaint + "\n"}));
        EXPECT_EQ(work.tree(), before);
    }
}

TEST(Technology, RefusesATessaLayerWithAnotherNumber) {
    const Workplace work;
    {
        const ovalis::LibPtr lib = ovalis::createVEXCompatibleLib(work.library(), "lib");
        lib->getAccess(oa::oacWriteLibAccess);
        oa::oaTech* tech = oa::oaTech::open(lib.get(), 'a');
        oa::oaPhysicalLayer::create(tech, "tessa_3dc_pins", 5);
        tech->save();
        tech->close();
    }
    EXPECT_EQ(work.exportIt(),
              (Outcome{2, "",
                       "ovalis: " + work.library() +
                           ": the technology has layer \"tessa_3dc_pins\" with number 5, the "
                           "component needs layer \"tessa_3dc_pins\" with number 4294966519\n"}));
}

TEST(Technology, IsCompletedInALibraryThatExists) {
    const Workplace work;
    ovalis::createLib(work.library(), "lib").reset();
    ASSERT_EQ(work.exportIt().status, 0);
    EXPECT_EQ(ovalisHere({"check", work.library()}), (Outcome{0, "", ""}));
}

} // namespace
} // namespace cli::test
