#include "component/read_component.h"

#include <gtest/gtest.h>

#include "inputs.h"

namespace component::test {
namespace {

using ovalis::test::writeText;

TEST(ReadComponent, TakesEverythingThatIsThere) {
    Inputs inputs;
    const Component read = inputs.readBack();
    EXPECT_EQ(read.name, "coil");
    EXPECT_EQ(read.kind, Kind::scriptMacro);
    EXPECT_EQ(read.userUnit, "micron");
    EXPECT_EQ(read.dbuPerUserUnit, 1000u);
    EXPECT_EQ(read.itemPrefix, "L");
    EXPECT_EQ(read.macroBody, "{ draw();\n}");
    EXPECT_FALSE(read.sharedNet);
    EXPECT_EQ(read.symbol.kind, SymbolKind::differential);
    EXPECT_EQ(read.symbol.ports, 1u);
    EXPECT_TRUE(read.warnings.empty());
    EXPECT_EQ(read.layers.size(), 3u);
    EXPECT_EQ(read.layers[1].key(), "M1:pin");
    EXPECT_TRUE(read.layers[1].draw);
    EXPECT_FALSE(read.layers[2].draw);
}

TEST(ReadComponent, FindsTheLayoutBesideItself) {
    Inputs inputs;
    const std::string file = inputs.readBack().layoutFile;
    writeText(file, "here");
    EXPECT_EQ(ovalis::test::readText(inputs.layoutFile()), "here");
    inputs.component["layout"] = "/elsewhere/layout.json";
    EXPECT_EQ(inputs.readBack().layoutFile, "/elsewhere/layout.json");
}

TEST(ReadComponent, GivesPortsTheNumbersOfTheirLayer) {
    Inputs inputs;
    const std::vector<Port> ports = inputs.readBack().ports;
    ASSERT_EQ(ports.size(), 2u);
    EXPECT_EQ(ports[0].name, "A");
    EXPECT_EQ(ports[0].layerNumber, 1u);
    EXPECT_EQ(ports[0].purposeNumber, 2u);
    EXPECT_EQ(ports[0].outline, (Outline{{0, 5}}));
    EXPECT_EQ(ports[0].angle, 180.0);
    EXPECT_EQ(ports[0].properties, (std::map<std::string, std::string>{{"k", "v"}}));
    EXPECT_EQ(ports[1].purposeNumber, 4294967295u);
    EXPECT_EQ(ports[1].outline, (Outline{{0, 0}, {0, 9}}));
}

TEST(ReadComponent, KeepsValueAndFlagsOfEachParameterKind) {
    Inputs inputs;
    const std::vector<Parameter> read = inputs.readBack().parameters;
    ASSERT_EQ(read.size(), 5u);
    EXPECT_EQ(std::get<bool>(read[0].value), true);
    EXPECT_EQ(read[0].description, "flag");
    EXPECT_EQ(std::get<std::int32_t>(read[1].value), -3);
    EXPECT_TRUE(read[1].notEdited);
    EXPECT_EQ(std::get<RealValue>(read[2].value).number, 2.5);
    EXPECT_EQ(std::get<RealValue>(read[2].value).withUnit, "2.5 um");
    EXPECT_EQ(std::get<RealValue>(read[2].value).unitType, 4);
    EXPECT_TRUE(read[2].evaluated);
    EXPECT_EQ(std::get<std::string>(read[3].value), "text");
    EXPECT_FALSE(read[3].displayOnSchematic);
    EXPECT_EQ(std::get<LayerValue>(read[4].value).number, 1);
    EXPECT_EQ(std::get<LayerValue>(read[4].value).text, "M1:drawing");
    EXPECT_TRUE(read[4].notNetlisted);
}

TEST(ReadComponent, FillsInWhatMayBeLeftOut) {
    Inputs inputs;
    for (const char* key : {"format", "description", "shared_net", "options"})
        inputs.component.erase(key);
    const Component read = inputs.readBack();
    EXPECT_EQ(read.itemPrefix, "X");
    EXPECT_FALSE(read.sharedNet);
}

TEST(ReadComponent, DoesWithoutAMacroBodyForSParameters) {
    Inputs inputs;
    inputs.component["kind"] = "s_parameter";
    inputs.component.erase("macro_body");
    EXPECT_EQ(inputs.readBack().macroBody, "");
}

const BadInput badComponents[] = {
    {"", "[1, 2]", "expected an object, found an array of 2 elements"},
    {"/format", "\"component/2\"", "/format: expected \"component/1\", found \"component/2\""},
    {"/name", "", "/name: expected a text, no such key"},
    {"/name", "\"\"", "/name: expected a text that is not empty, found \"\""},
    {"/name", "7", "/name: expected a text, found 7"},
    {"/name", "\"a\\nb\"", "/name: expected a text without control characters, found \"a\\nb\""},
    {"/name", "\"a\\\"b\"", "/name: expected a text without double quotes, found \"a\\\"b\""},
    {"/kind", "\"sparam\"",
     "/kind: expected one of \"s_parameter\", \"script_macro\", found \"sparam\""},
    {"/kind", "null", "/kind: expected one of \"s_parameter\", \"script_macro\", found null"},
    {"/units", "", "/units: expected an object, no such key"},
    {"/units/user_unit", "\"furlong\"",
     "/units/user_unit: expected one of \"micron\", \"millimeter\", \"centimeter\", \"meter\", "
     "\"mil\", \"inch\", \"nanometer\", found \"furlong\""},
    {"/units/dbu_per_uu", "0",
     "/units/dbu_per_uu: expected at least 1 database unit for each user unit, found 0"},
    {"/units/dbu_per_uu", "0.5",
     "/units/dbu_per_uu: expected an integer from 0 to 4294967295, found 0.5"},
    {"/layout", "", "/layout: expected a text, no such key"},
    {"/layers", "{}", "/layers: expected an array, found an object"},
    {"/layers/0", "7", "/layers/0: expected an object, found 7"},
    {"/layers/0/number", "-1",
     "/layers/0/number: expected an integer from 0 to 4294967295, found -1"},
    {"/layers/0/number", "4294967296",
     "/layers/0/number: expected an integer from 0 to 4294967295, found 4294967296"},
    {"/layers/0/number", "18446744073709551615",
     "/layers/0/number: expected an integer from 0 to 4294967295, found 18446744073709551615"},
    {"/layers/0/draw", "1", "/layers/0/draw: expected true or false, found 1"},
    {"/layers/1/purpose", "\"drawing\"",
     "/layers/1: expected a pair of layer and purpose not declared before, but \"M1:drawing\" is, "
     "found an object"},
    {"/shared_net", "\"no\"", "/shared_net: expected true or false, found \"no\""},
    {"/ports", "", "/ports: expected an array, no such key"},
    {"/ports/1/name", "\"A\"", "/ports/1/name: expected a port name not used before, found \"A\""},
    {"/ports/0/layer", "\"M7\"",
     "/ports/0/layer: expected one of the component's layers, but \"M7:pin\" is not, found \"M7\""},
    {"/ports/0/outline", "[]",
     "/ports/0/outline: expected at least 1 point, found an array of 0 elements"},
    {"/ports/0/outline/0", "[1]",
     "/ports/0/outline/0: expected a point [x, y], found an array of 1 element"},
    {"/ports/0/outline/0/1", "2147483648",
     "/ports/0/outline/0/1: expected an integer from -2147483648 to 2147483647, found 2147483648"},
    {"/ports/0/outline/0/0", "-2147483649",
     "/ports/0/outline/0/0: expected an integer from -2147483648 to 2147483647, found -2147483649"},
    {"/ports/0/outline/0/0", "1.5",
     "/ports/0/outline/0/0: expected an integer from -2147483648 to 2147483647, found 1.5"},
    {"/ports/0/angle", "\"up\"", "/ports/0/angle: expected a number, found \"up\""},
    {"/ports/0/angle", "", "/ports/0/angle: expected a number, no such key"},
    {"/ports/0/properties/k", "1", "/ports/0/properties/k: expected a text, found 1"},
    {"/ports/0/properties/a~1b", "1", "/ports/0/properties/a~1b: expected a text, found 1"},
    {"/ports/0/properties", "{\"\": \"x\"}",
     "/ports/0/properties: expected property names that are not empty, found an object"},
    {"/parameters/0/kind", "\"text\"",
     "/parameters/0/kind: expected one of \"bool\", \"int\", \"real\", \"string\", \"layer\", "
     "found "
     "\"text\""},
    {"/parameters/1/name", "\"b\"",
     "/parameters/1/name: expected a parameter name not used before, found \"b\""},
    {"/parameters/0/value", "1", "/parameters/0/value: expected true or false, found 1"},
    {"/parameters/1/value", "2147483648",
     "/parameters/1/value: expected an integer from -2147483648 to 2147483647, found 2147483648"},
    {"/parameters/2/value", "\"2.5\"", "/parameters/2/value: expected a number, found \"2.5\""},
    {"/parameters/2/unit_type", "\"um\"",
     "/parameters/2/unit_type: expected an integer from -2147483648 to 2147483647, found \"um\""},
    {"/parameters/3/value", "\"a \\\"quoted\\\" word\"",
     "/parameters/3/value: expected a text without double quotes, found \"a \\\"quoted\\\" word\""},
    {"/parameters/4/value", "\"M1\"",
     "/parameters/4/value: expected an integer from -2147483648 to 2147483647, found \"M1\""},
    {"/options/item_prefix", "[]",
     "/options/item_prefix: expected a text, found an array of 0 elements"},
    {"/macro_body", "", "/macro_body: expected a text, no such key"},
    {"/symbol", "", "/symbol: expected an object, no such key"},
    {"/symbol/kind", "\"box\"",
     "/symbol/kind: expected one of \"none\", \"differential\", \"differential_forks\", found "
     "\"box\""},
    {"/symbol/ports", "0", "/symbol/ports: expected an integer from 1 to 10000, found 0"},
    {"/symbol/ports", "10001", "/symbol/ports: expected an integer from 1 to 10000, found 10001"},
    {"/name", "{\"a\": 1}", "/name: expected a text, found an object"},
    {"/layout", "\"a\\u0000b\"",
     "/layout: expected a text without the character U+0000, found \"a\\u0000b\""},
    {"/kind", "\"a very long word that nobody would ever want to read in an error message\"",
     "/kind: expected one of \"s_parameter\", \"script_macro\", found \"a very long word that "
     "nobody "
     "would ever...\""},
};

TEST(ReadComponent, SaysWhereTheFileDepartsFromTheForm) {
    for (const BadInput& bad : badComponents) {
        Inputs inputs;
        apply(inputs.component, bad);
        EXPECT_EQ(inputs.complaint(), bad.complaint);
    }
}

const BadInput oddComponents[] = {
    {"/lay_out", "1", "/lay_out: this key means nothing here and is ignored"},
    {"/ports/0/angel", "1", "/ports/0/angel: this key means nothing here and is ignored"},
    {"/parameters/0/unit_type", "1",
     "/parameters/0/unit_type: this key means nothing here and is ignored"},
    {"/units/dbu", "1", "/units/dbu: this key means nothing here and is ignored"},
    {"/symbol/ports", "2", "/symbol/ports: the symbol gets 4 pins, the layout has 2"},
    {"/layers/1/number", "2", "/layers/1/number: the technology keeps layer \"M1\" with number 1"},
    {"/layers/2/number", "1", "/layers/2/number: the technology keeps layer \"M1\" with number 1"},
    {"/layers/2/purpose_number", "3",
     "/layers/2/purpose_number: the technology keeps purpose \"drawing\" with number 4294967295"},
};

TEST(ReadComponent, RemarksOnWhatLooksLikeAMistake) {
    for (const BadInput& odd : oddComponents) {
        Inputs inputs;
        apply(inputs.component, odd);
        EXPECT_EQ(inputs.readBack().warnings,
                  (std::vector<std::string>{inputs.componentFile() + ": " + odd.complaint}));
    }
}

struct BrokenFile {
    const char* text;
    const char* complaint;
};

const BrokenFile brokenFiles[] = {
    {"", "line 1, column 1: broken JSON, syntax error while parsing value - unexpected end of "
         "input; expected '[', '{', or a literal"},
    {"{\n  \"name\": \"a\",\n  kind: 1\n}",
     "line 3, column 3: broken JSON, syntax error while parsing object key - invalid literal; last "
     "read: '\"a\",<U+000A>  k'; expected string literal"},
    {"{\"name\": \"a\"",
     "line 1, column 13: broken JSON, syntax error while parsing object - unexpected end of input; "
     "expected '}'"},
    {"{\"name\": \"\xff\"}", "line 1, column 11: broken JSON, syntax error while parsing value - "
                             "invalid string: ill-formed "
                             "UTF-8 byte; last read: '\"\xff'"},
    {"{\n  \"angle\": 1e999}", "line 2, column 12: broken JSON, number overflow parsing '1e999'"},
    {"[-1e999, 2]", "line 1, column 2: broken JSON, number overflow parsing '-1e999'"},
    {"-1e999", "line 1, column 1: broken JSON, number overflow parsing '-1e999'"},
    {"{\"name\": \"a\", \"kind\": {}, \"name\": \"a\"}",
     "/name: expected the key once, found it twice"},
    {"[{}, [1, {\"a~/\": {\"x\": 1, \"y\": [], \"x\": 1}}]]",
     "/1/1/a~0~1/x: expected the key once, found it twice"},
};

TEST(ReadComponent, NamesThePlaceInBrokenJson) {
    for (const BrokenFile& broken : brokenFiles) {
        Inputs inputs;
        writeText(inputs.componentFile(), broken.text);
        const auto read = [&] { readComponent(inputs.componentFile()); };
        EXPECT_EQ(Inputs::withoutFile(read, inputs.componentFile()), broken.complaint);
    }
}

TEST(ReadComponent, NamesAFileThatIsNotThere) {
    const auto read = [] { readComponent("no/such/component.json"); };
    EXPECT_EQ(Inputs::withoutFile(read, "no/such/component.json"), "no such file");
}

TEST(ReadComponent, NamesADirectoryInPlaceOfAFile) {
    const ovalis::test::TemporaryDirectory directory;
    const auto read = [&] { readComponent(directory.str()); };
    EXPECT_EQ(Inputs::withoutFile(read, directory.str()), "expected a file, found a directory");
}

} // namespace
} // namespace component::test
