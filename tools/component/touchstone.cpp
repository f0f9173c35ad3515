#include "component/touchstone.h"

#include <algorithm>
#include <map>
#include <optional>

#include "component/json_node.h"
#include "component/touchstone_text.h"
#include "platform/file.h"
#include "platform/path.h"

namespace component {
namespace {

using Words = std::vector<std::string_view>;

/// More would be a slip of the pen, and its matrix would not fit into memory.
constexpr std::uint32_t mostPorts = 10000;

/// What the name of the file tells; nothing when it does not end as those with ports do.
std::optional<std::uint32_t> tellPorts(const std::string& file) {
    const std::string name = platform::fileName(file);
    const auto stated = portsOfName(name);
    if (!stated)
        return std::nullopt;
    const auto ports = countOf(*stated);
    if (!ports || *ports == 0 || *ports > mostPorts)
        throw InputError(file + ": expected a number of ports from 1 to " +
                         std::to_string(mostPorts) + " in the ending of the name, found \"" +
                         name.substr(name.rfind('.')) + "\"");
    return ports;
}

class TouchstoneReader {
public:
    TouchstoneReader(std::string file, std::string_view text)
        : file_(std::move(file)), rest_(text), portsOfName_(tellPorts(file_)) {}

    Touchstone read() {
        if (rest_.starts_with("\xef\xbb\xbf"))
            rest_.remove_prefix(3);
        while (!ended_ && !rest_.empty())
            takeLine();
        if (!hasOptions_)
            fail("there is no option line, which starts with #");
        if (result_.version == 1)
            finishRecord();
        else
            requireKeywords();
        if (numbers_ == 0)
            fail("there are no data");
        if (result_.version == 2)
            requireWholeMatrices();
        finishPorts();
        return std::move(result_);
    }

private:
    void takeLine() {
        ++line_;
        const std::size_t end = std::min(rest_.find('\n'), rest_.size());
        std::string_view line = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        if (const std::size_t sign = line.find('!'); sign != std::string_view::npos) {
            if (const auto name = portNameIn(line.substr(sign + 1)))
                names_.try_emplace(name->port, name->name);
            line = line.substr(0, sign);
        }
        line = trimmed(line);
        if (line.empty())
            return;
        if (line.front() == '#')
            takeOptions(wordsOf(line.substr(1)));
        else if (line.front() == '[')
            takeKeyword(line);
        else
            takeNumbers(wordsOf(line));
    }

    void takeOptions(const Words& words) {
        if (hasOptions_)
            return; // the first one counts
        hasOptions_ = true;
        for (auto word = words.begin(); word != words.end();) {
            if (!sameWord(*word, "R")) {
                requireOption(*word++);
                continue;
            }
            while (++word != words.end() && numberOf(*word))
                addImpedance(*word);
            if (impedances_.empty())
                fail("expected the reference impedance behind R");
        }
    }

    void requireOption(std::string_view word) const {
        constexpr std::string_view options[] = {"Hz", "kHz", "MHz", "GHz", "S",  "Y",
                                                "Z",  "G",   "H",   "DB",  "MA", "RI"};
        if (std::ranges::none_of(options, [&](auto option) { return sameWord(word, option); }))
            fail("expected a unit of frequency, a kind of parameters, a format or R, found \"" +
                 std::string(word) + "\"");
    }

    void addImpedance(std::string_view word) {
        const auto number = numberOf(word);
        if (!number || !(*number > 0))
            fail("expected a reference impedance above 0, found \"" + std::string(word) + "\"");
        impedances_.push_back(*number);
    }

    void takeKeyword(std::string_view line) {
        const std::size_t end = line.find(']');
        if (end == std::string_view::npos)
            fail("expected ] behind a keyword");
        const std::string_view keyword = trimmed(line.substr(1, end - 1));
        const Words values = wordsOf(line.substr(end + 1));
        inReference_ = false;
        if (sameWord(keyword, "Version")) {
            if (values.size() != 1 || !values[0].starts_with("2."))
                fail("expected version 2.0 or 2.1");
            result_.version = 2;
        } else if (result_.version == 1) {
            fail("expected [Version] in front of other keywords");
        } else if (sameWord(keyword, "Number of Ports")) {
            result_.ports = onlyCount(keyword, values);
        } else if (sameWord(keyword, "Number of Frequencies")) {
            frequencies_ = onlyCount(keyword, values);
        } else if (sameWord(keyword, "Matrix Format")) {
            wholeMatrix_ = values.empty() || sameWord(values[0], "Full");
        } else if (sameWord(keyword, "Reference")) {
            impedances_.clear();
            inReference_ = true;
            takeNumbers(values);
        } else if (sameWord(keyword, "Network Data")) {
            inData_ = true;
        } else if (sameWord(keyword, "Begin Information")) {
            skipInformation();
        } else if (sameWord(keyword, "Noise Data") || sameWord(keyword, "End")) {
            ended_ = true;
        }
    }

    std::uint32_t onlyCount(std::string_view keyword, const Words& values) {
        const auto count = values.size() == 1 ? countOf(values[0]) : std::nullopt;
        if (!count || *count == 0)
            fail("expected a number behind [" + std::string(keyword) + "]");
        return *count;
    }

    void skipInformation() {
        while (!rest_.empty()) {
            ++line_;
            const std::size_t end = std::min(rest_.find('\n'), rest_.size());
            const std::string_view line = trimmed(rest_.substr(0, end));
            rest_.remove_prefix(std::min(end + 1, rest_.size()));
            if (line.starts_with('[') && sameWord(line, "[End Information]"))
                return;
        }
        fail("expected [End Information]");
    }

    void takeNumbers(const Words& words) {
        if (inReference_) {
            std::ranges::for_each(words, [&](std::string_view word) { addImpedance(word); });
            return;
        }
        if (!hasOptions_)
            fail("expected the option line, which starts with #, in front of the data");
        if (result_.version == 2 && !inData_)
            fail("expected [Network Data] in front of the data");
        if (const auto wrong = std::ranges::find_if(
                words, [](std::string_view word) { return !numberOf(word).has_value(); });
            wrong != words.end())
            fail("expected a number, found \"" + std::string(*wrong) + "\"");
        if (result_.version == 1)
            takeRow(words);
        numbers_ += words.size();
    }

    /// A frequency and pairs make an odd number, pairs alone an even one: so a line shows whether
    /// it starts the record of a frequency.
    void takeRow(const Words& words) {
        if (inNoise_)
            return;
        if (words.size() % 2 == 0) {
            if (numbers_ == 0)
                fail("expected a frequency and pairs of numbers");
            pairs_ += words.size() / 2;
            return;
        }
        finishRecord();
        const double frequency = *numberOf(words[0]);
        constexpr std::size_t noiseColumns = 5;
        if (numbers_ > 0 && !(frequency > frequency_)) {
            if (result_.ports != 2 || words.size() != noiseColumns)
                fail("expected frequencies that increase");
            inNoise_ = true;
            pairs_ = 0;
            return;
        }
        frequency_ = frequency;
        recordLine_ = line_;
        pairs_ = words.size() / 2;
    }

    /// The pairs of the record must be a matrix, of the same size as those before.
    void finishRecord() {
        if (inNoise_ || numbers_ == 0)
            return;
        std::uint32_t ports = 1;
        while (std::size_t{ports} * ports < pairs_)
            ++ports;
        const std::uint32_t expected = portsOfName_ ? *portsOfName_ : result_.ports;
        if (std::size_t{ports} * ports != pairs_ || (expected != 0 && ports != expected)) {
            line_ = recordLine_;
            const std::string wanted =
                expected == 0
                    ? "the pairs of a whole matrix"
                    : std::to_string(std::size_t{expected} * expected) + " pairs for " +
                          std::to_string(expected) + (expected == 1 ? " port" : " ports") +
                          (portsOfName_ ? ", as the name of the file says" : "");
            fail("expected " + wanted + ", found " + std::to_string(pairs_));
        }
        result_.ports = ports;
    }

    void requireKeywords() {
        if (result_.ports == 0)
            fail("there is no [Number of Ports]");
        if (portsOfName_ && *portsOfName_ != result_.ports)
            fail("the name says " + std::to_string(*portsOfName_) +
                 " ports, [Number of Ports] says " + std::to_string(result_.ports));
    }

    void requireWholeMatrices() {
        if (result_.ports > mostPorts)
            fail("there are more than " + std::to_string(mostPorts) + " ports");
        const std::size_t n = result_.ports;
        const std::size_t each = 1 + (wholeMatrix_ ? 2 * n * n : n * (n + 1));
        const bool whole =
            frequencies_ == 0 ? numbers_ % each == 0 : numbers_ == each * std::size_t{frequencies_};
        if (!whole)
            fail("expected " + (frequencies_ == 0 ? "" : std::to_string(frequencies_) + " times ") +
                 std::to_string(each) + " numbers for " + std::to_string(n) +
                 (n == 1 ? " port" : " ports") + ", found " + std::to_string(numbers_));
    }

    void finishPorts() {
        constexpr double usualImpedance = 50;
        if (impedances_.empty())
            impedances_.push_back(usualImpedance);
        if (impedances_.size() == 1)
            impedances_.resize(result_.ports, impedances_[0]);
        if (impedances_.size() != result_.ports)
            fail("expected 1 or " + std::to_string(result_.ports) +
                 " reference impedances, found " + std::to_string(impedances_.size()));
        result_.impedances = impedances_;
        result_.portNames.resize(result_.ports);
        for (const auto& [port, name] : names_)
            if (port >= 1 && port <= result_.ports)
                result_.portNames[port - 1] = name;
    }

    [[noreturn]] void fail(const std::string& what) const {
        throw InputError(file_ + ":" + std::to_string(line_) + ": " + what);
    }

    const std::string file_;
    std::string_view rest_;
    const std::optional<std::uint32_t> portsOfName_;
    Touchstone result_;
    std::uint32_t line_ = 0;
    bool hasOptions_ = false;
    bool inReference_ = false;
    bool inData_ = false;
    bool inNoise_ = false;
    bool ended_ = false;
    bool wholeMatrix_ = true;
    std::vector<double> impedances_;
    std::map<std::uint32_t, std::string> names_;
    std::uint32_t frequencies_ = 0;
    std::size_t numbers_ = 0;
    // The record of version 1 that is being read.
    std::size_t pairs_ = 0;
    double frequency_ = 0;
    std::uint32_t recordLine_ = 0;
};

} // namespace

Touchstone readTouchstone(const std::string& file) {
    std::string text;
    try {
        // A device or a pipe might never end.
        if (!platform::isFile(file))
            throw InputError(file + ": no such file");
        text = platform::readFile(file);
    } catch (const platform::SystemFailure& failure) {
        throw InputError(file + ": " + failure.error().text());
    }
    return TouchstoneReader(file, text).read();
}

} // namespace component
