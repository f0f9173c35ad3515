#include <ovalis/ports.h>

#include "ports/block_text.h"
#include "support/library_fixture.h"

using namespace ovalis;
using ovalis::test::failureOf;
using ovalis::test::messageIdOf;
using ovalis::test::portsOf;
using ovalis::test::shapesOf;

using Texts = std::vector<std::string>;

namespace {

std::string point(int x, int y) {
    return "(" + std::to_string(x) + "," + std::to_string(y) + ")";
}

const std::string device = "231:4294967295 ";

std::string textAt(const std::string& text, int x, int y, const char* alignment, int height) {
    return "text " + device + "'" + text + "' " + point(x, y) + " " + alignment +
           " R0 font 0 height " + std::to_string(height) + " visible drafting";
}

std::string portText(int number, const char* angle, const std::string& figure) {
    const std::string name = "P" + std::to_string(number);
    const std::string index = std::to_string(number - 1);
    return name + " on net_ovalis_" + index + " at " + index + " inputOutput interface; pin " +
           name + " access 0 angle " + angle + ".000000 [" + figure + "]";
}

/// What a symbol holds, worked out from its description step by step.
struct Expected {
    Texts shapes;
    Texts ports;

    void add(const std::string& shape) { shapes.push_back(shape); }

    /// The figure of a port is a shape of the block too.
    void addPort(const char* angle, const std::string& figure) {
        ports.push_back(portText(static_cast<int>(ports.size()) + 1, angle, figure));
        shapes.push_back(figure);
    }

    void sort() {
        std::sort(shapes.begin(), shapes.end());
        std::sort(ports.begin(), ports.end());
    }
};

Expected expectedSymbol(int count) {
    Expected expected;
    int lastPin = 0;
    for (int k = 1; k <= count; ++k) {
        const bool left = k % 2 == 1;
        const int top = (k - 1) / 2 * -100;
        for (int j = 0; j < 2; ++j) {
            const int h = top - 40 * j;
            const int outer = left ? 0 : 160;
            const int inner = left ? 30 : 130;
            expected.add("line " + device + point(outer, h) + point(inner, h));
            expected.add(textAt(j == 0 ? "+" : "-", left ? 40 : 120, h, "centerCenter", 25));
            expected.addPort(left ? "180" : "0", "dot " + device + point(outer, h) + " 0x0");
            lastPin = h;
        }
        expected.add(textAt(std::to_string(k), left ? 48 : 112, top - 20, "centerCenter", 16));
    }
    expected.add("rect " + device + point(30, lastPin - 30) + point(130, 30));
    expected.sort();
    return expected;
}

void addFork(Expected& expected, bool left, int y) {
    const int base = left ? 0 : 160;
    const int step = left ? -16 : 176;
    const int end = left ? -32 : 192;
    for (const int sign : {1, -1}) {
        expected.add("line " + device + point(base, y + 2 * sign) + point(step, y + 2 * sign) +
                     point(step, y + 20 * sign) + point(end, y + 20 * sign));
    }
    expected.add(textAt("+", end, y + 18, "upperCenter", 20));
    expected.add(textAt("-", end, y - 18, "lowerCenter", 20));
    expected.addPort(left ? "180" : "0",
                     "line " + device + point(end, y + 20) + point(end, y - 20));
}

Expected expectedForks(int count) {
    Expected expected;
    const int left = count / 2;
    const int right = count - left;
    const int height = 80 * right;
    for (int i = 0; i < left; ++i) {
        addFork(expected, true, height - 60 - 80 * i);
    }
    for (int i = 0; i < right; ++i) {
        addFork(expected, false, height - 60 - 80 * i);
    }
    expected.add("rect " + device + point(0, 0) + point(160, height - 40));
    expected.sort();
    return expected;
}

class Symbols : public ovalis::test::LibraryTest {
protected:
    oa::oaDesign& newSymbol(int number = 0) {
        return design("cell" + std::to_string(number), "symbol", 'w', oa::oacSchematicSymbol);
    }

    void expectDrawn(oa::oaDesign& symbol, const Expected& expected) {
        ASSERT_NE(symbol.getTopBlock(), nullptr);
        EXPECT_EQ(shapesOf(*symbol.getTopBlock()), expected.shapes);
        EXPECT_EQ(portsOf(*symbol.getTopBlock()), expected.ports);
    }
};

} // namespace

TEST_F(Symbols, AreDrawnForEachCount) {
    for (int count = 0; count <= 9; ++count) {
        SCOPED_TRACE(count);
        oa::oaDesign& symbol = newSymbol(count);
        EXPECT_TRUE(vexSymbolSnPDifferential(symbol, static_cast<std::uint64_t>(count)));
        expectDrawn(symbol, expectedSymbol(count));
    }
}

TEST_F(Symbols, WithForksAreDrawnForEachCount) {
    for (int count = 1; count <= 9; ++count) {
        SCOPED_TRACE(count);
        oa::oaDesign& symbol = newSymbol(count);
        EXPECT_TRUE(vexSymbolSnPDifferentialForks(symbol, static_cast<std::uint64_t>(count)));
        expectDrawn(symbol, expectedForks(count));
    }
}

TEST_F(Symbols, OfOnePortAreDrawnToTheLetter) {
    oa::oaDesign& symbol = newSymbol();
    EXPECT_TRUE(vexSymbolSnPDifferential(symbol, 1));
    EXPECT_EQ(
        shapesOf(*symbol.getTopBlock()),
        (Texts{"dot 231:4294967295 (0,-40) 0x0", "dot 231:4294967295 (0,0) 0x0",
               "line 231:4294967295 (0,-40)(30,-40)", "line 231:4294967295 (0,0)(30,0)",
               "rect 231:4294967295 (30,-70)(130,30)",
               "text 231:4294967295 '+' (40,0) centerCenter R0 font 0 height 25 visible drafting",
               "text 231:4294967295 '-' (40,-40) centerCenter R0 font 0 height 25 visible drafting",
               "text 231:4294967295 '1' (48,-20) centerCenter R0 font 0 height 16 visible "
               "drafting"}));
    EXPECT_EQ(portsOf(*symbol.getTopBlock()),
              (Texts{"P1 on net_ovalis_0 at 0 inputOutput interface; pin P1 access 0 angle "
                     "180.000000 [dot 231:4294967295 (0,0) 0x0]",
                     "P2 on net_ovalis_1 at 1 inputOutput interface; pin P2 access 0 angle "
                     "180.000000 [dot 231:4294967295 (0,-40) 0x0]"}));
}

TEST_F(Symbols, OfNoPortAreABody) {
    oa::oaDesign& symbol = newSymbol();
    EXPECT_TRUE(vexSymbolSnPDifferential(symbol, 0));
    EXPECT_EQ(shapesOf(*symbol.getTopBlock()), Texts{"rect 231:4294967295 (30,-30)(130,30)"});
    EXPECT_TRUE(portsOf(*symbol.getTopBlock()).empty());
}

TEST_F(Symbols, WithOneForkAreDrawnToTheLetter) {
    oa::oaDesign& symbol = newSymbol();
    EXPECT_TRUE(vexSymbolSnPDifferentialForks(symbol, 1));
    EXPECT_EQ(
        shapesOf(*symbol.getTopBlock()),
        (Texts{"line 231:4294967295 (160,18)(176,18)(176,0)(192,0)",
               "line 231:4294967295 (160,22)(176,22)(176,40)(192,40)",
               "line 231:4294967295 (192,40)(192,0)", "rect 231:4294967295 (0,0)(160,40)",
               "text 231:4294967295 '+' (192,38) upperCenter R0 font 0 height 20 visible drafting",
               "text 231:4294967295 '-' (192,2) lowerCenter R0 font 0 height 20 visible "
               "drafting"}));
    EXPECT_EQ(portsOf(*symbol.getTopBlock()),
              Texts{"P1 on net_ovalis_0 at 0 inputOutput interface; pin P1 access 0 angle "
                    "0.000000 [line 231:4294967295 (192,40)(192,0)]"});
}

TEST_F(Symbols, WithNoForkAreRefusedByTheDatabase) {
    oa::oaDesign& symbol = newSymbol();
    EXPECT_EQ(messageIdOf([&] { vexSymbolSnPDifferentialForks(symbol, 0); }),
              oa::oacRectBBoxInvalid);
    EXPECT_TRUE(portsOf(*symbol.getTopBlock()).empty());
}

TEST_F(Symbols, AreDrawnBesideWhatIsThere) {
    oa::oaDesign& symbol = newSymbol();
    oa::oaDot::create(oa::oaBlock::create(&symbol), 3, 3, oa::oaPoint(2, 2));
    EXPECT_TRUE(vexSymbolSnPDifferential(symbol, 0));
    EXPECT_EQ(shapesOf(*symbol.getTopBlock()),
              (Texts{"dot 3:3 (2,2) 0x0", "rect 231:4294967295 (30,-30)(130,30)"}));
}

TEST_F(Symbols, AreTheSameFromDisk) {
    oa::oaDesign& symbol = newSymbol();
    vexSymbolSnPDifferential(symbol, 4);
    symbol.save();
    reopen();
    oa::oaDesign& read = design("cell0", "symbol", 'r', oa::oacSchematicSymbol);
    expectDrawn(read, expectedSymbol(4));
}

TEST_F(Symbols, FailInADesignThatIsClosed) {
    oa::oaDesign& symbol = newSymbol();
    symbol.purge();
    EXPECT_EQ(messageIdOf([&] { vexSymbolSnPDifferential(symbol, 1); }), oa::oacInvalidObject);
    EXPECT_EQ(messageIdOf([&] { vexSymbolSnPDifferentialForks(symbol, 1); }), oa::oacInvalidObject);
}

TEST_F(Symbols, FailInADesignThatCannotBeChanged) {
    oa::oaDesign& symbol = newSymbol();
    symbol.save();
    symbol.reopen('r');
    EXPECT_GT(messageIdOf([&] { vexSymbolSnPDifferential(symbol, 1); }), 0);
    EXPECT_GT(messageIdOf([&] { vexSymbolSnPDifferentialForks(symbol, 1); }), 0);
}
