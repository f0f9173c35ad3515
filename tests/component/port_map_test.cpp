#include "component/port_map.h"

#include <gmock/gmock.h>

#include "inputs.h"

namespace component::test {
namespace {

using testing::ElementsAre;
using testing::Pair;

using Texts = std::vector<std::string>;

/// A component with ports and a Touchstone file beside it.
class PortMap : public testing::Test {
protected:
    PortMap() { name("a.s2p"); }

    void name(const std::string& file) {
        file_ = file;
        inputs_.component["touchstone"] = {{"file", file}};
    }
    void put(const std::string& text) {
        ovalis::test::writeText(
            ovalis::test::utf8(
                std::filesystem::path(inputs_.componentFile()).replace_filename(file_)),
            text);
    }
    void number(std::size_t port, const char* text) {
        inputs_.component["ports"][port]["properties"]["port_number"] = text;
    }

    /// "port -> pin pin" for each port of the file.
    Texts connect() {
        component_ = inputs_.readBack();
        Texts found;
        for (const FilePort& port : connectTouchstone(component_)) {
            found.push_back(port.name + " ->");
            for (const std::size_t pin : port.pins)
                found.back() += " " + component_.ports[pin].name;
        }
        return found;
    }
    /// The complaint or the only warning, without the test's folder.
    std::string remark() {
        std::string text;
        try {
            connect();
            text = component_.warnings.size() == 1 ? component_.warnings[0] : "";
        } catch (const InputError& error) {
            text = error.what();
        }
        const std::string file = inputs_.componentFile();
        const std::string folder =
            file.substr(0, file.size() - std::string("component.json").size());
        for (std::size_t at; (at = text.find(folder)) != std::string::npos;)
            text.erase(at, folder.size());
        return text;
    }

    static constexpr const char* twoPorts = "# GHz S MA R 75\n1 0 0 0 0 0 0 0 0\n";

    Inputs inputs_;
    Component component_;

private:
    std::string file_;
};

} // namespace

TEST_F(PortMap, FollowsTheOrderWithoutAnythingElse) {
    put(twoPorts);
    EXPECT_THAT(connect(), ElementsAre(" -> A", " -> B"));
    EXPECT_THAT(component_.ports[1].properties,
                ElementsAre(Pair("reference_impedance", "75 Ohm"), Pair("touchstone_port", "2")));
    EXPECT_EQ(component_.ports[0].properties.at("k"), "v");
}

TEST_F(PortMap, FollowsTheNamesInTheFile) {
    put(std::string("! Port[1] = B\n! Port[2] = A\n") + twoPorts);
    EXPECT_THAT(connect(), ElementsAre("B -> B", "A -> A"));
    EXPECT_EQ(component_.ports[0].properties.at("touchstone_port"), "2");
    EXPECT_EQ(component_.ports[0].properties.at("touchstone_name"), "A");
    EXPECT_TRUE(component_.warnings.empty());
}

TEST_F(PortMap, FollowsNumbersBeforeNames) {
    number(0, "2");
    number(1, "1");
    put(twoPorts);
    EXPECT_THAT(connect(), ElementsAre(" -> B", " -> A"));
    put(std::string("! Port[1] = B\n! Port[2] = A\n") + twoPorts);
    EXPECT_EQ(remark(), "");
    number(0, "1");
    number(1, "2");
    put(std::string("! Port[1] = in\n! Port[2] = out\n") + twoPorts);
    EXPECT_THAT(connect(), ElementsAre("in -> A", "out -> B"));
}

TEST_F(PortMap, WarnsWhereNumbersAndNamesDisagree) {
    number(0, "1");
    number(1, "2");
    put(std::string("! Port[1] = B\n! Port[2] = A\n") + twoPorts);
    EXPECT_THAT(connect(), ElementsAre("B -> A", "A -> B"));
    ASSERT_EQ(component_.warnings.size(), 2u);
    component_.warnings.pop_back();
    EXPECT_NE(component_.warnings[0].find("port_number makes \"A\" port 1, which "),
              std::string::npos);
}

TEST_F(PortMap, FollowsTheOrderWhereNumbersAreNone) {
    put(twoPorts);
    for (const char* other : {"1", "0", "3", "one"}) {
        number(0, "1");
        number(1, other);
        EXPECT_THAT(connect(), ElementsAre(" -> A", " -> B")) << other;
    }
}

TEST_F(PortMap, TakesTwoPortsForADifferentialOne) {
    name("a.s1p");
    put("# R 100\n1 0 0\n");
    EXPECT_THAT(connect(), ElementsAre(" -> A B")); // the symbol is a differential one
    EXPECT_EQ(component_.ports[0].properties.at("touchstone_port"), "1+");
    EXPECT_EQ(component_.ports[1].properties.at("touchstone_port"), "1-");
    inputs_.component["symbol"] = {{"kind", "none"}};
    EXPECT_EQ(remark(), "component.json: /ports: expected 1 port, as a.s1p has, found 2");
    inputs_.component["touchstone"]["ports"] = 1;
    EXPECT_THAT(connect(), ElementsAre(" -> A B"));
}

TEST_F(PortMap, KeepsWhatThePortsSayThemselves) {
    inputs_.component["ports"][0]["properties"] = {{"reference_impedance", "50 Ohm"},
                                                   {"touchstone_port", "mine"}};
    put(twoPorts);
    EXPECT_EQ(remark(), "component.json: port \"A\" has the reference impedance \"50 Ohm\", a.s2p "
                        "says \"75 Ohm\"");
    EXPECT_EQ(component_.ports[0].properties.at("reference_impedance"), "50 Ohm");
    EXPECT_EQ(component_.ports[0].properties.at("touchstone_port"), "mine");
    inputs_.component["ports"][0]["properties"]["reference_impedance"] = "75.0";
    EXPECT_EQ(remark(), "");
}

TEST_F(PortMap, RefusesAnotherNumberOfPorts) {
    name("a.s3p");
    put("#\n1 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0 0\n");
    EXPECT_EQ(remark(), "component.json: /ports: expected 3 ports, as a.s3p has, found 2");
    inputs_.component["touchstone"]["ports"] = 2;
    EXPECT_EQ(remark(), "component.json: /touchstone/ports: expected 3, as many as a.s3p has, "
                        "found 2");
    name("a.s2p");
    put(twoPorts);
    inputs_.component["parameters"][1]["name"] = "NumPorts";
    EXPECT_EQ(remark(), "component.json: /parameters: NumPorts is -3, but a.s2p has 2 ports");
}

TEST_F(PortMap, RefusesAFileThatCannotBeUsed) {
    EXPECT_EQ(remark(), "a.s2p: no such file");
    put("#\n1 0 0\n");
    EXPECT_EQ(remark(), "a.s2p:2: expected 4 pairs for 2 ports, as the name of the file says, "
                        "found 1");
}

} // namespace component::test
