#include "klayout.h"

#include "flat_layout.h"

#include "platform/child_process.h"
#include "platform/environment.h"
#include "platform/file.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace bench {

namespace {

/// The program that OVALIS_BENCH_KLAYOUT names, or the first `klayout` on the search path; empty
/// when there is none.
std::string program() {
    if (const auto chosen = platform::environmentVariable("OVALIS_BENCH_KLAYOUT"))
        return *chosen;
    std::istringstream directories(platform::environmentVariable("PATH").value_or(""));
    std::string directory;
    while (std::getline(directories, directory, platform::pathListSeparator()))
        if (platform::isFile(directory + "/klayout"))
            return directory + "/klayout";
    return {};
}

} // namespace

bool Klayout::isInstalled() {
    return !program().empty();
}

void Klayout::write() {
    writeFlat(flatLayout(shapes_), file(".flat"));
    run("write", kChildRepetitions);
}

void Klayout::read(int copies) {
    run("read", kChildRepetitions, copies);
}

void Klayout::memory() {
    for (int i = 0; i < kChildRepetitions; ++i)
        run("memory", 1);
}

double Klayout::next(const std::string& name) {
    const std::vector<double>& figures = figures_.at(name);
    return figures[std::min(taken_[name]++, figures.size() - 1)];
}

std::string Klayout::file(const std::string& suffix) const {
    return directory_ / ("klayout_" + std::to_string(shapes_) + suffix);
}

void Klayout::run(const std::string& work, int repetitions, int copies) {
    const std::string results = file(".results");
    const std::string log = file(".log");
    const std::map<std::string, std::string> variables = {
        {"work", work},
        {"flat", file(".flat")},
        {"layout", file("")},
        {"results", results},
        {"repetitions", std::to_string(repetitions)},
        {"copies", std::to_string(copies)},
    };
    std::vector<std::string> arguments = {"-b", "-r", KLAYOUT_SCRIPT};
    for (const auto& [name, value] : variables) {
        arguments.push_back("-rd");
        arguments.push_back(name + '=' + value);
    }
    if (platform::ChildProcess(program(), arguments, {log, log}).wait() != 0)
        throw std::runtime_error("klayout failed:\n" + platform::readFile(log));

    std::ifstream input(results);
    std::string name;
    double figure = 0;
    while (input >> name >> figure)
        figures_[name].push_back(figure);
}

} // namespace bench
